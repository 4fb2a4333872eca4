#include "screens/MemoryRow.h"

#include "screens/SetupTest.h"
#include "ui/HoverButton.h"

namespace {
constexpr int kUp = 0x8000;
constexpr int kStop = 0x8001;

class MemoryRowTest : public SetupTest {
protected:
    HoverButton& memoryButton(int index) const
    {
        return find<HoverButton>(QString("buttonMemory%1").arg(index));
    }
    QWidget& openEditor(int index)
    {
        click(memoryButton(index));
        QApplication::processEvents();
        return find("MemoryView");
    }
    /// The movement that the adapter was told last, some time after.
    int movement()
    {
        platform.runLoop.advance(0.5); // A hold begins with a stop.
        return adapter->written.back()[1] | adapter->written.back()[2] << 8;
    }
};
}

TEST_F(MemoryRowTest, theEditorTakesTheButtonsPlaceAndStoresTheDesksHeight)
{
    plug();
    open();
    type(height(), "110");
    for (const int index : {1, 3, 2}) {
        SCOPED_TRACE(index);
        const QRect place = memoryButton(index).geometry();
        openEditor(index == 2 ? 1 : 2);
        enter(memoryButton(index));
        QWidget& editor = openEditor(index);
        EXPECT_EQ(properties().tablePositionOffset(), 6700); // The height that was typed counts at once.
        EXPECT_EQ(editor.geometry(), place);
        EXPECT_TRUE(find("buttonUp").hasFocus());
        const QImage seen = grab(find("buttonUp"));
        find("buttonUp").clearFocus();
        EXPECT_EQ(grab(find("buttonUp")), seen) << "no mark where the mouse has clicked";
        moveDeskTo(uint16_t(5000 + index));
        platform.defaults.writes.clear();
        click(*editor.findChild<QWidget*>("buttonDone"));
        EXPECT_EQ(platform.defaults.writes.join(' '), QString("DevicePosition%1").arg(index));
        EXPECT_EQ(platform.defaults.values.value(platform.defaults.writes.join(' ')), 5000 + index); // Raw.
        EXPECT_TRUE(memoryButton(index).isVisible() && memoryButton(index).hasFocus());
        moveDeskTo(kHeight);
    }
}

TEST_F(MemoryRowTest, withoutADeskThereIsANoticeAndNothingToSet)
{
    open();
    const auto expectDesk = [&](bool isThere) {
        QApplication::processEvents();
        EXPECT_NE(find("labelConnection").isVisible(), isThere);
        for (int index = 1; index <= 3; ++index)
            EXPECT_EQ(memoryButton(index).isEnabled(), isThere);
    };
    expectDesk(false);
    type(height(), "70");
    wizard->setupViewController().buttonMemoryClicked(memoryButton(1));
    EXPECT_FALSE(wizard->window().findChild<QWidget*>("MemoryView"));
    plug();
    expectDesk(true);
    const QWidget& editor = openEditor(1);
    hid.unplug(adapter);
    click(*editor.findChild<QWidget*>("buttonDone"));
    EXPECT_EQ(platform.defaults.writes.join(' '), "TablePositionOffset");
    expectDesk(false);
}

TEST_F(MemoryRowTest, theDeskStopsWhenTheScreenGoesWhileAButtonIsHeld)
{
    plug();
    const std::function<void()> kEndings[] = {[this] { click(find("buttonCloseWithoutSaving")); },
        [this] { wizard->showSetupView(); },
        [this] { wizard->setupViewController().memoryViewButtonDoneClicked(); }, [this] { wizard.reset(); }};
    for (const auto& end : kEndings) {
        open();
        openEditor(1);
        QTest::mousePress(&find("buttonUp"), Qt::LeftButton);
        EXPECT_EQ(movement(), kUp);
        const auto written = adapter->written.size();
        end();
        EXPECT_EQ(movement(), kStop) << &end - kEndings;
        EXPECT_EQ(adapter->written.size(), written + 1);
        wizard.reset();
    }
}
