#include "screens/SetupEntries.h"

#include "screens/SetupTest.h"

namespace {
using SetupEntriesTest = SetupTest;
}

TEST_F(SetupEntriesTest, showWhatIsStoredInTheUsersUnitsAndTakeAsMuchAsTheyHaveRoomFor)
{
    const std::tuple<const char*, double, int, int, QString, QString> kCases[] = {
        {"de_DE", 71.9, 6209, 3, "71 105 3 kg cm", "100 250 6"},
        {"en_US", 71.9, 6209, 3, "158 41.3 3 lb in", "100 250.5 6"},
        {"de_DE", 0, -4309, 0, "80 0 1 kg cm", "100 250 6"},
        {"en_US", -5, 0, 1, "176 16.9 1 lb in", "100 250.5 6"}};
    plug();
    for (const auto& [locale, storedWeight, offset, storedStandUps, shown, typed] : kCases) {
        platform.bundle.userLocale = QLocale(locale);
        properties().setWeight(storedWeight);
        store("TablePositionOffset", offset);
        store("NumberOfStandUps", storedStandUps);
        open();
        EXPECT_EQ(entries() + ' ' + text("labelSystemOfUnits") + ' ' + text("labelCm"), shown);
        type(weight(), "1000");
        type(height(), "2501.5");
        type(standUps(), "76");
        EXPECT_EQ(entries(), typed);
        wizard.reset();
    }
}

/// Text that an accessibility client wrote past the validators.
TEST_F(SetupEntriesTest, thatCannotBeStoredAreRefusedUntilTheNextEdit)
{
    plug();
    open();
    const auto shown = [this] { return entries() + text("labelGoal"); };
    const QString good = shown();
    const auto& refusal = find<QLabel>("labelRefusal");
    for (QLineEdit* const field : {&weight(), &standUps(), &height()}) {
        field->setText(".½");
        click(field == &height() ? find("buttonMemory2") : find("buttonDone")); // Both store the height.
        EXPECT_TRUE(refusal.isVisible() && refusal.parentWidget()->rect().contains(refusal.geometry()));
        EXPECT_EQ(refusal.y(), field->geometry().bottom() + 1);
        EXPECT_GE(refusal.width(), refusal.sizeHint().width());
        EXPECT_TRUE(field == &height() || (field->hasFocus() && field->selectedText() == field->text()));
        EXPECT_EQ(shown(), good);
        const QString filled = field->text();
        field->clear();
        EXPECT_FALSE(refusal.isVisible());
        field->setText(filled);
    }
    standUps().setText("7");
    click(find("buttonDone"));
    moveDeskTo(4500);
    EXPECT_TRUE(refusal.isVisible()) << "a moving desk edits nothing";
    EXPECT_TRUE(platform.defaults.writes.isEmpty());
    click(find("buttonDone"));
    open();
    EXPECT_FALSE(refusal.isVisible());

    store("TablePositionOffset", 290000);
    wizard.reset();
    open();
    QTest::keyClicks(&height(), "x");
    EXPECT_EQ(height().text(), "2945") << "no letters after what is too much";
    store("NumberOfStandUps", 7);
    wizard.reset();
    open();
    click(find("labelTime"));
    click(find("buttonDone"));
    EXPECT_FALSE(wizard->isWindowVisible()) << "what was stored is no entry";
    EXPECT_EQ(properties().numberOfStandUps(), 7);
    EXPECT_EQ(properties().activityMode(), 2);
}

TEST_F(SetupEntriesTest, areRefilledWhenEmptyExceptTheHeightWhichFollowsTheDesk)
{
    store("TablePositionOffset", 7005);
    plug();
    open();
    for (QLineEdit* field : {&weight(), &standUps(), &height()})
        type(*field, "");
    weight().setFocus();
    EXPECT_EQ(entries(), "71  3");
    moveDeskTo(4400);
    EXPECT_EQ(entries(), "71 114 3");
    // Saved against no desk, the height of one that has left would shift the offset.
    platform.unplug();
    type(weight(), "");
    wizard->setupViewController()
        .buttonClosedClicked(); // As a screen reader's press, which leaves the focus.
    EXPECT_EQ(properties().weight(), 71);
    EXPECT_EQ(properties().tablePositionOffset(), 7000);
}
