#include "platform/NotificationCenter.h"

#include <gtest/gtest.h>
#include <optional>
#include <string>

namespace {
class NotificationCenterTest : public testing::Test {
protected:
    NotificationCenter::Observation observe(char mark, std::function<void()> act = {})
    {
        return m_center->addObserver("news", [this, mark, act](const PostedNotification&) {
            m_heard += mark;
            if (act)
                act();
        });
    }

    std::optional<NotificationCenter> m_center {std::in_place};
    std::string m_heard;
};

TEST_F(NotificationCenterTest, deliversNewsToTheirObserversInOrder)
{
    const auto a = observe('a');
    const auto object = std::make_shared<int>(7);
    int whole = 0;
    const auto reader = m_center->addObserver("news", [&](const PostedNotification& posted) {
        whole += posted.name == "news" && posted.object == object && posted.userInfo["E01"] == "Overload";
    });
    auto moved = observe('x');
    auto b = observe('b');
    moved = std::move(b); // The first one ends here.
    m_center->post("other");
    m_center->post("news", object, {{"E01", "Overload"}});
    EXPECT_EQ(m_heard, "ab");
    EXPECT_EQ(whole, 1);
    m_center.reset(); // An observation may outlive the center.
}

TEST_F(NotificationCenterTest, observersMayComeAndGoAndPostDuringADelivery)
{
    std::map<char, NotificationCenter::Observation> others;
    auto witness = std::make_shared<int>(0);
    NotificationCenter::Observation self;
    self = observe('s', [&, witness] {
        self = {};
        others.erase('2');
        others['j'] = observe('j');
        if (++*witness == 1)
            m_center->post("news");
    });
    others['2'] = observe('2');
    others['3'] = observe('3');
    m_center->post("news");
    EXPECT_EQ(m_heard, "s3j3") << "who joins hears only later news, who leaves hears nothing more";
    EXPECT_EQ(witness.use_count(), 1) << "what an ended observer had captured is let go";
}
}
