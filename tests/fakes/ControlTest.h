#pragma once

#include "data/AppProperties.h"
#include "fakes/TestPlatform.h"
#include "resources/Resources.h"

#include <QApplication>
#include <QEnterEvent>
#include <QImage>
#include <QPushButton>
#include <QScreen>
#include <QWidget>

#include <gtest/gtest.h>

/// A fixture for controls and windows: the program's own pictures, texts and virtual time, nothing of the
/// user's. Test programs that include this link zelvo_data and zelvo_resources.
class ControlTest : public testing::Test {
protected:
    ControlTest() { initResources(); }

    /// Shows a window and makes it the active one.
    static void show(QWidget& window)
    {
        window.show();
        QApplication::setActiveWindow(&window);
        QApplication::processEvents();
    }

    /// What stands on the screen; a colour that nothing has where the widget paints nothing.
    static QImage grab(QWidget& widget)
    {
        QImage image(widget.size(), QImage::Format_RGB32);
        image.fill(QColor(255, 0, 255));
        widget.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
        return image;
    }

    /// What lies behind a button; an invalid colour for nothing.
    static void setBackground(QPushButton& button, const QColor& color)
    {
        button.setFlat(!color.isValid());
        QPalette palette = button.palette();
        palette.setColor(QPalette::Button, color);
        button.setPalette(palette);
    }

    /// What the window has painted so far: nothing new where nothing called for it.
    static QImage onScreen(const QWidget& window)
    {
        QApplication::processEvents();
        return window.screen()->grabWindow(window.winId()).toImage();
    }

    /// The rectangle around all pixels of which the condition holds.
    template <typename Condition>
    static QRect boxOf(const QImage& image, Condition holds)
    {
        QRect box;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (holds(image.pixelColor(x, y)))
                    box |= QRect(x, y, 1, 1);
        return box;
    }

    static void enter(QWidget& widget)
    {
        const QPointF center = widget.rect().center();
        QEnterEvent event(center, center, widget.mapToGlobal(center));
        QApplication::sendEvent(&widget, &event);
    }

    static void leave(QWidget& widget)
    {
        QEvent event(QEvent::Leave);
        QApplication::sendEvent(&widget, &event);
    }

    TestPlatform platform;
};
