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

    PanelWindow window {Qt::Window | Qt::FramelessWindowHint};
    HoverButton button {&window};
};
}

TEST_F(PanelWindowTest, escapeAndEveryCloseAskFirst)
{
    int asked = 0;
    window.onCloseRequested([&] { ++asked; });
    show(window);
    QTest::keyClick(&button, Qt::Key_Escape);
    EXPECT_EQ(asked, 1);
    window.windowHandle()->close();
    EXPECT_EQ(asked, 2);
    EXPECT_TRUE(window.isVisible()); // It is the answer that hides it.
}

TEST_F(PanelWindowTest, withNobodyToAskItCloses)
{
    int closed = 0;
    window.onWillClose([&] { ++closed; });
    show(window);
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(closed, 1);
    QHideEvent minimised;
    show(window);
    window.hide();
    EXPECT_EQ(closed, 2);
}

TEST_F(PanelWindowTest, anOpeningWindowCanLeaveEveryControlUnfocused)
{
    int clicks = 0;
    QObject::connect(&button, &QPushButton::clicked, &button, [&] { ++clicks; });
    button.setFocus();
    window.unfocusControls();
    show(window);
    QTest::keyClick(window.focusWidget(), Qt::Key_Space);
    EXPECT_EQ(clicks, 0);
    QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &button);
}

TEST_F(PanelWindowTest, theKeyboardIsTakenOnlyOnRequestAndGivenUpAtTheNextShow)
{
    window.setShowsWithoutKeyboard();
    const auto refuses = [this] {
        return window.windowHandle()->flags().testFlag(Qt::WindowDoesNotAcceptFocus);
    };
    for (int time = 0; time < 2; ++time) {
        window.show();
        EXPECT_TRUE(refuses());
        window.takeKeyboard();
        EXPECT_FALSE(refuses());
        EXPECT_TRUE(window.isVisible());
        window.hide();
    }
    window.takeKeyboard(); // Of a hidden window: nothing.
}

TEST_F(PanelWindowTest, tellsOfAClickOnAControlOnceItIsOver)
{
    int ended = 0;
    window.onClickEnded([&] { ++ended; });
    show(window);
    QTest::mousePress(window.windowHandle(), Qt::LeftButton, {}, button.geometry().center());
    platform.runLoop.advance(1);
    EXPECT_EQ(ended, 0);
    QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {}, button.geometry().center());
    EXPECT_EQ(ended, 0);
    platform.runLoop.advance(0);
    EXPECT_EQ(ended, 1);
}

TEST_F(PanelWindowTest, aFramelessWindowDrawsAnEvenEdge)
{
    for (const double scale : {1.0, 1.5, 2.0}) {
        SCOPED_TRACE(scale);
        const QImage image = grab(window, scale);
        const int right = image.width() - 1;
        const int bottom = image.height() - 1;
        for (const QPoint edge : {QPoint(0, 50), QPoint(right, 50), QPoint(50, 0), QPoint(50, bottom)})
            EXPECT_EQ(image.pixelColor(edge), zelvoMainLineColor());
        for (const QPoint inner : {QPoint(4, 4), QPoint(right - 4, bottom - 4)})
            EXPECT_EQ(image.pixelColor(inner), zelvoBackgroundColor());
    }
}

TEST_F(PanelWindowTest, keepsItsColoursOnADarkDesktop)
{
    const QPalette before = QApplication::palette();
    QApplication::setPalette(QPalette(Qt::black));
    PanelWindow dark;
    QWidget child(&dark);
    EXPECT_EQ(child.palette().color(QPalette::Window), zelvoBackgroundColor());
    EXPECT_EQ(child.palette().color(QPalette::WindowText), zelvoTextColor());
    QApplication::setPalette(before);
}

TEST_F(PanelWindowTest, comesToTheFrontAlsoWhenMinimised)
{
    for (const bool isShown : {true, false}) {
        window.showMinimized();
        window.setVisible(isShown);
        window.comeToFront();
        EXPECT_TRUE(window.isVisible());
        EXPECT_FALSE(window.isMinimized());
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
        auto* const row = new HoverButton;
        row->setFixedHeight(60);
        row->setFocusPolicy(Qt::StrongFocus);
        rows.addWidget(row);
    }
    body.setWidget(content);
    frame.addWidget(&body);
    window.setFixedSize(window.sizeHint());
    show(window);
    const auto rules = body.findChildren<HorizontalRuleView*>();
    const auto shownRules = [&] { return QList<bool> {rules[0]->isVisible(), rules[1]->isVisible()}; };
    EXPECT_EQ(content->height(), body.height());
    EXPECT_EQ(content->width(), body.width());
    EXPECT_FALSE(body.verticalScrollBar()->isVisible());
    EXPECT_EQ(shownRules(), (QList<bool> {false, false}));

    window.setFixedSize(window.width(), 130);
    QApplication::processEvents();
    EXPECT_TRUE(body.verticalScrollBar()->isVisible());
    EXPECT_EQ(content->width(), body.width()) << "the bar moves nothing aside";
    EXPECT_EQ(shownRules(), (QList<bool> {false, true}));
    QWidget* const last = rows.itemAt(3)->widget();
    last->setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(body.rect().contains(QRect(last->mapTo(&body, QPoint()), last->size())));
    EXPECT_EQ(shownRules(), (QList<bool> {true, false}));
}
