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
    const auto observe = [&](char mark, const std::function<void()>& act = {}) {
        return center->addObserver("news", [&, mark, act](const PostedNotification& posted) {
            EXPECT_TRUE(
                posted.name == "news" && posted.object == object && posted.userInfo["E01"] == "Overload");
            heard += mark;
            if (act)
                act();
        });
    };
    const auto post = [&] { center->post("news", object, {{"E01", "Overload"}}); };
    std::map<char, NotificationCenter::Observation> others;
    const auto witness = std::make_shared<int>(0);
    NotificationCenter::Observation self;
    self = observe('s', [&, witness] {
        self = {};
        others.erase('2');
        others['j'] = observe('j');
        post();
    });
    others['2'] = observe('2');
    others['3'] = observe('3');
    center->post("other");
    post();
    EXPECT_EQ(heard, "s3j3") << "who joins hears only later news, who leaves hears nothing more";
    EXPECT_EQ(witness.use_count(), 1) << "what an ended observer had captured is let go";
    center.reset(); // An observation may outlive the center.
}
