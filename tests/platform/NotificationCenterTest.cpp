#include "platform/NotificationCenter.h"

#include <gtest/gtest.h>
#include <optional>
#include <string>

namespace {
const QString kNews = QStringLiteral("news");

class NotificationCenterTest : public testing::Test {
protected:
    using Observation = NotificationCenter::Observation;
    Observation observe(char mark, const QString& name = kNews)
    {
        return m_center.addObserver(name, [this, mark](const PostedNotification&) { m_heard += mark; });
    }
    /// What is heard of one more post.
    std::string heard()
    {
        m_heard.clear();
        m_center.post(kNews);
        return m_heard;
    }

    NotificationCenter m_center;
    std::string m_heard;
};

TEST_F(NotificationCenterTest, deliversInTheOrderOfRegistrationToTheNameAlone)
{
    const auto object = std::make_shared<int>(7);
    std::optional<PostedNotification> received;
    const auto a = observe('a');
    const auto other = observe('x', QStringLiteral("other"));
    const auto b = m_center.addObserver(kNews, [&](const PostedNotification& posted) {
        m_heard += 'b';
        received = posted;
    });
    m_center.post(kNews, object, {{QStringLiteral("E01"), QStringLiteral("Overload")}});
    EXPECT_EQ(m_heard, "ab");
    EXPECT_EQ(received->name, kNews);
    EXPECT_EQ(received->object, object);
    EXPECT_EQ(received->userInfo.value(QStringLiteral("E01")), QStringLiteral("Overload"));
}

TEST_F(NotificationCenterTest, anObserverThatLeavesHearsNothingMoreAndIsLetGo)
{
    Observation self;
    std::optional<Observation> second;
    auto witness = std::make_shared<int>(0);
    self = m_center.addObserver(kNews, [&self, &second, witness](const PostedNotification&) {
        self = {};
        second.reset();
        ++*witness;
    });
    second = observe('2');
    const auto third = observe('3');
    EXPECT_EQ(heard(), "3");
    EXPECT_EQ(heard(), "3");
    EXPECT_EQ(*witness, 1);
    EXPECT_EQ(witness.use_count(), 1);
}

TEST_F(NotificationCenterTest, anObserverThatJoinsDuringADeliveryHearsOnlyLaterNews)
{
    std::vector<Observation> joined;
    const auto first =
        m_center.addObserver(kNews, [&](const PostedNotification&) { joined.push_back(observe('j')); });
    EXPECT_EQ(heard(), "");
    EXPECT_EQ(heard(), "j");
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
    EXPECT_EQ(heard(), "1122");
}

TEST_F(NotificationCenterTest, anObservationMovesWithItsOwnerAndMayOutliveTheCenter)
{
    Observation original = observe('a');
    Observation moved = std::move(original);
    EXPECT_EQ(heard(), "a");
    moved = observe('b'); // The first one ends here.
    EXPECT_EQ(heard(), "b");
    moved = NotificationCenter().addObserver(kNews, [](const PostedNotification&) {});
    EXPECT_EQ(heard(), "");
}
}
