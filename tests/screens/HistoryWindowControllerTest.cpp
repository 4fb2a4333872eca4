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
        auto* widget = window().findChild<Widget*>(QString::fromLatin1(name));
        EXPECT_TRUE(widget) << name;
        return *widget;
    }
    QString text(const char* name) { return find<QLabel>(name).text(); }
    void click(const char* name) { QTest::mouseClick(&find(name), Qt::LeftButton); }
    QStringList numbers()
    {
        return {text("historyHeadTitle1"), text("historyHeadTitle2"), text("historyHeadTitle3"),
            text("historyHeadTitle4")};
    }
    /// The period buttons that are highlighted.
    QStringList highlighted()
    {
        QStringList names;
        for (const char* name : {"buttonDay", "buttonWeek", "buttonMonth", "buttonYear"}) {
            if (find<Button>(name).textColor() == zelvoHoverColor())
                names.append(QString::fromLatin1(name));
        }
        return names;
    }
    int headSize() { return find<QLabel>("historyHeadTitle1").font().pixelSize(); }
    void setHeads(const QStringList& texts)
    {
        for (int i = 0; i < 4; ++i)
            controller->historyHeadTextfieldsArray()[size_t(i)]->setText(texts[i]);
        controller->setFontSizeToFitHistoryHead();
    }

    TestStore store {platform};
    FakeDialogs dialogs;
    std::optional<HistoryWindowController> controller;
};

const QStringList kNothing {
    QStringLiteral("0"), QStringLiteral("0"), QStringLiteral("0"), QStringLiteral("0")};
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
    const struct {
        const char* button;
        QStringList numbers; ///< minutes, calories, stand-ups, days with the goal met
        const char* title;
    } kTestCases[] = {
        {"buttonDay", {"30", "29", "2", "1"}, "YourDailyStats"},
        {"buttonWeek", {"42", "40", "3", "1"}, "YourWeeklyStats"},
        {"buttonMonth", {"72", "69", "4", "2"}, "YourMonthlyStats"},
        {"buttonYear", {"112", "107", "5", "3"}, "YourYearlyStats"},
    };
    for (const auto& testCase : kTestCases) {
        SCOPED_TRACE(testCase.button);
        for (int time = 0; time < 2; ++time) {
            click(testCase.button);
            EXPECT_EQ(numbers(), testCase.numbers);
            EXPECT_EQ(text("labelHistoryStats"), QString::fromLatin1(testCase.title));
            EXPECT_EQ(highlighted(), QStringList {QString::fromLatin1(testCase.button)});
        }
    }
}

TEST_F(HistoryWindowControllerTest, opensOnTheWeekAndEndsAtItsFirstOpening)
{
    stood(0, 20);
    open();
    EXPECT_EQ(highlighted(), QStringList {QStringLiteral("buttonWeek")});
    EXPECT_EQ(text("labelHistoryStats"), QStringLiteral("YourWeeklyStats"));
    const QStringList atFirst = numbers();
    EXPECT_EQ(atFirst.front(), QStringLiteral("20"));

    platform.runLoop.advance(40 * kDay); // April.
    store.insert(platform.runLoop.now() - 3600, platform.runLoop.now() - 1800, true);
    installTexts(*qApp, QStringLiteral("en"));
    platform.bundle.testLocale = QLocale(QStringLiteral("en_GB"));
    controller->updateData();
    EXPECT_EQ(numbers(), atFirst);
    click("buttonMonth");
    EXPECT_EQ(text("labelHistoryStats"), QStringLiteral("Your month so far: March"));
    click("buttonYear");
    EXPECT_EQ(text("labelHistoryStats"), QStringLiteral("Your year so far: 2024"));
}

TEST_F(HistoryWindowControllerTest, sumsBelowZeroAndWithoutAStoreAreZero)
{
    open();
    EXPECT_EQ(numbers(), kNothing);
    const double start = TestPlatform::kStart - 3600;
    store.insert(start, start - 1800, true); // The clock was set back.
    click("buttonDay");
    EXPECT_EQ(numbers(), QStringList({"0", "0", "1", "0"}));

    controller.emplace(nullptr, dialogs);
    controller->showWindow();
    for (const char* button : {"buttonDay", "buttonWeek", "buttonMonth", "buttonYear"})
        click(button);
    EXPECT_EQ(numbers(), kNothing);
}

TEST_F(HistoryWindowControllerTest, beforeSetUpThereIsNothingToShowAndToExport)
{
    stood(0, 20);
    platform.defaults.values.remove(QStringLiteral("Weight"));
    AppProperties::resetInstance();
    ASSERT_FALSE(properties().isUserSetupCompleted());
    open();
    EXPECT_EQ(numbers(), kNothing);
    const Date start = controller->startDate();
    click("exportToExcelLabel");
    EXPECT_TRUE(dialogs.proposedFileNames.isEmpty());
    EXPECT_EQ(controller->startDate(), start);
}

TEST_F(HistoryWindowControllerTest, theExportCoversEverythingAndLeavesTheNumbersAlone)
{
    stood(0, 20);
    stood(4000, 30); // 2013
    stood(4100, 99); // 2012
    open();
    dialogs.savePanelAnswer = platform.folder.filePath(QStringLiteral("export.csv"));
    click("exportToExcelLabel");
    QFile file(*dialogs.savePanelAnswer);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(),
        "Standing Minutes;Calories burned;Standing session count;Goals met;\n50.00; 47.63; 2; 2; ");
    EXPECT_EQ(text("historyHeadTitle1"), QStringLiteral("20"));
    EXPECT_EQ(controller->startDate(), Date::dateFromComponents(2013, 1, 1));

    // The window's next refresh keeps the export's start; a period button ends that.
    controller->updateData();
    EXPECT_EQ(text("historyHeadTitle1"), QStringLiteral("50"));
    click("buttonDay");
    EXPECT_EQ(text("historyHeadTitle1"), QStringLiteral("20"));
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
        int least;
        int most;
    } kTestCases[] = {
        {{200, 80}, kNothing, 44, 44},
        {{200, 80}, {"1", "1", "1", QString(200, u'8')}, 9, 9}, // Fits at no size.
        {{200, 30}, kNothing, 20, 23}, // The height decides.
        {{100, 80}, {"8", "88888888", "8", "8"}, 19, 23},
    };
    for (const auto& testCase : kTestCases) {
        SCOPED_TRACE(testCase.most);
        field.resize(testCase.field);
        setHeads(testCase.texts);
        EXPECT_GE(headSize(), testCase.least);
        EXPECT_LE(headSize(), testCase.most);
        for (const QLabel* head : controller->historyHeadTextfieldsArray()) {
            EXPECT_EQ(head->font(), field.font());
            const bool fits = head->fontMetrics().horizontalAdvance(head->text()) <= testCase.field.width();
            EXPECT_TRUE(fits || headSize() == 9);
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
    click("buttonClose");
    EXPECT_FALSE(window().isVisible());
    EXPECT_EQ(delegate.closed, 1);
    controller->showWindow();
    QTest::keyClick(&window(), Qt::Key_Escape);
    EXPECT_FALSE(window().isVisible());
    EXPECT_EQ(delegate.closed, 2);
}
