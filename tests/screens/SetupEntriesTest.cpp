#include "screens/SetupEntries.h"

#include "screens/SetupTest.h"

namespace {
using SetupEntriesTest = SetupTest;
}

TEST_F(SetupEntriesTest, showWhatIsStoredInTheUsersUnits)
{
    const struct {
        const char* locale;
        double weight;
        int offset, standUps;
        QString shown;
    } kCases[] = {{"de_DE", 71.9, 6209, 3, "71 105 3 kg cm"}, {"en_US", 71.9, 6209, 3, "158 41.3 3 lb in"},
        {"de_DE", 0, -4309, 0, "80 0 1 kg cm"}, {"en_US", -5, 0, 1, "176 16.9 1 lb in"}};
    plug();
    for (const auto& [locale, storedWeight, offset, storedStandUps, shown] : kCases) {
        platform.bundle.userLocale = QLocale(locale);
        properties().setWeight(storedWeight);
        store("TablePositionOffset", offset);
        store("NumberOfStandUps", storedStandUps);
        open();
        EXPECT_EQ(entries() + ' ' + text("labelSystemOfUnits") + ' ' + text("labelCm"), shown);
        wizard.reset();
    }
}

TEST_F(SetupEntriesTest, areStoredInKilogramsAndTenthsOfAMillimetreWithTheGoal)
{
    const struct {
        const char* locale;
        const char* typed[3];
        const char* tab;
        QString stored;
    } kCases[] = {{"de_DE", {"82", "117", "4"}, "labelTime", "2 15 82 7400 4"},
        {"en_US", {"180", "30.5", "2"}, "labelCalories", "1 100 81.72 3447 2"},
        // As much as can be typed.
        {"en_US", {"9991", "25011", "61"}, "labelTime", "2 15 453.546 59200 6"}};
    plug();
    for (const auto& [locale, typed, tab, stored] : kCases) {
        platform.bundle.userLocale = QLocale(locale);
        open();
        type(weight(), typed[0]);
        type(height(), typed[1]);
        type(standUps(), typed[2]);
        click(find(tab));
        click(find("goalIndicator2"));
        click(find("buttonDone"));
        QStringList values;
        for (const char* key :
            {"ActivityMode", "ActivityGoal", "Weight", "TablePositionOffset", "NumberOfStandUps"})
            values.append(platform.defaults.values.value(key).toString());
        EXPECT_EQ(values.join(' '), stored);
        wizard.reset();
    }
}

/// Text that an accessibility client wrote past the validators.
TEST_F(SetupEntriesTest, thatCannotBeStoredAreRefusedAndTheLimitsTold)
{
    plug();
    open();
    const QString good = entries();
    const auto& refusal = find<QLabel>("labelRefusal");
    const std::pair<QLineEdit&, const char*> kCases[] = {
        {weight(), "7½"}, {height(), ""}, {standUps(), "0"}, {height(), "."}};
    for (const auto& [field, text] : kCases) {
        field.setText(text);
        click(find("buttonDone"));
        EXPECT_TRUE(refusal.isVisible());
        EXPECT_TRUE(refusal.parentWidget()->rect().contains(refusal.geometry()));
        EXPECT_EQ(refusal.y(), field.geometry().bottom() + 1);
        EXPECT_EQ(entries(), good);
        EXPECT_EQ(field.selectedText(), field.text());
        QTest::keyClick(&field, Qt::Key_Backspace); // The line goes with the next edit.
        EXPECT_FALSE(refusal.isVisible());
        field.undo();
    }
    height().setText(".");
    click(find("buttonMemory2")); // This stores the height too.
    EXPECT_TRUE(refusal.isVisible());
    EXPECT_TRUE(platform.defaults.writes.isEmpty());
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
    hid.unplug(adapter);
    type(weight(), "");
    wizard->setupViewController()
        .buttonClosedClicked(); // As a screen reader's press, which leaves the focus.
    EXPECT_EQ(properties().weight(), 71);
    EXPECT_EQ(properties().tablePositionOffset(), 7000);
}
