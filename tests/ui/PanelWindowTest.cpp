#include "ui/PanelWindow.h"

#include "fakes/ControlTest.h"
#include "ui/HorizontalRuleView.h"
#include "ui/HoverButton.h"
#include "ui/Palette.h"
#include "ui/ScrollingBody.h"

#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>
#include <QWindow>

namespace {
class PanelWindowTest : public ControlTest {
protected:
    PanelWindowTest()
    {
        window.resize(200, 120);
        button.setGeometry(20, 20, 80, 30);
    }

    static void activate(QWidget& other)
    {
        other.show();
        other.windowHandle()->requestActivate();
        QApplication::processEvents();
    }

    PanelWindow window {Qt::Window | Qt::FramelessWindowHint};
    HoverButton button {&window};
};
}

TEST_F(PanelWindowTest, escapeAndEveryCloseAskFirstAndCloseWithNobodyToAsk)
{
    QString told;
    window.onWillClose([&] { told += u'c'; });
    for (const bool asks : {true, false}) {
        window.onCloseRequested(asks ? [&] { told += u'a'; } : std::function<void()>());
        for (const bool byKey : {true, false}) {
            show(window);
            if (byKey)
                QTest::keyClick(&button, Qt::Key_Escape);
            else
                window.windowHandle()->close();
            EXPECT_EQ(window.isVisible(), asks); // It is the answer that hides it.
        }
    }
    QTest::keyClick(&window, Qt::Key_A);
    QHideEvent minimised;
    show(window);
    QSpontaneKeyEvent::setSpontaneous(&minimised); // The window is still open then.
    qApp->notify(&window, &minimised);
    window.hide();
    EXPECT_EQ(told, QStringLiteral("aaccc"));
}

TEST_F(PanelWindowTest, anOpeningWindowCanLeaveEveryControlUnfocused)
{
    button.setFocus();
    window.unfocusControls();
    show(window);
    EXPECT_EQ(QApplication::focusWidget(), &window);
    QTest::keyClick(&window, Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &button);
}

TEST_F(PanelWindowTest, theKeyboardIsTakenOnlyOnRequestAndGivenUpAtTheNextShow)
{
    QWidget other;
    window.setShowsWithoutKeyboard();
    const auto refuses = [this] {
        return window.windowHandle()->flags().testFlag(Qt::WindowDoesNotAcceptFocus);
    };
    for (int time = 0; time < 2; ++time) {
        window.show();
        EXPECT_TRUE(refuses());
        activate(other);
        window.takeKeyboard();
        QApplication::processEvents();
        EXPECT_FALSE(refuses());
        EXPECT_TRUE(window.isVisible());
        EXPECT_EQ(QGuiApplication::focusWindow(), window.windowHandle());
        window.hide();
    }
    window.takeKeyboard(); // Of a hidden window: nothing.
    EXPECT_FALSE(window.isVisible());
}

TEST_F(PanelWindowTest, comesToTheFrontAlsoWhenMinimised)
{
    QWidget other;
    for (const bool isShown : {true, false}) {
        window.showMinimized();
        window.setVisible(isShown);
        activate(other);
        window.comeToFront();
        QApplication::processEvents();
        EXPECT_TRUE(window.isVisible());
        EXPECT_FALSE(window.isMinimized());
        EXPECT_EQ(QGuiApplication::focusWindow(), window.windowHandle());
    }
}

TEST_F(PanelWindowTest, tellsOfAClickOnAControlOnceItIsOver)
{
    int ended = 0;
    window.onClickEnded([&] { ++ended; });
    show(window);
    QTest::mousePress(window.windowHandle(), Qt::LeftButton, {}, button.geometry().center());
    platform.runLoop.advance(1);
    QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {}, button.geometry().center());
    EXPECT_EQ(ended, 0);
    platform.runLoop.advance(0);
    EXPECT_EQ(ended, 1);
}

TEST_F(PanelWindowTest, isAsLargeAsItsFormWhereThereIsRoom)
{
    PanelWindow framed;
    framed.resize(200, 120);
    const struct {
        QSize available;
        QSize expected;
        QSize expectedFramed; ///< with room for what the window manager adds
    } kTestCases[] = {
        {{800, 480}, {200, 120}, {200, 120}},
        {{800, 90}, {200, 90}, {200, 42}},
        {{150, 480}, {150, 120}, {134, 120}},
        {{250, 150}, {200, 120}, {200, 102}},
    };
    for (const auto& row : kTestCases) {
        window.fitInto(row.available);
        framed.fitInto(row.available);
        EXPECT_EQ(window.size(), row.expected);
        EXPECT_EQ(window.minimumSize(), row.expected) << "of one size";
        EXPECT_EQ(framed.size(), row.expectedFramed);
    }
}

TEST_F(PanelWindowTest, aBodyScrollsOnlyWhereItDoesNotFit)
{
    QVBoxLayout frame(&window);
    frame.setContentsMargins(0, 0, 0, 0);
    ScrollingBody body;
    auto* const content = new QWidget;
    QVBoxLayout rows(content);
    for (int i = 0; i < 4; ++i) {
        rows.addWidget(new HoverButton);
        rows.itemAt(i)->widget()->setFixedHeight(60);
    }
    body.setWidget(content);
    frame.addWidget(&body);
    window.setFixedSize(window.sizeHint());
    show(window);
    const auto rules = body.findChildren<HorizontalRuleView*>();
    const auto seen = [&] { // The bar moves nothing aside.
        return QList<bool> {body.verticalScrollBar()->isVisible(), rules[0]->isVisible(),
            rules[1]->isVisible(), content->width() == body.width()};
    };
    EXPECT_EQ(content->height(), body.height());
    EXPECT_EQ(seen(), (QList<bool> {false, false, false, true}));
    window.setFixedSize(window.width(), 130);
    QApplication::processEvents();
    EXPECT_EQ(seen(), (QList<bool> {true, false, true, true}));
    QWidget* const last = rows.itemAt(3)->widget();
    last->setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(body.rect().contains(QRect(last->mapTo(&body, QPoint()), last->size())));
    EXPECT_EQ(seen(), (QList<bool> {true, true, false, true}));
}
