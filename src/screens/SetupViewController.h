#pragma once

#include "data/ActivityManager.h"
#include "desk/AdoptedDesk.h"
#include "platform/NotificationCenter.h"
#include "screens/GoalCircleView.h"
#include "screens/MemoryRow.h"
#include "screens/SetupEntries.h"
#include "ui/ClickableLabel.h"

#include <QPointer>

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

class QLineEdit;
class QWidget;
class Workspace;

namespace Ui {
class SetupView;
}

class SetupViewControllerDelegate {
public:
    /// The settings were saved.
    virtual void setupViewButtonCloseClicked() = 0;
    /// The screen was dismissed; nothing was saved.
    virtual void setupViewButtonCloseWithoutSaveClicked() = 0;

protected:
    ~SetupViewControllerDelegate() = default;
};

/// The setup screen: weight, desk height, stand-ups, goal and memory positions. Nothing is saved before Done,
/// except the desk height, when the memory editor opens, and what that editor stores. Activity modes:
/// 1 calories, 2 time. Goal steps: 0 to 4.
///
/// The screen drops its view when it is closed without saving; until the next call of view() it hears no
/// control, and news of the desk has no effect. Entries and memories are parts of their own; here are the
/// goal chooser and what holds the screen together.
class SetupViewController final : public ClickableLabelDelegate,
                                  public GoalCircleViewDelegate,
                                  public MemoryViewControllerDelegate {
public:
    explicit SetupViewController(Workspace& workspace);
    ~SetupViewController();
    SetupViewController(const SetupViewController&) = delete;
    SetupViewController& operator=(const SetupViewController&) = delete;

    /// The screen. Without one its form is loaded and filled from the settings. It belongs to this controller
    /// even while it stands in a window.
    [[nodiscard]] QWidget* view();
    [[nodiscard]] bool isViewLoaded() const { return !m_view.isNull(); }

    /// "Done", in the brand colour: it is what the screen ends with.
    void buttonClosedClicked();
    void buttonCloseWithoutSavingClicked();
    void buttonInfoClicked();
    void buttonVideoLinkClicked();
    /// Opens the memory editor in the place of the card, whose property "tag" is the position's number.
    void buttonMemoryClicked(MemoryCard& card);
    void sliderMoved();
    void clickableLabelClicked(ClickableLabel& label) override;
    void goalCircleIndicatorViewClicked(GoalCircleView& circle) override;
    /// The user changed the field's text, with the keyboard or through an accessibility client.
    void controlTextDidChange(const QLineEdit&) { updateGoalLabel(); }
    void controlTextDidEndEditing(const QLineEdit& field);
    void positionUpdated(int32_t height); ///< raw, 0.1 mm
    void observerDeviceStateDidChange();
    void memoryViewButtonDoneClicked() override { m_memories.storePosition(); }
    void memoryViewButtonUpMouseDown() override { m_memories.moveUp(); }
    void memoryViewButtonUpMouseUp() override { m_memories.stop(); }
    void memoryViewButtonDownMouseDown() override { m_memories.moveDown(); }
    void memoryViewButtonDownMouseUp() override { m_memories.stop(); }
    void memoryViewButtonCancelClicked() override { m_memories.cancel(); }

    [[nodiscard]] SetupViewControllerDelegate* delegate() const { return m_delegate; }
    void setDelegate(SetupViewControllerDelegate* delegate) { m_delegate = delegate; }
    /// Null before the first view().
    [[nodiscard]] MemoryViewController* memoryViewController() const { return m_memories.editor(); }
    [[nodiscard]] const ActivityManager& activityGoalManager() const { return m_activityGoalManager; }

private:
    void awakeFromNib();
    void observe();
    void setLocalizationText();
    void connectControls();

    void showAbsenceLine();
    void showStoredGoal();
    void showActivityMode(int32_t mode);
    [[nodiscard]] static QString modeTitleFromMode(int32_t mode);
    [[nodiscard]] int32_t currentActivityMode() const;
    void activityModeCalories();
    void activityModeTime();
    void setTabLineForCalories();
    void setTabLineForTime();
    [[nodiscard]] double goal() const; ///< kcal a day, or standing minutes an hour
    [[nodiscard]] std::array<GoalCircleView*, 5> goalIndicators() const;
    void deactiveteGoalIndicators();
    void setIndex(int32_t step);
    void setGoalIndicatorIndex(int32_t step);
    void setSliderIndex(int32_t step);
    void updateGoalLabel();

    Workspace& m_workspace;
    SetupViewControllerDelegate* m_delegate = nullptr;
    ActivityManager m_activityGoalManager;
    std::unique_ptr<Ui::SetupView> m_ui;
    SetupEntries m_entries;
    MemoryRow m_memories;
    std::vector<NotificationCenter::Observation> m_observations;
    std::vector<AdoptedDesk::Observation> m_heights;
    QPointer<QWidget> m_view;
};
