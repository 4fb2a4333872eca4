#include "ui/PanelWindow.h"

#include "fakes/ControlTest.h"
#include "ui/MouseEventButton.h"
#include "ui/WindowFade.h"

#include <QTest>
#include <QWindow>

namespace {
class PanelWindowTest : public ControlTest {
protected:
    PanelWindowTest()
    {
        window.resize(200, 120);
        button.setGeometry(20, 20, 80, 30);
    }

    PanelWindow window {Qt::Window | Qt::FramelessWindowHint};
    MouseEventButton button {&window};
};
}

TEST_F(PanelWindowTest, escapeAndEveryCloseAskFirstAndCloseWithNobodyToAsk)
{
    QString told;
    window.onWillClose([&] { told += u'c'; });
    show(window);
    QTest::keyClick(&button, Qt::Key_A);
    EXPECT_TRUE(window.isVisible());
    QTest::keyClick(&button, Qt::Key_Escape);
    show(window);
    window.windowHandle()->close();
    window.onCloseRequested([&] { told += u'a'; });
    show(window);
    QTest::keyClick(&button, Qt::Key_Escape);
    window.windowHandle()->close();
    EXPECT_TRUE(window.isVisible()); // It is the answer that hides it.
    QHideEvent minimised;
    QSpontaneKeyEvent::setSpontaneous(&minimised); // The window is still open then.
    qApp->notify(&window, &minimised);
    window.hide();
    EXPECT_EQ(told, QStringLiteral("ccaac"));
}

TEST_F(PanelWindowTest, comesToTheFrontWithoutAFocusAndIsPlacedOnlyWhenItOpens)
{
    window.setOpensUnfocused();
    button.setFocus();
    int opened = 0;
    for (int time = 0; time < 2; ++time) {
        window.comeToFront([&](PanelWindow&) { ++opened; });
        QApplication::processEvents();
        EXPECT_EQ(QApplication::focusWidget(), &window) << "no control is pressed by accident";
        window.showMinimized();
    }
    EXPECT_EQ(opened, 1);
}

TEST_F(PanelWindowTest, heedsNoEscapeThatTheDesktopGaveItUnaskedBeforeItsUserComes)
{
    window.setShowsWithoutKeyboard();
    window.setOpensUnfocused();
    EXPECT_TRUE(window.testAttribute(Qt::WA_ShowWithoutActivating));
    QString told;
    window.onKeyboardUsed([&] { told = told.remove(u'u') + u'u'; }, [&] { told += u'l'; });
    const auto activate = [this] { QApplication::setActiveWindow(&window); };
    const auto press = [this](Qt::Key key) { QTest::keyClick(window.windowHandle(), key); };
    // How the user comes after the desktop gave the window the keyboard, and what is told.
    const std::pair<std::function<void()>, const char*> kTestCases[] = {{[] {}, ""},
        {[&] { press(Qt::Key_A); }, ""}, {[&] { press(Qt::Key_Tab); }, "u"},
        {[&] { press(Qt::Key_Backtab); }, "u"},
        {[&] {
             QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, {150, 90});
         },
            "u"},
        {[&] {
             QApplication::setActiveWindow(nullptr), window.showMinimized();
             window.takeKeyboard(), QApplication::processEvents();
             EXPECT_FALSE(window.isMinimized());
         },
            "lu"},
        {[&] { window.takeKeyboard(), window.hide(), window.show(), activate(); }, ""}, // Refused before.
        {[&] { QApplication::setActiveWindow(nullptr), platform.runLoop.advance(1), activate(); }, "lu"}};
    for (const auto& [comes, expected] : kTestCases) {
        window.show();
        activate();
        comes();
        press(Qt::Key_Escape);
        EXPECT_EQ(told, QString::fromLatin1(expected)) << &expected;
        EXPECT_EQ(window.isVisible(), told.isEmpty());
        window.hide();
        QApplication::setActiveWindow(nullptr);
        told.clear();
    }
}

TEST_F(PanelWindowTest, aFadeTakesFourTenthsOfASecondAndTheLastOneHolds)
{
    WindowFade fade(window);
    constexpr auto kIn = &WindowFade::fadeIn;
    constexpr auto kOut = &WindowFade::fadeOut;
    window.setWindowState(Qt::WindowMinimized); // So it was left.
    // What is done, seconds, and percent of opacity after them (the nearest quarter) with what goes on.
    const std::tuple<void (WindowFade::*)(), double, const char*> kTestCases[] = {
        {kOut, 0, "100 "}, // Of a hidden window: nothing.
        {kIn, 0, "0 shown moving"}, {nullptr, 0.1, "25 shown moving"}, {nullptr, 0.2, "75 shown moving"},
        {nullptr, 0.1, "100 shown "}, {kOut, 0.3, "25 shown leaving moving"}, {kOut, 0.1, "100 "},
        {kIn, 1, "100 shown "}, {kOut, 0.2, "50 shown leaving moving"},
        {kIn, 1, "100 shown "}, // Ends the one that runs.
        {kIn, 0.2, "50 shown moving"}, {kOut, 0.2, "25 shown leaving moving"}};
    for (const auto& [act, seconds, expected] : kTestCases) {
        if (act)
            (fade.*act)();
        platform.runLoop.advance(seconds);
        EXPECT_EQ(QString::number(std::lround(window.windowOpacity() * 4) * 25)
                + (window.isVisible() && !window.isMinimized() ? " shown " : " ")
                + (fade.isFadingOut() ? "leaving " : "")
                + (platform.runLoop.pendingTimerCount() == 1 ? "moving" : ""),
            QString::fromLatin1(expected));
    }
}
