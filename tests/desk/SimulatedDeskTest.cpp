#include "desk/DeskTest.h"
#include "desk/ZelvoHIDDevice.h"
#include "desk/ZelvoHIDManager.h"
#include "platform/simulated/SimulatedHidManager.h"

namespace {
/// The device against a desk that knows its protocol from the other end of the wire.
class SimulatedDeskTest : public DeskTest {
protected:
    SimulatedDeskTest() { platform.runLoop.advance(2); }

    std::shared_ptr<ZelvoHIDDevice> device() { return manager.devices().at(0); }

    SimulatedHidManager simulation;
    ZelvoHIDManager manager {simulation};
};
}

TEST_F(SimulatedDeskTest, MovesToAHeightAndStaysThere)
{
    ASSERT_TRUE(device()->isActive());
    EXPECT_EQ(device()->positionState(), 2);
    device()->moveToPosition(4000);
    platform.runLoop.advance(15);
    device()->stop();
    platform.runLoop.advance(1);
    EXPECT_EQ(simulation.desk().height(), 4000);
    EXPECT_EQ(device()->position(), 4000);
    EXPECT_EQ(device()->positionState(), 1);
}

TEST_F(SimulatedDeskTest, MovesOnlyWhileAButtonIsHeld)
{
    device()->moveUp();
    platform.runLoop.advance(1);
    device()->stop();
    platform.runLoop.advance(1);
    const int raised = simulation.desk().height();
    EXPECT_GT(raised, DeskModel::kDefaultHeight);
    EXPECT_FALSE(simulation.desk().isMoving());
    platform.runLoop.advance(60);
    EXPECT_EQ(simulation.desk().height(), raised);

    device()->moveDown();
    platform.runLoop.advance(1);
    simulation.unplug(); // The cable is pulled while the button is held: nothing is re-sent any more.
    platform.runLoop.advance(2);
    EXPECT_FALSE(simulation.desk().isMoving());
    EXPECT_LT(simulation.desk().height(), raised);
    EXPECT_FALSE(manager.isDeviceConneced());

    const int lowered = simulation.desk().height();
    simulation.plug();
    platform.runLoop.advance(10);
    EXPECT_TRUE(device()->isActive());
    EXPECT_EQ(simulation.desk().height(), lowered) << "a held movement does not survive its adapter";
}
