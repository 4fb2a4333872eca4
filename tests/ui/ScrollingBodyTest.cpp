#include "ui/ScrollingBody.h"

#include "fakes/ControlTest.h"

#include <QLineEdit>
#include <QScrollBar>

using ScrollingBodyTest = ControlTest;

TEST_F(ScrollingBodyTest, marksTheEdgesUnderWhichThereIsMoreAndFollowsTheKeyboard)
{
    ScrollingBody body;
    auto* const content = new QWidget;
    content->setFixedHeight(300);
    QLineEdit field(content);
    field.setGeometry(0, 200, 50, 20);
    field.setFocusPolicy(Qt::ClickFocus); // Not as soon as it is shown.
    body.setWidget(content);
    const auto marks = [&] {
        QList<QRect> places;
        for (const auto* mark : body.findChildren<HorizontalRuleView*>(Qt::FindDirectChildrenOnly))
            places << (mark->isVisible() ? mark->geometry() : QRect());
        return places;
    };
    body.resize(100, 100);
    show(body);
    const QRect above(0, 0, 100, 1);
    const QRect below(0, 99, 100, 1);
    EXPECT_EQ(marks(), (QList<QRect> {{}, below}));
    field.setFocus();
    EXPECT_NEAR(body.verticalScrollBar()->value(), 220 + 40 - 100, 6); // With room around it.
    EXPECT_EQ(marks(), (QList<QRect> {above, below}));
    body.verticalScrollBar()->setValue(200);
    EXPECT_EQ(marks(), (QList<QRect> {above, {}}));
    field.clearFocus();
    field.setFixedHeight(101); // Taller than what shows of it, wherever it stands.
    body.verticalScrollBar()->setValue(150);
    field.setFocus();
    EXPECT_EQ(body.verticalScrollBar()->value(), 150);
    body.resize(100, 300);
    QApplication::processEvents();
    EXPECT_EQ(marks(), (QList<QRect> {{}, {}}));
    EXPECT_FALSE(body.verticalScrollBar()->isEnabled());
}
