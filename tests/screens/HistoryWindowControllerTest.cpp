#include "screens/HistoryWindowController.h"

#include "fakes/ControlTest.h"
#include "fakes/TestStore.h"

#include <QLabel>
#include <QTest>

#include <optional>

namespace {
constexpr double kNow = TestPlatform::kStart; // A Friday in March.
constexpr double kDay = 86400;
constexpr double kHour = 3600;

/// The history of a user with a goal of 15 kcal a day.
class HistoryWindowControllerTest : public ControlTest {
protected:
    HistoryWindowControllerTest()
    {
        installTexts(*qApp, QStringLiteral("en"));
        AppProperties::instance().setWeight(71);
        AppProperties::instance().setActivityMode(1);
        AppProperties::instance().setActivityGoal(15);
    }

    /// Stood for that long, some days and hours before now; at 71 kg that burns 0.845 kcal a minute.
    void stood(int daysAgo, double minutes)
    {
        const double start = kNow - daysAgo * kDay - 4 * kHour;
        store.insert(start, start + minutes * 60, true);
    }
    void open()
    {
        controller.emplace([this] { return store.context; }, platform.dialogs);
        controller->showWindow();
        QApplication::processEvents();
    }
    QWidget& find(const char* name) { return *controller->window().findChild<QWidget*>(name); }
    void click(const char* name) { QTest::mouseClick(&find(name), Qt::LeftButton); }
    QString text(const char* label) { return qobject_cast<QLabel*>(&find(label))->text(); }
    /// Minutes, calories, stand-ups, days with the goal met, the title, and the chosen period.
    QString shown()
    {
        QString texts;
        for (const QLabel* head : controller->historyHeadTextfieldsArray())
            texts += head->text() + ' ';
        texts += text("labelHistoryStats");
        for (const auto* period : controller->window().findChildren<QAbstractButton*>())
            texts += period->isChecked() ? " (" + period->text() + ')' : QString();
        return texts;
    }
    int headSize() { return find("historyHeadTitle1").font().pixelSize(); }

    TestStore store {platform};
    std::optional<HistoryWindowController> controller;
};
}

TEST_F(HistoryWindowControllerTest, eachPeriodSumsUpFromItsOwnStartToTheFirstOpening)
{
    for (const auto& [daysAgo, minutes] : // Twice Friday, Wednesday, the week, the month, the year before.
        {std::pair(0, 22.0), {0, 26}, {2, 12}, {9, 30.5}, {30, 40}, {100, 50}})
        stood(daysAgo, minutes);
    store.insert(kNow - 2 * kHour, kNow - kHour, false);
    open();
    EXPECT_EQ(headSize(), 38); // As the window is made; fitted from the first refresh on.
    platform.runLoop.advance(40 * kDay); // April.
    store.insert(platform.runLoop.now() - kHour, platform.runLoop.now() - 60, true);
    controller->updateData();
    EXPECT_EQ(shown(), "60 50 3 1 Your week so far (Week)");
    EXPECT_NE(headSize(), 38);
    for (const auto& [button, expected, dates, hours] :
        {std::tuple("buttonDay", "48 40 2 1 Your day so far (Day)", "15. März", ""),
            {"buttonYear", "130 110 5 3 Your year so far: 2024 (Year)", "1. Januar – 15. März",
                "2 Stunden, 10 Minuten"},
            {"buttonMonth", "90 76 4 2 Your month so far: März (Month)", "1.–15. März",
                "1 Stunde, 30 Minuten"},
            {"buttonWeek", "60 50 3 1 Your week so far (Week)", "11.–15. März", "1 Stunde"}}) {
        click(button);
        click("exportToExcelLabel"); // Which is cancelled.
        EXPECT_EQ(controller->startDate().year(), 2013);
        controller->showWindow();
        controller->updateData();
        EXPECT_EQ(shown(), expected);
        EXPECT_EQ(
            text("labelHistoryDates").replace(QChar(0x2009), QChar(u' ')), QString(dates) + ", until 08:00");
        EXPECT_EQ(find("column1").toolTip(), hours);
        EXPECT_EQ(find("historyHeadTitle1").accessibleDescription(), hours);
    }
    EXPECT_EQ(text("historySubTitle4") + find("column4").toolTip().right(4), "goal met 15.");
    EXPECT_EQ(find("historyHeadTitle4").accessibleDescription(), find("column4").toolTip());
    struct Delegate final : HistoryWindowControllerDelegate {
        int closings = 0;
        void historyWindowButtonCloseClicked() override { ++closings; }
    } delegate;
    controller->setDelegate(&delegate);
    EXPECT_EQ(find("buttonClose").property("text"), "   Close");
    for (const char* button : {"buttonClose", "closeMark"}) {
        controller->showWindow();
        click(button);
        EXPECT_FALSE(controller->window().isVisible());
    }
    EXPECT_EQ(delegate.closings, 2);
}

TEST_F(HistoryWindowControllerTest, sumsBelowZeroWithoutAStoreAndBeforeSetUpAreZero)
{
    store.insert(kNow - kHour, kNow - kHour - 1800, true); // The clock was set back.
    open();
    EXPECT_EQ(shown(), "0 0 1 0 Your week so far (Week)");
    EXPECT_EQ(text("historySubTitle1") + text("historySubTitle2") + text("historySubTitle3"),
        "minutescaloriesstand-up");
    controller.emplace(nullptr, platform.dialogs);
    click("buttonYear");
    EXPECT_EQ(shown(), "0 0 0 0 Your year so far: 2024 (Year)");
    stood(0, 22);
    AppProperties::instance().setWeight(0);
    open();
    EXPECT_EQ(shown(), "0 0 0 0 Your week so far (Week)");
    click("exportToExcelLabel");
    EXPECT_TRUE(platform.dialogs.proposedFileNames.isEmpty());
    platform.bundle.userLocale = QLocale("en_US"); // On Sunday its week has not begun.
    platform.runLoop.advance(2 * kDay);
    open();
    EXPECT_EQ(text("labelHistoryDates"), "");
    click("buttonDay");
    EXPECT_TRUE(text("labelHistoryDates").startsWith("March 17, until 8"));
}

TEST_F(HistoryWindowControllerTest, numbersShareTheLargestSizeAtWhichEachFits)
{
    stood(0, 2.1);
    open();
    EXPECT_EQ(text("historySubTitle1") + text("historySubTitle2"), "minutescalorie");
    find("historyHeadTitle1").setMinimumSize(0, 0);
    const std::tuple<QSize, QString, int, int> kCases[] = {{{200, 80}, "0", 44, 44},
        {{200, 80}, QString(200, '8'), 9, 9}, // Fits at no size.
        {{200, 30}, "0", 20, 23}, // The height decides.
        {{100, 80}, "88888888", 19, 23}};
    for (const auto& [field, third, least, most] : kCases) {
        find("historyHeadTitle1").resize(field);
        const auto& heads = controller->historyHeadTextfieldsArray();
        heads[2]->setText(third);
        controller->setFontSizeToFitHistoryHead();
        EXPECT_TRUE(headSize() >= least && headSize() <= most) << headSize();
        EXPECT_EQ(heads[3]->font(), heads[0]->font());
    }
}
