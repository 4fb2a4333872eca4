#include "shell/NotificationView.h"

#include "fakes/ControlTest.h"

#include <QCursor>

namespace {
struct Visits final : NotificationViewDelegate {
    int entered = 0;
    int exited = 0;
    void notificationViewMouseEntered() override { ++entered; }
    void notificationViewMouseExited() override { ++exited; }
};

class NotificationViewTest : public ControlTest {
protected:
    static constexpr QPointF kInside {50, 40};
    static constexpr QPointF kOutside {-1, 40};

    NotificationViewTest()
    {
        view.resize(100, 80);
        view.setDelegate(&visits);
    }

    Visits visits;
    NotificationView view;
};
}

TEST_F(NotificationViewTest, eachVisitIsReportedOnceWhateverTheControlsInsideAdd)
{
    view.mouseEntered(kOutside);
    EXPECT_EQ(visits.entered, 0);
    view.mouseEntered(kInside);
    view.mouseExited(kInside); // Onto a control inside, and back.
    view.mouseEntered(kInside);
    EXPECT_EQ(visits.entered, 1);
    EXPECT_EQ(visits.exited, 0);
    view.mouseExited(kOutside);
    view.mouseExited(kOutside);
    EXPECT_EQ(visits.exited, 1);
    view.mouseEntered(kInside);
    EXPECT_EQ(visits.entered, 2);
}

TEST_F(NotificationViewTest, aPointerThatWasLastSeenInsideHasLeftAllTheSame)
{
    enter(view);
    QCursor::setPos(view.mapToGlobal(kInside.toPoint()));
    leave(view);
    EXPECT_EQ(visits.entered, 1);
    EXPECT_EQ(visits.exited, 1);
}

TEST_F(NotificationViewTest, allViewsShareThePointer)
{
    Visits otherVisits;
    NotificationView other;
    other.resize(100, 80);
    other.setDelegate(&otherVisits);
    view.mouseEntered(kInside);
    other.mouseEntered(kInside);
    EXPECT_EQ(otherVisits.entered, 0);
}

TEST_F(NotificationViewTest, aViewThatDisappearsUnderThePointerIsNotVisitedWhenItComesBack)
{
    show(view);
    view.mouseEntered(kInside);
    view.hide();
    show(view);
    view.mouseEntered(kInside);
    EXPECT_EQ(visits.entered, 2);
}

TEST_F(NotificationViewTest, fillsItselfWithTheWindowsBackground)
{
    QPalette palette;
    palette.setColor(QPalette::Window, Qt::magenta);
    view.setPalette(palette);
    EXPECT_EQ(colorAt(grab(view), {1, 1}), QColor(Qt::magenta));
}
