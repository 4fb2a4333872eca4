#include "ui/PanelWindow.h"

#include "fakes/ControlTest.h"
#include "ui/HoverButton.h"
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
    QHideEvent minimised;
    show(window);
    QTest::keyClick(&window, Qt::Key_A);
    QSpontaneKeyEvent::setSpontaneous(&minimised); // The window is still open then.
    qApp->notify(&window, &minimised);
    window.hide();
    EXPECT_EQ(told, QStringLiteral("aaccc"));
}

TEST_F(PanelWindowTest, comesToTheFrontAlsoWhenMinimisedAndIsPlacedOnlyWhenItOpens)
{
    QWidget other;
    window.setOpensUnfocused();
    button.setFocus();
    for (const bool isShown : {true, false}) {
        window.showMinimized();
        window.setVisible(isShown);
        window.move(33, 44);
        activate(other);
        window.comeToFront([](PanelWindow& placed) { placed.move(70, 80); });
        QApplication::processEvents();
        EXPECT_TRUE(window.isVisible() && !window.isMinimized());
        EXPECT_EQ(window.pos(), isShown ? QPoint(33, 44) : QPoint(70, 80));
        EXPECT_EQ(QGuiApplication::focusWindow(), window.windowHandle());
        EXPECT_EQ(QApplication::focusWidget(), &window) << "no control is pressed by accident";
        QTest::keyClick(&window, Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget(), &button);
    }
}

TEST_F(PanelWindowTest, isAsLargeAsItsFormWhereThereIsRoom)
{
    PanelWindow framed;
    framed.resize(200, 120);
    const struct {
        QSize available;
        QSize expected;
        QSize expectedFramed; ///< with room for what the window manager adds
    } kTestCases[] = {{{800, 480}, {200, 120}, {200, 120}}, {{800, 90}, {200, 90}, {200, 42}},
        {{150, 480}, {150, 120}, {134, 120}}};
    for (const auto& row : kTestCases) {
        window.fitInto(row.available);
        framed.fitInto(row.available);
        EXPECT_EQ(window.size(), row.expected);
        EXPECT_EQ(window.minimumSize(), row.expected) << "of one size";
        EXPECT_EQ(framed.size(), row.expectedFramed);
    }
}

TEST_F(PanelWindowTest, aFadeTakesFourTenthsOfASecondAndTheLastOneHolds)
{
    WindowFade fade(window);
    const struct {
        void (WindowFade::*act)(); ///< or nothing
        double seconds;
        int percent; ///< of opacity after that time, the nearest quarter
        bool isVisible;
        bool isFadingOut;
        bool isMoving;
    } kTestCases[] = {
        {&WindowFade::fadeOut, 0, 100, false, false, false}, // Of a hidden window: nothing.
        {&WindowFade::fadeIn, 0, 0, true, false, true}, {nullptr, 0.1, 25, true, false, true},
        {nullptr, 0.2, 75, true, false, true}, {nullptr, 0.1, 100, true, false, false},
        {&WindowFade::fadeOut, 0.3, 25, true, true, true}, {nullptr, 0.1, 100, false, false, false},
        {&WindowFade::fadeIn, 1, 100, true, false, false}, {&WindowFade::fadeOut, 0.2, 50, true, true, true},
        {&WindowFade::fadeIn, 1, 100, true, false, false}, // Ends the one that runs.
    };
    for (const auto& row : kTestCases) {
        if (row.act)
            (fade.*row.act)();
        platform.runLoop.advance(row.seconds);
        EXPECT_EQ(std::lround(window.windowOpacity() * 4) * 25, row.percent) << &row - kTestCases;
        EXPECT_EQ(
            (QList<bool> {window.isVisible(), fade.isFadingOut(), platform.runLoop.pendingTimerCount() == 1}),
            (QList<bool> {row.isVisible, row.isFadingOut, row.isMoving}))
            << &row - kTestCases;
    }
}
