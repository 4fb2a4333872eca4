#pragma once

#include "platform/NotificationCenter.h"

#include <QWidget>

#include <functional>
#include <optional>

/// A window of the program: wears the palette of the present look, moves when its background is
/// dragged, comes back into sight when screens or panels change, and treats Escape as its close button.
class PanelWindow : public QWidget {
    Q_OBJECT

public:
    explicit PanelWindow(Qt::WindowFlags flags = Qt::Window);

    void setMovableByWindowBackground(bool movable) { m_movable = movable; }
    /// What Escape, the window manager's close button and close() do, which ends in hide(); without one they
    /// close the window.
    void onCloseRequested(std::function<void()> callback) { m_closeRequested = std::move(callback); }
    /// Called whenever the window goes from shown to hidden.
    void onWillClose(std::function<void()> callback) { m_willClose = std::move(callback); }

    /// Shows the window to a user who asked for it: not minimised, in front on the current workspace, active.
    /// @param place puts a window where it opens; one that is open stays where the user has it
    void comeToFront(const std::function<void(PanelWindow&)>& place);
    /// As large as its form asks for, or as there is room for.
    void fitInto(QSize available);
    /// Makes the form higher than it was drawn, for what is shown at times; an open window follows.
    void setExtraHeight(int pixels);
    /// The same to the side; from its next opening on.
    void setExtraWidth(int pixels) { m_extraWidth = pixels; }
    /// It opens without a control that has the keyboard focus, so that no key presses one by accident; Tab
    /// goes to the first.
    void setOpensUnfocused() { m_opensUnfocused = true; }
    /// The window leaves the keyboard where it is when it is shown. Where a desktop gives it all the same, no
    /// Escape is heeded before the user has come to the window: with a click, with Tab, or from another one.
    void setShowsWithoutKeyboard();
    /// Where the first Tab goes; without one, to the first control in their order.
    void setFirstControl(QWidget* control) { m_firstControl = control; }
    /// Gives the keyboard to the window, and in it to the first control.
    void takeKeyboard();
    /// Called when the window was called by takeKeyboard(), and at each key once the user has come to it; and
    /// when another window has the keyboard.
    void onKeyboardUsed(std::function<void()> used, std::function<void()> left);

    bool eventFilter(QObject* receiver, QEvent* event) override;

protected:
    bool event(QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void closeEvent(QCloseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void watch(QScreen* screen);
    void onScreensChanged();
    void requestClose();
    void keyboardCame();
    void noticeKey(int key);
    void enter();
    /// Calls back once the events of this moment have been dealt with, if the window lives then.
    void soon(std::function<void()> callback);

    NotificationCenter::Observation m_appearanceObservation;
    QSize m_formSize;
    int m_extraHeight = 0;
    int m_extraWidth = 0;
    bool m_movable = false;
    std::optional<QPoint> m_pressedAt; ///< where the background was pressed, until it is dragged
    bool m_opensUnfocused = false;
    bool m_showsWithoutKeyboard = false;
    bool m_isEntered = true; ///< the user has come to it since it was shown
    QWidget* m_firstControl = nullptr;
    bool m_isCalled = false; ///< the keyboard is on its way
    bool m_isUnvisited = true; ///< has not had the keyboard since it was shown
    double m_shownAt = 0;
    std::function<void()> m_closeRequested;
    std::function<void()> m_willClose;
    std::function<void()> m_keyboardUsed;
    std::function<void()> m_keyboardLeft;
};
