#include "platform/NotificationCenter.h"

#include <gtest/gtest.h>
#include <optional>
#include <string>

namespace {
const QString kNews = QStringLiteral("news");

class NotificationCenterTest : public testing::Test {
protected:
    NotificationCenter::Observation observe(char mark, std::function<void()> act = {})
    {
        return m_center->addObserver(kNews, [this, mark, act](const PostedNotification&) {
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
    std::optional<PostedNotification> received;
    const auto whole =
        m_center->addObserver(kNews, [&](const PostedNotification& posted) { received = posted; });
    auto moved = observe('x');
    auto b = observe('b');
    moved = std::move(b); // The first one ends here.
    m_center->post(QStringLiteral("other"));
    EXPECT_FALSE(received);
    m_center->post(kNews, object, {{QStringLiteral("E01"), QStringLiteral("Overload")}});
    EXPECT_EQ(m_heard, "ab");
    ASSERT_TRUE(received);
    EXPECT_EQ(received->name, kNews);
    EXPECT_EQ(received->object, object);
    EXPECT_EQ(received->userInfo.value(QStringLiteral("E01")), QStringLiteral("Overload"));
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
            m_center->post(kNews);
    });
    others['2'] = observe('2');
    others['3'] = observe('3');
    m_center->post(kNews);
    EXPECT_EQ(m_heard, "s3j3") << "who joins hears only later news, who leaves hears nothing more";
    EXPECT_EQ(*witness, 1);
    EXPECT_EQ(witness.use_count(), 1) << "what an ended observer had captured is let go";
}
}
