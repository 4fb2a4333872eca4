#include "shell/TestWindowController.h"

#include "platform/simulated/SimulatedHidManager.h"
#include "shell/WindowTest.h"
#include "ui/MouseEventButton.h"

#include <QCheckBox>
#include <QSpinBox>

namespace {
/// The window on a simulated desk, in a program of its own.
class TestWindowControllerTest : public WindowTest {
protected:
    void startSimulated()
    {
        world->app = std::make_unique<AppDelegate>(simulatedApplication(world->platform, simulated));
        start();
        pass(2);
        world->app->showTestWindow();
        pass(1);
    }
    QWidget& window() { return world->app->testWindowController().window(); }

    SimulatedHidManager& simulated = world->platform.hid;
};
}

TEST_F(TestWindowControllerTest, worksTheDeskItsErrorsAndItsReminders)
{
    startSimulated();
    QTest::mousePress(&in(window(), "buttonHeight1000"), Qt::LeftButton);
    pass(20);
    QTest::mouseRelease(&in(window(), "buttonHeight1000"), Qt::LeftButton);
    pass(2);
    EXPECT_NEAR(simulated.desk().height(), 1000, 20);
    EXPECT_EQ(text(window(), "labelHeight").toInt(), properties().zelvoController()->device()->position());
    EXPECT_EQ(text(window(), "labelState"), QStringLiteral("2"));
    EXPECT_TRUE(text(window(), "labelReport").startsWith(QStringLiteral("04 ")));
    for (const auto& [button, position] :
        {std::pair("buttonRemindUnknown", 0), {"buttonRemindStand", 1}, {"buttonRemindSit", 2}}) {
        click(window(), button);
        EXPECT_EQ(menulet().notificationWindow().notification()->position(), position);
    }

    QWidget& main = openMainWindow();
    in<QCheckBox>(window(), "checkOverloadUp").click();
    in<QSpinBox>(window(), "spinErrorCode").setValue(31);
    click(window(), "buttonAddCode");
    pass(2);
    EXPECT_TRUE(text(main, "labelErrorText").contains(QStringLiteral("E02: OverloadUpError")));
    EXPECT_TRUE(text(main, "labelErrorText").contains(QStringLiteral("E31")));
    click(window(), "buttonClearErrors");
    pass(17);
    EXPECT_FALSE(in(main, "errorArea").isVisible());
    click(window(), "buttonUnplug");
    pass(1);
    EXPECT_EQ(text(window(), "labelHeight"), QStringLiteral("no desk"));
}
