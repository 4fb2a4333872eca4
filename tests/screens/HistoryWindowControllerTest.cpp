#include "screens/HistoryWindowController.h"

#include "fakes/ControlTest.h"
#include "fakes/TestStore.h"
#include "ui/Button.h"
#include "ui/Palette.h"

#include <QLabel>
#include <QTest>

#include <optional>

namespace {
constexpr double kDay = 86400;
constexpr double kHour = 3600;

/// The history of a user with a goal of 15 kcal a day, seen in Germany on 2024-03-15, a Friday.
class HistoryWindowControllerTest : public ControlTest {
protected:
    HistoryWindowControllerTest()
    {
        installTexts(*qApp, QStringLiteral("en"));
        properties().setWeight(71);
        properties().setActivityMode(1);
        properties().setActivityGoal(15);
    }

    static AppProperties& properties() { return AppProperties::instance(); }
    /// Stood for that long, some days and hours before now; at 71 kg that burns 0.845 kcal a minute.
    void stood(int daysAgo, double minutes)
    {
        const double start = TestPlatform::kStart - daysAgo * kDay - 4 * kHour;
        store.insert(start, start + minutes * 60, true);
    }
    void open()
    {
        controller.emplace([this] { return store.context; }, dialogs);
        controller->showWindow();
        QApplication::processEvents();
    }
    template <typename Widget = QWidget>
    Widget& find(const char* name)
    {
        return *controller->window().findChild<Widget*>(name);
    }
    void click(const char* name) { QTest::mouseClick(&find(name), Qt::LeftButton); }
    /// Minutes, calories, stand-ups, days with the goal met, the title, and the buttons that are highlighted.
    QString shown()
    {
        QStringList texts;
        for (const QLabel* head : controller->historyHeadTextfieldsArray())
            texts.append(head->text());
        texts.append(find<QLabel>("labelHistoryStats").text());
        for (const char* name : {"buttonDay", "buttonWeek", "buttonMonth", "buttonYear"})
            texts += find<Button>(name).textColor() == zelvoHoverColor() ? QStringList(name) : QStringList();
        return texts.join(' ');
    }
    int headSize() { return find<QLabel>("historyHeadTitle1").font().pixelSize(); }

    TestStore store {platform};
    SimulatedDialogs& dialogs = platform.dialogs;
    std::optional<HistoryWindowController> controller;
};
}

TEST_F(HistoryWindowControllerTest, eachPeriodSumsUpFromItsOwnStartToTheFirstOpening)
{
    stood(0, 22); // Friday
    stood(0, 10.5);
    stood(2, 12); // Wednesday
    stood(9, 30); // the week before
    stood(30, 40); // February
    stood(100, 50); // the year before
    store.insert(TestPlatform::kStart - 2 * kHour, TestPlatform::kStart - kHour, false);
    open();
    EXPECT_EQ(shown(), "44 37 3 1 Your week so far buttonWeek");
    EXPECT_EQ(headSize(), 38); // As the window is made; fitted from the first refresh on.
    platform.runLoop.advance(40 * kDay); // April.
    store.insert(platform.runLoop.now() - kHour, platform.runLoop.now() - 60, true);
    controller->updateData();
    EXPECT_EQ(shown(), "44 37 3 1 Your week so far buttonWeek");
    EXPECT_NE(headSize(), 38);
    const std::pair<const char*, const char*> kCases[] = {
        {"buttonDay", "32 27 2 1 Your day so far buttonDay"},
        {"buttonWeek", "44 37 3 1 Your week so far buttonWeek"},
        {"buttonMonth", "74 62 4 2 Your month so far: März buttonMonth"},
        {"buttonYear", "114 96 5 3 Your year so far: 2024 buttonYear"}};
    for (const auto& [button, expected] : kCases) {
        click(button);
        EXPECT_EQ(shown(), expected);
    }
}

TEST_F(HistoryWindowControllerTest, sumsBelowZeroWithoutAStoreAndBeforeSetUpAreZero)
{
    const double start = TestPlatform::kStart - kHour;
    store.insert(start, start - 1800, true); // The clock was set back.
    open();
    EXPECT_EQ(shown(), "0 0 1 0 Your week so far buttonWeek");

    controller.emplace(nullptr, dialogs);
    click("buttonYear");
    EXPECT_EQ(shown(), "0 0 0 0 Your year so far: 2024 buttonYear");

    stood(0, 22);
    properties().setWeight(0);
    open();
    EXPECT_EQ(shown(), "0 0 0 0 Your week so far buttonWeek");
    click("exportToExcelLabel");
    EXPECT_TRUE(dialogs.proposedFileNames.isEmpty());
}

TEST_F(HistoryWindowControllerTest, numbersShareTheLargestSizeAtWhichEachFits)
{
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
        for (const QLabel* head : heads)
            EXPECT_EQ(head->font(), field.font());
    }
}

TEST_F(HistoryWindowControllerTest, closingTellsTheDelegate)
{
    struct Delegate final : HistoryWindowControllerDelegate {
        int closed = 0;
        void historyWindowButtonCloseClicked() override { ++closed; }
    } delegate;
    open();
    controller->setDelegate(&delegate);
    QTest::keyClick(&controller->window(), Qt::Key_Escape);
    EXPECT_TRUE(delegate.closed == 1 && !controller->window().isVisible());
}
