#include "platform/NotificationCenter.h"

#include <gtest/gtest.h>
#include <optional>
#include <string>

namespace {
const QString kNews = QStringLiteral("news");

class NotificationCenterTest : public testing::Test {
protected:
    NotificationCenter::Observation observe(char mark, const QString& name = kNews)
    {
        return m_center.addObserver(name, [this, mark](const PostedNotification&) { m_heard += mark; });
    }

    NotificationCenter m_center;
    std::string m_heard;
};

TEST_F(NotificationCenterTest, deliversInTheOrderOfRegistrationToTheNameAlone)
{
    const auto a = observe('a');
    const auto other = observe('x', QStringLiteral("other"));
    const auto b = observe('b');
    m_center.post(kNews);
    EXPECT_EQ(m_heard, "ab");
}

TEST_F(NotificationCenterTest, passesObjectAndUserInfo)
{
    const auto object = std::make_shared<int>(7);
    std::optional<PostedNotification> received;
    const auto observation =
        m_center.addObserver(kNews, [&](const PostedNotification& posted) { received = posted; });
    m_center.post(kNews, object, {{QStringLiteral("E01"), QStringLiteral("Overload")}});
    ASSERT_TRUE(received);
    EXPECT_EQ(received->object, object);
    EXPECT_EQ(received->userInfo.value(QStringLiteral("E01")), QStringLiteral("Overload"));
}

TEST_F(NotificationCenterTest, anObserverThatLeavesDuringADeliveryHearsNothingMore)
{
    std::optional<NotificationCenter::Observation> second;
    const auto first = m_center.addObserver(kNews, [&](const PostedNotification&) { second.reset(); });
    second = observe('2');
    const auto third = observe('3');
    m_center.post(kNews);
    EXPECT_EQ(m_heard, "3");
}

TEST_F(NotificationCenterTest, anObserverMayEndItself)
{
    NotificationCenter::Observation self;
    auto witness = std::make_shared<int>(0);
    self = m_center.addObserver(kNews, [&self, witness](const PostedNotification&) {
        self = {};
        ++*witness;
    });
    m_center.post(kNews);
    m_center.post(kNews);
    EXPECT_EQ(*witness, 1);
    EXPECT_EQ(witness.use_count(), 1) << "what an ended observer had captured is let go";
}

TEST_F(NotificationCenterTest, anObserverThatJoinsDuringADeliveryHearsOnlyLaterNews)
{
    std::vector<NotificationCenter::Observation> joined;
    const auto first =
        m_center.addObserver(kNews, [&](const PostedNotification&) { joined.push_back(observe('j')); });
    m_center.post(kNews);
    EXPECT_EQ(m_heard, "");
    m_center.post(kNews);
    EXPECT_EQ(m_heard, "j");
}

TEST_F(NotificationCenterTest, newsPostedWithinADeliveryReachEveryObserver)
{
    bool isFirstTime = true;
    const auto first = m_center.addObserver(kNews, [&](const PostedNotification&) {
        m_heard += '1';
        if (std::exchange(isFirstTime, false))
            m_center.post(kNews);
    });
    const auto second = observe('2');
    m_center.post(kNews);
    EXPECT_EQ(m_heard, "1122");
}

TEST_F(NotificationCenterTest, anObservationMovesWithItsOwner)
{
    NotificationCenter::Observation moved;
    {
        NotificationCenter::Observation original = observe('a');
        moved = std::move(original);
    }
    m_center.post(kNews);
    EXPECT_EQ(m_heard, "a");
    moved = observe('b'); // The first one ends here.
    m_center.post(kNews);
    EXPECT_EQ(m_heard, "ab");
}

TEST(NotificationCenterLife, anObservationMayOutliveTheCenter)
{
    NotificationCenter::Observation observation;
    {
        NotificationCenter center;
        observation = center.addObserver(kNews, [](const PostedNotification&) {});
    }
}
}
