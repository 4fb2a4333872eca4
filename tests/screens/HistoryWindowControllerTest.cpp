#include "screens/HistoryWindowController.h"

#include "fakes/ControlTest.h"
#include "fakes/TestStore.h"
#include "fakes/WindowChecks.h"
#include "ui/Palette.h"

#include <QFile>
#include <QTest>
#include <QTranslator>

#include <optional>

namespace {
constexpr double kMinute = 60;
constexpr double kDay = 86400;

/// The history of a user with a goal of 15 kcal a day, seen on 2024-03-15, a Friday. Texts are their keys.
class HistoryWindowControllerTest : public ControlTest {
protected:
    HistoryWindowControllerTest()
    {
        properties().setWeight(80);
        properties().setActivityMode(1);
        properties().setActivityGoal(15);
        properties().setNumberOfStandUps(2);
    }
    ~HistoryWindowControllerTest() override
    {
        qDeleteAll(qApp->findChildren<QTranslator*>(QString(), Qt::FindDirectChildrenOnly));
        QApplication::setLayoutDirection(Qt::LeftToRight);
    }

    static AppProperties& properties() { return AppProperties::instance(); }
    /// Stood for that long, some days and hours before now.
    void stood(int daysAgo, double minutes)
    {
        const double start = TestPlatform::kStart - daysAgo * kDay - 4 * 3600;
        store.insert(start, start + minutes * kMinute, true);
    }
    void open()
    {
        controller.emplace([this] { return store.context; }, dialogs);
        controller->showWindow();
        controller->updateData();
        QApplication::processEvents();
    }
    QWidget& window() { return controller->window(); }
    template <typename Widget = QWidget>
    Widget& find(const char* name)
    {
        auto* widget = window().findChild<Widget*>(name);
        EXPECT_TRUE(widget) << name;
        return *widget;
    }
    QString text(const char* name) { return find<QLabel>(name).text(); }
    void click(const char* name) { QTest::mouseClick(&find(name), Qt::LeftButton); }
    /// Minutes, calories, stand-ups, days with the goal met, and the title.
    QString shown()
    {
        QStringList texts;
        for (const char* label : {"historyHeadTitle1", "historyHeadTitle2", "historyHeadTitle3",
                 "historyHeadTitle4", "labelHistoryStats"})
            texts.append(text(label));
        return texts.join(' ');
    }
    /// The period buttons that are highlighted.
    QString highlighted()
    {
        QStringList names;
        for (const char* name : {"buttonDay", "buttonWeek", "buttonMonth", "buttonYear"}) {
            if (find<Button>(name).textColor() == zelvoHoverColor())
                names.append(name);
        }
        return names.join(' ');
    }
    int headSize() { return find<QLabel>("historyHeadTitle1").font().pixelSize(); }
    TestStore store {platform};
    FakeDialogs dialogs;
    std::optional<HistoryWindowController> controller;
};
}

TEST_F(HistoryWindowControllerTest, eachPeriodSumsUpFromItsOwnStart)
{
    stood(0, 20); // Friday
    stood(0, 10.5);
    stood(2, 12); // Wednesday
    stood(9, 30); // the week before
    stood(30, 40); // February
    stood(100, 50); // the year before
    store.insert(TestPlatform::kStart - 7200, TestPlatform::kStart - 3600, false);
    open();
    const std::pair<const char*, const char*> kCases[] = {{"buttonDay", "30 29 2 1 YourDailyStats"},
        {"buttonWeek", "42 40 3 1 YourWeeklyStats"}, {"buttonMonth", "72 69 4 2 YourMonthlyStats"},
        {"buttonYear", "112 107 5 3 YourYearlyStats"}};
    for (const auto& [button, expected] : kCases) {
        for (int time = 0; time < 2; ++time) {
            click(button);
            EXPECT_EQ(shown(), expected);
            EXPECT_EQ(highlighted(), button);
        }
    }
}

TEST_F(HistoryWindowControllerTest, opensOnTheWeekAndEndsAtItsFirstOpening)
{
    stood(0, 20);
    open();
    EXPECT_EQ(highlighted(), "buttonWeek");
    const QString atFirst = shown();
    EXPECT_TRUE(atFirst.startsWith("20 "));
    platform.runLoop.advance(40 * kDay); // April.
    store.insert(platform.runLoop.now() - 3600, platform.runLoop.now() - 1800, true);
    installTexts(*qApp, "en");
    platform.bundle.testLocale = QLocale("en_GB");
    controller->updateData();
    EXPECT_EQ(shown(), atFirst);
    click("buttonMonth");
    EXPECT_EQ(text("labelHistoryStats"), "Your month so far: March");
    click("buttonYear");
    EXPECT_EQ(text("labelHistoryStats"), "Your year so far: 2024");
}

TEST_F(HistoryWindowControllerTest, sumsBelowZeroWithoutAStoreAndBeforeSetUpAreZero)
{
    const double start = TestPlatform::kStart - 3600;
    store.insert(start, start - 1800, true); // The clock was set back.
    open();
    click("buttonDay");
    EXPECT_EQ(shown(), "0 0 1 0 YourDailyStats");

    controller.emplace(nullptr, dialogs);
    controller->showWindow();
    for (const char* button : {"buttonDay", "buttonYear"})
        click(button);
    EXPECT_EQ(shown(), "0 0 0 0 YourYearlyStats");

    stood(0, 20);
    platform.defaults.values.remove("Weight");
    platform.restart();
    open();
    EXPECT_EQ(shown(), "0 0 0 0 YourWeeklyStats");
    click("exportToExcelLabel");
    EXPECT_TRUE(dialogs.proposedFileNames.isEmpty());
}

TEST_F(HistoryWindowControllerTest, theExportCoversEverythingUntilAPeriodButtonEndsThat)
{
    stood(0, 20);
    stood(4000, 30); // 2013
    stood(4100, 99); // 2012
    open();
    dialogs.savePanelAnswer = platform.folder.filePath("export.csv");
    click("exportToExcelLabel");
    QFile file(*dialogs.savePanelAnswer);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(),
        "Standing Minutes;Calories burned;Standing session count;Goals met;\n50.00; 47.63; 2; 2; ");
    QStringList minutes {text("historyHeadTitle1")};
    controller->updateData(); // Keeps the export's start.
    minutes.append(text("historyHeadTitle1"));
    click("buttonDay");
    minutes.append(text("historyHeadTitle1"));
    EXPECT_EQ(minutes.join(' '), "20 50 20");
}

TEST_F(HistoryWindowControllerTest, numbersShareTheLargestSizeAtWhichEachFits)
{
    controller.emplace([this] { return store.context; }, dialogs);
    EXPECT_EQ(headSize(), 38); // As the window is made; fitted from the first refresh on.
    open();
    auto& field = find<QLabel>("historyHeadTitle1");
    field.setMinimumSize(0, 0);
    const struct {
        QSize field;
        QStringList texts;
        int least, most;
    } kCases[] = {{{200, 80}, {"0", "0", "0", "0"}, 44, 44},
        {{200, 80}, {"1", "1", "1", QString(200, '8')}, 9, 9}, // Fits at no size.
        {{200, 30}, {"0", "0", "0", "0"}, 20, 23}, // The height decides.
        {{100, 80}, {"8", "88888888", "8", "8"}, 19, 23}};
    for (const auto& row : kCases) {
        SCOPED_TRACE(row.most);
        field.resize(row.field);
        const auto& heads = controller->historyHeadTextfieldsArray();
        for (int i = 0; i < 4; ++i)
            heads[size_t(i)]->setText(row.texts[i]);
        controller->setFontSizeToFitHistoryHead();
        EXPECT_TRUE(headSize() >= row.least && headSize() <= row.most) << headSize();
        for (const QLabel* head : heads) {
            EXPECT_EQ(head->font(), field.font());
            EXPECT_TRUE(
                headSize() == 9 || head->fontMetrics().horizontalAdvance(head->text()) <= row.field.width());
        }
    }
}

TEST_F(HistoryWindowControllerTest, everyWayOfClosingTellsTheDelegateOnce)
{
    struct Delegate final : HistoryWindowControllerDelegate {
        int closed = 0;
        void historyWindowButtonCloseClicked() override { ++closed; }
    } delegate;
    open();
    controller->setDelegate(&delegate);
    const std::function<void()> kWays[] = {
        [this] { click("buttonClose"); }, [this] { QTest::keyClick(&window(), Qt::Key_Escape); }};
    for (int way = 0; way < 2; ++way) {
        controller->showWindow();
        kWays[way]();
        EXPECT_FALSE(window().isVisible());
        EXPECT_EQ(delegate.closed, way + 1);
    }
}
