#pragma once

#include "data/ActivityPersister.h"

#include <memory>
#include <vector>

class Dialogs;
class PanelWindow;
class QLabel;
class QWidget;

namespace Ui {
class HistoryWindow;
}

class HistoryWindowControllerDelegate {
public:
    virtual void historyWindowButtonCloseClicked() = 0;

protected:
    ~HistoryWindowControllerDelegate() = default;
};

/// Four totals of a day, week, month or year that ends at the moment the window was first opened, and the
/// export of all.
class HistoryWindowController {
public:
    /// Every total is 0 as long as there is no context.
    HistoryWindowController(ManagedObjectContextProvider managedObjectContext, Dialogs& dialogs);
    ~HistoryWindowController();
    HistoryWindowController(const HistoryWindowController&) = delete;
    HistoryWindowController& operator=(const HistoryWindowController&) = delete;

    /// Shows the window in front, ready for the keyboard, with the period that was chosen last.
    void showWindow();
    void updateData();
    void buttonDayClicked();
    void buttonWeekClicked();
    void buttonMonthClicked();
    void buttonYearClicked();
    void buttonCloseClicked();
    void exportToExcelClicked();
    /// 0 day, 1 week, 2 month, 3 year; any other index highlights none.
    void setHighLightedButton(int index);
    /// One size for the four numbers, the largest at which each fits the first one's field; all four are laid
    /// out alike.
    void setFontSizeToFitHistoryHead();
    [[nodiscard]] std::vector<QLabel*> historyHeadTextfieldsArray() const;

    [[nodiscard]] HistoryWindowControllerDelegate* delegate() const { return m_delegate; }
    void setDelegate(HistoryWindowControllerDelegate* delegate) { m_delegate = delegate; }
    [[nodiscard]] ActivityPersister& persister() { return m_persister; }
    /// End of every period: the moment the window was first opened, so that what is read, chosen again and
    /// exported in one run of the program agrees.
    [[nodiscard]] Date currentDate() const { return m_currentDate; }
    [[nodiscard]] Date startDate() const { return m_startDate; }
    [[nodiscard]] QWidget& window() const;

private:
    struct Totals {
        double minutes = 0;
        double calories = 0;
        qsizetype stands = 0;
        int32_t goals = 0;
    };

    void awakeFromNib();
    void connectButtons();
    void selectPeriod(int index, Date startDate, const QString& title);
    [[nodiscard]] Totals totals();
    void showCaptions(const Totals& sums);
    void exportToCSVFile();

    Dialogs& m_dialogs;
    HistoryWindowControllerDelegate* m_delegate = nullptr;
    ActivityPersister m_persister;
    Date m_currentDate;
    Date m_startDate;
    Date m_chosenStart;
    std::unique_ptr<PanelWindow> m_window;
    std::unique_ptr<Ui::HistoryWindow> m_ui;
};
