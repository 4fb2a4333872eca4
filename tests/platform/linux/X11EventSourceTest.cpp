#include "platform/linux/X11EventSource.h"

#include "XvfbServer.h"
#include "platform/linux/EventSources.h"
#include "platform/linux/FirstAvailableEventSource.h"
#include "platform/simulated/VirtualRunLoop.h"

#include <QThread>

#include <gtest/gtest.h>

namespace {
constexpr auto kAnyEvent = EventSource::EventType::MouseMoved;

class X11EventSourceTest : public testing::Test {
protected:
    void SetUp() override
    {
        if (!XvfbServer::isInstalled())
            GTEST_SKIP() << "Xvfb is not installed";
        m_server.emplace();
        ASSERT_TRUE(m_server->isRunning());
        RunLoop::setMain(&m_runLoop);
    }
    void TearDown() override { RunLoop::setMain(nullptr); }

    static void moveMouse()
    {
        ASSERT_EQ(QProcess::execute(QStringLiteral("xdotool"),
                      {QStringLiteral("mousemove_relative"), QStringLiteral("5"), QStringLiteral("5")}),
            0);
    }
    /// The class asks the server at most every fifth of a second, and virtual time makes it ask.
    double idleNow(EventSource& source)
    {
        m_runLoop.advance(1);
        return source.secondsSinceLastEventType(kAnyEvent);
    }

    std::optional<XvfbServer> m_server;
    VirtualRunLoop m_runLoop;
};

TEST_F(X11EventSourceTest, countsFromTheLastInput)
{
    if (QStandardPaths::findExecutable(QStringLiteral("xdotool")).isEmpty())
        GTEST_SKIP() << "xdotool is not installed";
    X11EventSource source;
    moveMouse();
    const double first = idleNow(source);
    QThread::msleep(300);
    EXPECT_EQ(source.secondsSinceLastEventType(EventSource::EventType::KeyDown), first)
        << "questions of one moment share one answer";
    const double later = idleNow(source);
    EXPECT_GE(later, first + 0.29) << "seconds, not milliseconds";
    EXPECT_LT(later, first + 3);
    moveMouse();
    EXPECT_LT(idleNow(source), later);
}

TEST_F(X11EventSourceTest, aServerThatDiesIsPassedOverAndNoneIsAskedUnderWayland)
{
    const auto source = makeEventSource();
    qputenv("WAYLAND_DISPLAY", "wayland-0");
    const auto underWayland = makeEventSource();
    qunsetenv("WAYLAND_DISPLAY");
    QThread::msleep(50);
    EXPECT_GT(idleNow(*source), 0);
    EXPECT_EQ(idleNow(*underWayland), 0);
    m_server->stop();
    testing::internal::CaptureStderr();
    EXPECT_EQ(idleNow(*source), 0) << "nothing can tell any more: active";
    EXPECT_EQ(idleNow(*source), 0);
    const std::string log = testing::internal::GetCapturedStderr();
    EXPECT_NE(log.find("Idle time comes from: none"), std::string::npos) << log;
    EXPECT_EQ(std::count(log.begin(), log.end(), '\n'), 1) << "said once";
}

TEST(X11EventSourceWithoutServer, isNotAvailable)
{
    VirtualRunLoop runLoop;
    RunLoop::setMain(&runLoop);
    X11EventSource source(":4711");
    EXPECT_FALSE(source.isAvailable());
    EXPECT_EQ(source.secondsSinceLastEventType(kAnyEvent), 0);
    RunLoop::setMain(nullptr);
}

class FakeBackend final : public IdleBackend {
public:
    FakeBackend(double seconds, const bool& isThere)
        : m_seconds(seconds)
        , m_isThere(isThere)
    {
    }
    [[nodiscard]] QString name() const override { return QString::number(m_seconds); }
    [[nodiscard]] bool isAvailable() const override { return m_isThere; }
    [[nodiscard]] double secondsSinceLastEventType(EventType) override { return m_seconds; }

private:
    double m_seconds;
    const bool& m_isThere;
};

TEST(FirstAvailableEventSource, takesTheBestThatIsThereAtTheMoment)
{
    bool isThere[] = {false, true, true};
    std::vector<std::unique_ptr<IdleBackend>> backends;
    for (size_t i = 0; i < 3; ++i)
        backends.push_back(std::make_unique<FakeBackend>(double(i + 1), isThere[i]));
    FirstAvailableEventSource source(std::move(backends));

    EXPECT_EQ(source.secondsSinceLastEventType(kAnyEvent), 2);
    isThere[0] = true;
    EXPECT_EQ(source.secondsSinceLastEventType(kAnyEvent), 1) << "one that comes up late is taken";
    isThere[0] = isThere[1] = false;
    EXPECT_EQ(source.secondsSinceLastEventType(kAnyEvent), 3);
}
}
