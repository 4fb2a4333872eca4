#include "screens/MemoryRow.h"

#include "screens/MemoryCard.h"
#include "screens/SetupTest.h"
#include "ui/Palette.h"

namespace {
constexpr int kUp = 0x8000;
constexpr int kStop = 0x8001;

class MemoryRowTest : public SetupTest {
protected:
    MemoryCard& memoryButton(int index) const
    {
        return find<MemoryCard>(QString("buttonMemory%1").arg(index));
    }
    /// What the cards tell.
    [[nodiscard]] QString heights() const
    {
        QStringList told;
        for (int index = 1; index <= 3; ++index)
            told << memoryButton(index).accessibleName();
        return told.join("; ");
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
        return platform.written.back()[1] | platform.written.back()[2] << 8;
    }
};
}

TEST_F(MemoryRowTest, theEditorTakesTheButtonsPlaceAndStoresTheDesksHeight)
{
    plug();
    open();
    const QImage seen = onScreen(wizard->window());
    memoryButton(3).setStoredPosition(1000);
    EXPECT_NE(onScreen(wizard->window()), seen);
    type(height(), "110");
    openEditor(2);
    EXPECT_TRUE(heights().startsWith("Sit, 74 cm")) << "the height that was typed counts at once";
    for (const int index : {1, 3, 2}) {
        SCOPED_TRACE(index);
        const QRect place = memoryButton(index).geometry();
        openEditor(index == 2 ? 1 : 2);
        const auto ground = [&] { return grab(memoryButton(index)).pixelColor(9, 9); };
        enter(memoryButton(index));
        EXPECT_EQ(ground(), zelvoBrandSurfaceColor());
        QWidget& editor = openEditor(index);
        EXPECT_EQ(editor.geometry(), place);
        EXPECT_TRUE(memoryButton(index == 2 ? 1 : 2).isVisible() && !memoryButton(index).isVisible());
        EXPECT_TRUE(find("buttonUp").hasFocus());
        EXPECT_EQ(text("labelPosition") + ' ' + text("labelHeight"), memoryButton(index).text() + " 110 cm");
        moveDeskTo(uint16_t(5000 + 10 * index));
        EXPECT_EQ(text("labelHeight"), "117 cm");
        platform.defaults.writes.clear();
        click(*editor.findChild<QWidget*>("buttonDone"));
        EXPECT_EQ(platform.defaults.writes.join(' '), QString("DevicePosition%1").arg(index));
        EXPECT_EQ(
            platform.defaults.values.value(platform.defaults.writes.join(' ')), 5000 + 10 * index); // Raw.
        EXPECT_TRUE(memoryButton(index).isVisible() && memoryButton(index).hasFocus());
        EXPECT_EQ(ground(), zelvoCardColor());
        moveDeskTo(kHeight);
    }
    EXPECT_EQ(heights(), "Sit, 117 cm; Stand, 117 cm; Position 3, 117 cm");
    type(height(), "90");
    click(find("buttonDone"));
    EXPECT_EQ(heights(), "Sit, 97 cm; Stand, 97 cm; Position 3, 97 cm");
}

TEST_F(MemoryRowTest, theWayBackStoresNothingAndTheMarkOfTheKeyboardGoesWithTheFocus)
{
    store("DevicePosition1", 1000);
    platform.defaults.values.remove("DevicePosition3");
    store("TablePositionOffset", 6200);
    plug();
    open();
    const QString before = heights();
    EXPECT_EQ(before, "Sit, 72 cm; Stand, 105 cm; Position 3, not set");
    for (const bool byKeyboard : {false, true}) {
        weight().setFocus();
        memoryButton(1).setFocus(Qt::TabFocusReason);
        if (byKeyboard)
            QTest::keyClick(&memoryButton(1), Qt::Key_Space);
        else
            openEditor(1);
        EXPECT_EQ(find<Button>("buttonUp").showsFocus(), byKeyboard);
        moveDeskTo(byKeyboard ? 5000 : 4000);
        if (byKeyboard) {
            for (const QString next : {"buttonDown", "buttonDone", "buttonCancel", "buttonMemory2"}) {
                QTest::keyClick(wizard->window().focusWidget(), Qt::Key_Tab);
                EXPECT_EQ(wizard->window().focusWidget()->objectName(), next);
            }
            QTest::keyClick(&find("buttonUp"), Qt::Key_Escape);
        } else {
            click(find("buttonCancel"));
        }
        EXPECT_EQ(memoryButton(1).showsFocus(), byKeyboard);
        EXPECT_TRUE(memoryButton(1).isVisible() && !wizard->window().findChild<QWidget*>("MemoryView"));
    }
    EXPECT_EQ(heights(), before);
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
    platform.unplug();
    EXPECT_EQ(text("labelHeight"), QString());
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
    for (const auto& [name, command] : {std::pair("buttonUp", kUp), {"buttonDown", 0x7FFF}}) {
        for (const auto& end : kEndings) {
            open();
            openEditor(1);
            QTest::mousePress(&find(name), Qt::LeftButton);
            EXPECT_EQ(movement(), command);
            const auto written = platform.written.size();
            end();
            EXPECT_EQ(movement(), kStop) << &end - kEndings;
            EXPECT_EQ(platform.written.size(), written + 1);
            wizard.reset();
        }
    }
}
