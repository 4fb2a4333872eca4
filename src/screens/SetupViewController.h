#pragma once

#include "data/ActivityManager.h"
#include "platform/NotificationCenter.h"
#include "screens/GoalCircleView.h"
#include "screens/MemoryRow.h"
#include "ui/ClickableLabel.h"

#include <QPointer>

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

class BackgroundTextField;
class HyperLinkTextField;
class PositionListener;
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
/// except what the memory editor stores. Activity modes: 1 calories, 2 time. Goal steps: 0 to 4.
///
/// The screen drops its view when it is closed without saving; until the next call of view() nothing that it
/// is told has an effect on anything shown.
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

    void buttonClosedClicked();
    void buttonCloseWithoutSavingClicked();
    void buttonInfoClicked();
    void buttonVideoLinkClicked();
    /// Opens the memory editor in the place of the button, whose property "tag" is the position's number.
    void buttonMemoryClicked(HoverButton& button);
    void sliderMoved();
    void clickableLabelClicked(ClickableLabel& label) override;
    void goalCircleIndicatorViewClicked(GoalCircleView& circle) override;
    /// The user changed the field's text.
    void controlTextDidChange(const QLineEdit& field);
    void controlTextDidEndEditing(const QLineEdit& field);
    void positionUpdated(int32_t height); ///< raw, 0.1 mm
    void observerDeviceStateDidChange();
    void memoryViewButtonDoneClicked() override;
    void memoryViewButtonUpMouseDown() override { m_memories.moveUp(); }
    void memoryViewButtonUpMouseUp() override { m_memories.stop(); }
    void memoryViewButtonDownMouseDown() override { m_memories.moveDown(); }
    void memoryViewButtonDownMouseUp() override { m_memories.stop(); }

    [[nodiscard]] SetupViewControllerDelegate* delegate() const { return m_delegate; }
    void setDelegate(SetupViewControllerDelegate* delegate) { m_delegate = delegate; }
    /// Null before the first view().
    [[nodiscard]] MemoryViewController* memoryViewController() const { return m_memories.editor(); }
    [[nodiscard]] const ActivityManager& activityGoalManager() const { return m_activityGoalManager; }

private:
    void awakeFromNib();
    void observe();
    void setLocalizationText();
    void setAccessibleTexts();
    void setFont();
    void setTextColor();
    void setImages();
    void connectControls();
    void setUpRefusal();
    /// Whether Done may store what the field holds. Accessibility clients write past its validator.
    [[nodiscard]] static bool isAccepted(const QLineEdit& field);
    /// Puts the stored value back and says so beside the field.
    void refuse(QLineEdit& field);
    void refill(const QLineEdit& field);
    void setUpEntryField(BackgroundTextField& field, double minValue, double maxValue, bool acceptComma);

    void setDefaultWeight();
    void setDefaultTableHeight();
    void setDefaultNumberOfStandUps();

    void showActivityMode(int32_t mode);
    [[nodiscard]] QString modeTitleFromMode(int32_t mode) const;
    [[nodiscard]] int32_t currentActivityMode() const;
    void activityModeCalories();
    void activityModeTime();
    void setTabLineForCalories();
    void setTabLineForTime();

    [[nodiscard]] std::array<GoalCircleView*, 5> goalIndicators() const;
    void deactiveteGoalIndicators();
    void setIndex(int32_t step);
    void setGoalIndicatorIndex(int32_t step);
    void setSliderIndex(int32_t step);
    void updateGoalLabel();
    void describeSlider();

    void saveTablePositionOffset();
    void dropView();

    Workspace& m_workspace;
    SetupViewControllerDelegate* m_delegate = nullptr;
    ActivityManager m_activityGoalManager;
    std::unique_ptr<Ui::SetupView> m_ui;
    MemoryRow m_memories;
    std::vector<NotificationCenter::Observation> m_observations;
    std::vector<std::shared_ptr<PositionListener>> m_positionListeners;
    QPointer<QWidget> m_view;
    HyperLinkTextField* m_refusal = nullptr; ///< Belongs to the view.
};
