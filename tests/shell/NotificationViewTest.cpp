#include "shell/NotificationView.h"

#include "fakes/ControlTest.h"

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
    view.resize(100, 80);
    view.setDelegate(&visits);
    view.mouseEntered(kOutside);
    view.mouseEntered(kInside);
    view.mouseExited(kInside); // Onto a control inside, and back.
    view.mouseEntered(kInside);
    view.mouseExited(kOutside);
    view.mouseExited(kOutside);
    enter(view);
    leave(view);
    EXPECT_EQ(visits.seen, "+-+-");
    show(view);
    enter(view);
    view.hide(); // Under the pointer.
    view.mouseEntered(kInside);
    EXPECT_EQ(visits.seen, "+-+-++");
}
