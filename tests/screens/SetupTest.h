#pragma once

#include "desk/ZelvoController.h"
#include "fakes/ControlTest.h"
#include "fakes/FakeHid.h"
#include "fakes/TestStore.h"

/// The world around the setup screen: the hub with an adapter that can be plugged in, settings as after a
/// first start, English texts. A window under test has its controls found by object name.
class SetupTest : public ControlTest {
protected:
    static constexpr uint16_t kHeight = 4300; // With the bundle's offset of 6200 the desk is 105 cm high.
    static constexpr uint16_t kUp = 0x8000;
    static constexpr uint16_t kDown = 0x7FFF;
    static constexpr uint16_t kStop = 0x8001;

    SetupTest()
    {
        installTexts(*qApp, QStringLiteral("en"));
        adapter->setCommunicating(true);
        AppProperties::instance().setZelvoController(
            std::make_shared<ZelvoController>(ZelvoController::Dependencies {
                hid, eventSource, workspace, [this] { return activities.context; }, [](int32_t) {}}));
    }
    ~SetupTest() override
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        properties().setZelvoController(
            nullptr); // The hub goes before the world that this fixture makes for it.
        installTexts(*qApp, QStringLiteral("en"));
        QApplication::setLayoutDirection(Qt::LeftToRight);
    }

    void plug(uint16_t height = kHeight)
    {
        adapter->setHeight(height);
        hid.plug(adapter);
        platform.runLoop.advance(1.5);
        ASSERT_TRUE(hub().isActive());
        adapter->written.clear();
    }
    void moveDeskTo(uint16_t height)
    {
        adapter->setHeight(height);
        platform.runLoop.advance(1);
    }
    /// The movement that the adapter was told last; 0 when it was told none.
    [[nodiscard]] int lastMovement() const
    {
        return adapter->written.empty() ? 0 : adapter->written.back()[1] | adapter->written.back()[2] << 8;
    }
    /// What a hold that has begun repeats; it begins with a stop.
    int heldMovement()
    {
        platform.runLoop.advance(0.5);
        return lastMovement();
    }

    static AppProperties& properties() { return AppProperties::instance(); }
    static ZelvoController& hub() { return *properties().zelvoController(); }
    void store(const char* key, const QVariant& value)
    {
        platform.defaults.values.insert(QString::fromLatin1(key), value);
    }

    template <typename Widget = QWidget>
    static Widget& in(const QWidget& window, const QString& name)
    {
        auto* widget = window.findChild<Widget*>(name);
        EXPECT_TRUE(widget) << qPrintable(name);
        return *widget;
    }

    TestStore activities {platform};
    FakeHidManager hid;
    FakeEventSource eventSource;
    FakeWorkspace workspace;
    std::shared_ptr<FakeHidDevice> adapter = std::make_shared<FakeHidDevice>();
};
