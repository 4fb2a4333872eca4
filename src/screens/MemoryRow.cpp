#include "screens/MemoryRow.h"

#include "data/AppProperties.h"
#include "desk/AdoptedDesk.h"
#include "screens/MemoryCard.h"
#include "ui_SetupView.h"

#include <QApplication>

#include <optional>

namespace {
constexpr struct {
    bool (AppProperties::*isStored)() const;
    int32_t (AppProperties::*position)();
    void (AppProperties::*setPosition)(int32_t);
} kMemories[] = {
    {&AppProperties::hasDevicePosition1, &AppProperties::devicePosition1, &AppProperties::setDevicePosition1},
    {&AppProperties::hasDevicePosition2, &AppProperties::devicePosition2, &AppProperties::setDevicePosition2},
    {&AppProperties::hasDevicePosition3, &AppProperties::devicePosition3, &AppProperties::setDevicePosition3},
};

/// How the focus goes on from the control that has it: as by Tab when the keyboard brought it there, so that
/// the focus mark stays in sight.
Qt::FocusReason focusReason()
{
    const auto* const focused = qobject_cast<const Button*>(QApplication::focusWidget());
    return focused && focused->showsFocus() ? Qt::TabFocusReason : Qt::MouseFocusReason;
}
}

void MemoryRow::awakeFromNib(MemoryViewControllerDelegate& delegate)
{
    m_editor = std::make_unique<MemoryViewController>();
    m_editor->setDelegate(&delegate);
    for (MemoryCard* card : cards()) {
        card->setAlternateBackgroundRole(QPalette::Highlight);
        QSizePolicy keepsPlace = card->sizePolicy();
        keepsPlace.setRetainSizeWhenHidden(true);
        card->setSizePolicy(keepsPlace);
    }
    updateConnectionLabel();
    showStoredHeights();
}

void MemoryRow::updateConnectionLabel()
{
    const bool active = AdoptedDesk::isActive();
    m_ui.labelConnection->setHidden(active);
    for (MemoryCard* card : cards())
        card->setEnabled(active);
    showLiveHeight();
}

void MemoryRow::showStoredHeights()
{
    AppProperties& properties = AppProperties::instance();
    for (size_t i = 0; i < cards().size(); ++i) {
        const auto& [isStored, position, setPosition] = kMemories[i];
        cards()[i]->setStoredPosition(
            (properties.*isStored)() ? std::optional((properties.*position)()) : std::nullopt);
    }
}

void MemoryRow::showLiveHeight()
{
    m_editor->labelHeight()->setText(
        AdoptedDesk::isActive() ? AdoptedDesk::heightText(AdoptedDesk::position()) : QString());
}

std::array<MemoryCard*, 3> MemoryRow::cards() const
{
    return {m_ui.buttonMemory1, m_ui.buttonMemory2, m_ui.buttonMemory3};
}

void MemoryRow::edit(MemoryCard& card)
{
    if (!AdoptedDesk::isActive())
        return;
    const Qt::FocusReason reason = focusReason();
    removeMemoryView();
    m_editor->setIndex(card.property("tag").toInt());
    m_editor->labelPosition()->setText(card.text());
    showLiveHeight();
    QWidget* const view = m_editor->view();
    view->setParent(card.parentWidget());
    m_ui.memoryRow->addWidget(view, 0, m_editor->index() - 1);
    QWidget* before = &card;
    for (QWidget* button : m_editor->buttons()) {
        QWidget::setTabOrder(before, button);
        before = button;
    }
    view->show();
    m_editor->buttons().front()->setFocus(reason);
    card.mouseExited();
    card.hide();
}

void MemoryRow::removeMemoryView()
{
    QWidget* const view = m_editor->view();
    m_ui.memoryRow->removeWidget(view);
    view->setParent(nullptr);
    for (MemoryCard* card : cards())
        card->show();
}

void MemoryRow::cancel()
{
    const Qt::FocusReason reason = focusReason();
    removeMemoryView();
    const int32_t index = m_editor->index();
    if (index >= 1 && index <= 3)
        cards()[size_t(index - 1)]->setFocus(reason);
}

void MemoryRow::storePosition()
{
    cancel();
    const int32_t index = m_editor->index();
    if (index < 1 || index > 3)
        return;
    if (AdoptedDesk::device()) // Without a desk there is no height; what was stored before stays.
        (AppProperties::instance().*kMemories[index - 1].setPosition)(AdoptedDesk::device()->position());
    showStoredHeights();
}

void MemoryRow::moveUp()
{
    if (ZelvoHIDDevice* const desk = m_deskHold.begin())
        desk->moveUp();
}

void MemoryRow::moveDown()
{
    if (ZelvoHIDDevice* const desk = m_deskHold.begin())
        desk->moveDown();
}
