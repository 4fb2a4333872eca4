#include "screens/MemoryRow.h"

#include "data/AppProperties.h"
#include "desk/AdoptedDesk.h"
#include "ui/Palette.h"
#include "ui_SetupView.h"

namespace {
constexpr void (AppProperties::*kSetPosition[])(int32_t) = {&AppProperties::setDevicePosition1,
    &AppProperties::setDevicePosition2, &AppProperties::setDevicePosition3};

/// How the focus goes on from a control that was pressed: as by Tab when the keyboard pressed it, so that the
/// focus mark stays in sight.
Qt::FocusReason focusReasonAfter(const QWidget& pressed)
{
    return pressed.underMouse() ? Qt::MouseFocusReason : Qt::TabFocusReason;
}

void keepPlaceWhenHidden(QWidget& widget)
{
    QSizePolicy policy = widget.sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget.setSizePolicy(policy);
}
}

void MemoryRow::awakeFromNib(MemoryViewControllerDelegate& delegate)
{
    m_editor = std::make_unique<MemoryViewController>();
    m_editor->setDelegate(&delegate);
    for (HoverButton* button : buttons()) {
        button->setAlternateBackgroundColor(zelvoHoverColor());
        keepPlaceWhenHidden(*button);
    }
    keepPlaceWhenHidden(*m_ui.labelConnection);
    updateConnectionLabel();
}

void MemoryRow::updateConnectionLabel()
{
    const bool active = isDeskActive();
    m_ui.labelConnection->setHidden(active);
    for (HoverButton* button : buttons())
        button->setEnabled(active);
}

std::array<HoverButton*, 3> MemoryRow::buttons() const
{
    return {m_ui.buttonMemory1, m_ui.buttonMemory2, m_ui.buttonMemory3};
}

void MemoryRow::edit(HoverButton& button)
{
    if (!isDeskActive())
        return;
    removeMemoryView();
    m_editor->setIndex(button.property("tag").toInt());
    QWidget* const view = m_editor->view();
    view->setParent(button.parentWidget());
    m_ui.memoryRow->addWidget(view, 0, m_editor->index() - 1);
    QWidget::setTabOrder(&button, m_editor->buttonUp());
    QWidget::setTabOrder(m_editor->buttonUp(), m_editor->buttonDown());
    QWidget::setTabOrder(m_editor->buttonDown(), m_editor->buttonDone());
    view->show();
    m_editor->buttonUp()->setFocus(focusReasonAfter(button));
    button.mouseExited();
    button.hide();
}

void MemoryRow::removeMemoryView()
{
    QWidget* const view = m_editor->view();
    m_ui.memoryRow->removeWidget(view);
    view->setParent(nullptr);
    for (HoverButton* button : buttons())
        button->show();
}

void MemoryRow::storePosition()
{
    const Qt::FocusReason reason = focusReasonAfter(*m_editor->buttonDone());
    removeMemoryView();
    const int32_t index = m_editor->index();
    if (index < 1 || index > 3)
        return;
    buttons()[size_t(index - 1)]->setFocus(reason);
    if (device()) // Without a desk there is no height; what was stored before stays.
        (AppProperties::instance().*kSetPosition[index - 1])(device()->position());
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
