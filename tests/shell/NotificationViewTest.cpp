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

using NotificationViewTest = ControlTest;
}

TEST_F(NotificationViewTest, eachVisitIsReportedOnceWhateverTheControlsInsideAdd)
{
    constexpr QPointF kInside {50, 40};
    constexpr QPointF kOutside {-1, 40};
    Visits visits;
    NotificationView view;
    NotificationView other;
    view.resize(100, 80);
    other.resize(100, 80);
    view.setDelegate(&visits);
    other.setDelegate(&visits);
    const auto expect = [&](int entered, int exited) {
        EXPECT_EQ(visits.entered, entered);
        EXPECT_EQ(visits.exited, exited);
    };
    view.mouseEntered(kOutside);
    expect(0, 0);
    view.mouseEntered(kInside);
    view.mouseExited(kInside); // Onto a control inside, and back.
    view.mouseEntered(kInside);
    other.mouseEntered(kInside); // There is one pointer.
    expect(1, 0);
    view.mouseExited(kOutside);
    view.mouseExited(kOutside);
    expect(1, 1);

    enter(view);
    QCursor::setPos(view.mapToGlobal(kInside.toPoint())); // Last seen inside, it has left all the same.
    leave(view);
    expect(2, 2);
    show(view);
    view.mouseEntered(kInside);
    view.hide(); // Under the pointer.
    view.mouseEntered(kInside);
    expect(4, 2);
}
