#include "platform/NotificationCenter.h"

#include <gtest/gtest.h>
#include <map>
#include <optional>
#include <string>

using Observation = NotificationCenter::Observation;

TEST(NotificationCenterTest, deliversNewsToTheirObserversWhichMayComeAndGoAndPostMeanwhile)
{
    std::optional<NotificationCenter> center {std::in_place};
    std::string heard;
    const auto observe = [&](char mark, const std::function<void()>& act = {}) {
        return center->addObserver("news", [&, mark, act](const PostedNotification&) {
            heard += mark;
            if (act)
                act();
        });
    };
    const auto object = std::make_shared<int>(7);
    const auto whole = center->addObserver("news", [&](const PostedNotification& posted) {
        heard += posted.name == "news" && posted.object == object && posted.userInfo["E01"] == "Overload"
            ? 'w'
            : '!';
    });
    auto moved = observe('x');
    auto other = observe('m');
    moved = std::move(other); // The first one ends here.
    center->post("other");
    center->post("news", object, {{"E01", "Overload"}});
    EXPECT_EQ(heard, "wm");

    heard.clear();
    std::map<char, Observation> others;
    auto witness = std::make_shared<int>(0);
    Observation self;
    self = observe('s', [&, witness] {
        self = {};
        others.erase('2');
        others['j'] = observe('j');
        center->post("news", object, {{"E01", "Overload"}});
    });
    others['2'] = observe('2');
    others['3'] = observe('3');
    center->post("news", object, {{"E01", "Overload"}});
    EXPECT_EQ(heard, "wmswm3j3") << "who joins hears only later news, who leaves hears nothing more";
    EXPECT_EQ(witness.use_count(), 1) << "what an ended observer had captured is let go";
    center.reset(); // An observation may outlive the center.
}
