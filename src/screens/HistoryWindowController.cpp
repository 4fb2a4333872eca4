#include "screens/HistoryWindowController.h"

#include "data/AppProperties.h"
#include "data/ExportManager.h"
#include "data/FixedPoint.h"
#include "data/PeriodText.h"
#include "data/Saturation.h"
#include "ui/FontAndTextHandler.h"
#include "ui/FormStyle.h"
#include "ui/PanelWindow.h"
#include "ui/WindowPlacement.h"
#include "ui_HistoryWindow.h"

#include <QFontMetricsF>

#include <algorithm>
#include <cmath>

namespace {
enum Period { kDay, kWeek, kMonth, kYear };
constexpr int kFirstRecordedYear = 2013;
constexpr int kSmallestFitted = 10;
constexpr int kLargestFitted = 45;
constexpr double kMinutesPerHour = 60;

/// The number without its fraction, and 0 for a negative or undefined one.
QString shown(double number)
{
    return std::isfinite(number) && number > 0 ? QString::number(std::trunc(number), 'f', 0)
                                               : QStringLiteral("0");
}

/// The number of which a caption's words are to speak.
int counted(double number)
{
    return std::max(saturated<int>(number), 0);
}

/// The smallest size at which the text outgrows the field; the largest size where it never does.
int sizeThatOutgrows(const QLabel& label, QFont font, QSizeF field)
{
    int size = kSmallestFitted;
    for (; size < kLargestFitted; ++size) {
        font.setPixelSize(size);
        const QFontMetricsF metrics(font);
        const QSizeF text(metrics.horizontalAdvance(label.text()), metrics.height());
        if (float(text.width()) > float(field.width()) || float(text.height()) > float(field.height()))
            break;
    }
    return size;
}
}

HistoryWindowController::HistoryWindowController(
    ManagedObjectContextProvider managedObjectContext, Dialogs& dialogs)
    : m_dialogs(dialogs)
    , m_persister(std::move(managedObjectContext))
    , m_window(std::make_unique<PanelWindow>(Qt::Window | Qt::FramelessWindowHint))
    , m_ui(std::make_unique<Ui::HistoryWindow>())
{
    m_ui->setupUi(m_window.get());
    applyFormStyle(*m_window);
    awakeFromNib();
}

HistoryWindowController::~HistoryWindowController() = default;

void HistoryWindowController::awakeFromNib()
{
    m_window->setMovableByWindowBackground(true);
    m_window->onCloseRequested([this] { buttonCloseClicked(); });
    m_currentDate = Date::now();
    m_startDate = m_chosenStart = m_currentDate.dateAtStartOfWeek();
    setHighLightedButton(kWeek);
    // Fonts are set after the first numbers; showing the window fits them.
    updateData();
    for (QLabel* label : historyHeadTextfieldsArray())
        label->setFont(FontAndTextHandler::Roman38());
    m_ui->buttonClose->setText(QStringLiteral("   %1").arg(qtTrId("CloseButton")));
    connectButtons();
}

void HistoryWindowController::connectButtons()
{
    m_ui->buttonDay->onClicked([this] { buttonDayClicked(); });
    m_ui->buttonWeek->onClicked([this] { buttonWeekClicked(); });
    m_ui->buttonMonth->onClicked([this] { buttonMonthClicked(); });
    m_ui->buttonYear->onClicked([this] { buttonYearClicked(); });
    for (HoverButton* button : {m_ui->buttonClose, m_ui->closeMark})
        button->onClicked([this] { buttonCloseClicked(); });
    m_ui->exportToExcelLabel->onClicked([this] { exportToExcelClicked(); });
}

void HistoryWindowController::showWindow()
{
    m_startDate = m_chosenStart; // An export has left its own.
    m_window->comeToFront(WindowPlacement::moveToCentre);
}

void HistoryWindowController::updateData()
{
    const Totals sums = AppProperties::instance().isUserSetupCompleted() ? totals() : Totals();
    m_ui->historyHeadTitle1->setText(shown(sums.minutes));
    m_ui->historyHeadTitle2->setText(shown(sums.calories));
    m_ui->historyHeadTitle3->setText(QString::number(sums.stands));
    m_ui->historyHeadTitle4->setText(shown(sums.goals));
    setFontSizeToFitHistoryHead();
    showCaptions(sums);
}

void HistoryWindowController::showCaptions(const Totals& sums)
{
    // Where weeks begin on Sunday, that day's week starts at the Monday after: there are no dates to tell.
    m_ui->labelHistoryDates->setText(m_startDate.isLaterThanDate(m_currentDate)
            ? QString()
            : qtTrId("HistoryDates").arg(periodDates(m_startDate, m_currentDate), timeOfDay(m_currentDate)));
    m_ui->historySubTitle1->setText(qtTrId("Mins", counted(sums.minutes)));
    m_ui->historySubTitle2->setText(qtTrId("CaloriesCheckbox", counted(sums.calories)));
    m_ui->historySubTitle3->setText(qtTrId("Stands", counted(double(sums.stands))));
    m_ui->historySubTitle4->setText(qtTrId("GoalsMet", counted(sums.goals)));
    const QString hours = sums.minutes >= kMinutesPerHour ? hoursAndMinutes(sums.minutes) : QString();
    m_ui->column1->setToolTip(hours);
    m_ui->historyHeadTitle1->setAccessibleDescription(hours);
    // In the mode of minutes an hour, nobody would guess that calories are counted.
    const QString goal = qtTrId("GoalsMetHint").arg(AppProperties::instance().activityGoal());
    m_ui->column4->setToolTip(goal);
    m_ui->historyHeadTitle4->setAccessibleDescription(goal);
}

HistoryWindowController::Totals HistoryWindowController::totals()
{
    const auto stands = m_persister.activitiesFromDate(m_startDate, m_currentDate, true);
    return {m_persister.minutesActiveFromDate(m_startDate, m_currentDate, true),
        m_persister.caloriesBurnedFromDate(m_startDate, m_currentDate),
        stands ? qsizetype(stands->size()) : 0, m_persister.goalsMetFromDay(m_startDate, m_currentDate)};
}

void HistoryWindowController::selectPeriod(int index, Date startDate, const QString& title)
{
    setHighLightedButton(index);
    m_startDate = m_chosenStart = startDate;
    updateData();
    m_ui->labelHistoryStats->setText(title);
}

void HistoryWindowController::buttonDayClicked()
{
    selectPeriod(kDay, m_currentDate.dateAtStartOfDay(), qtTrId("YourDailyStats"));
}

void HistoryWindowController::buttonWeekClicked()
{
    selectPeriod(kWeek, m_currentDate.dateAtStartOfWeek(), qtTrId("YourWeeklyStats"));
}

void HistoryWindowController::buttonMonthClicked()
{
    selectPeriod(kMonth, m_currentDate.dateAtStartOfMonth(),
        qtTrId("YourMonthlyStats").arg(m_currentDate.monthName()));
}

void HistoryWindowController::buttonYearClicked()
{
    selectPeriod(
        kYear, m_currentDate.dateAtStartOfYear(), qtTrId("YourYearlyStats").arg(m_currentDate.year()));
}

void HistoryWindowController::buttonCloseClicked()
{
    m_window->hide();
    if (m_delegate)
        m_delegate->historyWindowButtonCloseClicked();
}

void HistoryWindowController::exportToExcelClicked()
{
    exportToCSVFile();
}

void HistoryWindowController::setHighLightedButton(int index)
{
    Button* const buttons[] = {m_ui->buttonDay, m_ui->buttonWeek, m_ui->buttonMonth, m_ui->buttonYear};
    for (int i = kDay; i <= kYear; ++i) {
        buttons[i]->setTextRole(i == index ? QPalette::Link : QPalette::ButtonText);
        buttons[i]->setChecked(i == index);
    }
}

void HistoryWindowController::setFontSizeToFitHistoryHead()
{
    const std::vector<QLabel*> heads = historyHeadTextfieldsArray();
    const QSizeF field = heads.front()->size();
    int best = kLargestFitted;
    for (const QLabel* head : heads)
        best = std::min(best, sizeThatOutgrows(*head, heads.front()->font(), field));
    for (QLabel* head : heads) {
        QFont font = heads.front()->font();
        font.setPixelSize(best - 1);
        head->setFont(font);
    }
}

std::vector<QLabel*> HistoryWindowController::historyHeadTextfieldsArray() const
{
    return {
        m_ui->historyHeadTitle1, m_ui->historyHeadTitle2, m_ui->historyHeadTitle3, m_ui->historyHeadTitle4};
}

QWidget& HistoryWindowController::window() const
{
    return *m_window;
}

void HistoryWindowController::exportToCSVFile()
{
    if (!AppProperties::instance().isUserSetupCompleted())
        return;
    // The shown period's start is given up for the export's; the numbers on screen stay until a period is
    // chosen or the window is asked for again; nobody meets it, since showing and choosing set their own.
    m_startDate = Date::dateFromComponents(kFirstRecordedYear, 1, 1);
    const Totals sums = totals();
    ExportManager::exportHistoryToCSV({fixed(sums.minutes, 2), fixed(sums.calories, 2),
                                          QString::number(sums.stands), QString::number(sums.goals)},
        m_dialogs);
}
