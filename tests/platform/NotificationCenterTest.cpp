#include "platform/NotificationCenter.h"

#include <gtest/gtest.h>
#include <map>
#include <optional>
#include <string>

TEST(NotificationCenterTest, deliversToItsObserversInOrderWhichMayComeAndGoAndPostMeanwhile)
{
    std::optional<NotificationCenter> center {std::in_place};
    const auto object = std::make_shared<int>(7);
    std::string heard;
    std::map<char, NotificationCenter::Observation> observations;
    const auto observe = [&](
                             char mark, const std::function<void()>& act = [] {}) {
        observations[mark] = center->addObserver("news", [&, mark, act](const PostedNotification& posted) {
            EXPECT_TRUE(
                posted.name == "news" && posted.object == object && posted.userInfo["E01"] == "Overload");
            heard += mark;
            act();
        });
    };
    const auto post = [&] { center->post("news", object, {{"E01", "Overload"}}); };
    observe('1', [&, witness = object] {
        observations.erase('1');
        observations.erase('2');
        observe('4');
        post();
    });
    observe('2');
    observe('3');
    center->post("other");
    post();
    EXPECT_EQ(heard, "1343") << "who joins hears only later news, who leaves hears nothing more";
    EXPECT_EQ(object.use_count(), 1) << "what an ended observer had captured is let go";
    center.reset(); // An observation may outlive the center.
}
