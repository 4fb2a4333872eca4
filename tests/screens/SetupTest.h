#pragma once

#include "desk/ZelvoController.h"
#include "fakes/ControlTest.h"
#include "fakes/TestStore.h"
#include "screens/WizardWindowController.h"

#include <QLabel>
#include <QLineEdit>
#include <QTest>

/// The setup screen in its window, over a hub with an adapter that can be plugged in; settings that are no
/// defaults, English texts. Controls are found by object name.
class SetupTest : public ControlTest {
protected:
    static constexpr uint16_t kHeight = 4300; // With the offset of 6200 the desk is 105 cm high.

    SetupTest()
    {
        installTexts(*qApp, QStringLiteral("en"));
        for (const auto& [key, value] :
            {std::pair("Weight", 71.9), {"NumberOfStandUps", 3}, {"ActivityMode", 1}, {"ActivityGoal", 200}})
            store(key, value);
        hid.unplug();
        properties().setZelvoController(std::make_shared<ZelvoController>(ZelvoController::Dependencies {hid,
            platform.events, platform.workspace, [this] { return activities.context; }, [](int32_t) {}}));
    }
    ~SetupTest() override
    {
        wizard.reset();
        properties().setZelvoController(nullptr); // Before the world that this fixture makes for it.
    }

    void plug() { platform.plug(kHeight); }
    void moveDeskTo(uint16_t height)
    {
        hid.desk().setHeight(height);
        platform.runLoop.advance(1);
    }
    static AppProperties& properties() { return AppProperties::instance(); }
    static ZelvoController& hub() { return *properties().zelvoController(); }
    void store(const char* key, double value)
    {
        platform.defaults.values.insert(QString::fromLatin1(key), value);
    }
    void open()
    {
        if (!wizard)
            wizard.emplace(
                platform.workspace, [] {}, [] { ADD_FAILURE() << "It ends the program."; });
        wizard->showWindow();
        show(wizard->window());
        platform.defaults.writes.clear();
    }

    template <typename Widget = QWidget>
    Widget& find(const QString& name) const
    {
        return *wizard->window().findChild<Widget*>(name);
    }
    [[nodiscard]] QString text(const char* label) const { return find<QLabel>(label).text(); }
    QLineEdit& weight() const { return find<QLineEdit>("textFieldWeight"); }
    QLineEdit& height() const { return find<QLineEdit>("textFieldTableHeight"); }
    QLineEdit& standUps() const { return find<QLineEdit>("textFieldStandUpNumber"); }
    /// What the three fields hold.
    [[nodiscard]] QString entries() const
    {
        return weight().text() + ' ' + height().text() + ' ' + standUps().text();
    }
    static void click(QWidget& widget) { QTest::mouseClick(&widget, Qt::LeftButton); }
    /// Replaces a field's text as a user does.
    static void type(QLineEdit& field, const char* text)
    {
        field.setFocus();
        field.selectAll();
        QTest::keyClick(&field, Qt::Key_Delete);
        QTest::keyClicks(&field, text);
    }

    TestStore activities {platform};
    SimulatedHidManager& hid = platform.hid;
    std::optional<WizardWindowController> wizard;
};
