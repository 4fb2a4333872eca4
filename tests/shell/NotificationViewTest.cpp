#include "shell/NotificationView.h"

#include "fakes/ControlTest.h"

#include <QCursor>

namespace {
/// Writes down "+" and "-".
struct Visits final : NotificationViewDelegate {
    std::string seen;
    void notificationViewMouseEntered() override { seen += '+'; }
    void notificationViewMouseExited() override { seen += '-'; }
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
    view.mouseEntered(kOutside);
    view.mouseEntered(kInside);
    view.mouseExited(kInside); // Onto a control inside, and back.
    view.mouseEntered(kInside);
    other.mouseEntered(kInside); // There is one pointer.
    view.mouseExited(kOutside);
    view.mouseExited(kOutside);
    enter(view);
    QCursor::setPos(view.mapToGlobal(kInside.toPoint())); // Last seen inside, it has left all the same.
    leave(view);
    EXPECT_EQ(visits.seen, "+-+-");
    show(view);
    view.mouseEntered(kInside);
    view.hide(); // Under the pointer.
    view.mouseEntered(kInside);
    EXPECT_EQ(visits.seen, "+-+-++");
}
