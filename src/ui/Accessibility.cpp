#include "ui/Accessibility.h"

#include "ui/ClickableLabel.h"
#include "ui/HoverLink.h"
#include "ui/MouseEventButton.h"
#include "ui/PanelWindow.h"
#include "ui/SpokenLabel.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace {
/// What a control that is pressed tells: its text as its name, unless it was given another, and one action.
class PressableInterface : public QAccessibleWidget {
public:
    using QAccessibleWidget::QAccessibleWidget;

    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        if (kind != QAccessible::Name)
            return QAccessibleWidget::text(kind);
        // Not what Qt makes of it, which is the title of the group around it.
        const QString given = widget()->accessibleName();
        return given.isEmpty() ? shownText().trimmed() : given;
    }

    [[nodiscard]] QStringList actionNames() const override
    {
        QStringList names = QAccessibleWidget::actionNames();
        if (canBePressed() && widget()->isEnabled())
            names.prepend(pressAction());
        return names;
    }

    void doAction(const QString& name) override
    {
        if (name != pressAction())
            QAccessibleWidget::doAction(name);
        else if (canBePressed() && widget()->isEnabled())
            press();
    }

protected:
    [[nodiscard]] virtual QString shownText() const = 0;
    [[nodiscard]] virtual bool canBePressed() const { return true; }
    virtual void press() = 0;
};

class ButtonInterface final : public PressableInterface {
public:
    explicit ButtonInterface(Button* button)
        : PressableInterface(button, QAccessible::Button)
    {
    }

    [[nodiscard]] QAccessible::Role role() const override
    {
        if (qobject_cast<HoverLink*>(&button()))
            return QAccessible::Link;
        return button().isCheckable() ? QAccessible::RadioButton : QAccessible::Button;
    }

    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state = PressableInterface::state();
        state.pressed = button().isDown();
        state.linked = role() == QAccessible::Link;
        state.checkable = button().isCheckable();
        state.checked = button().isChecked();
        return state;
    }

protected:
    [[nodiscard]] QString shownText() const override { return button().text(); }
    /// A press that a screen reader cannot end again must not start a desk.
    [[nodiscard]] bool canBePressed() const override { return !qobject_cast<MouseEventButton*>(&button()); }
    void press() override { button().click(); }

private:
    [[nodiscard]] Button& button() const { return *static_cast<Button*>(object()); }
};

class TabInterface final : public PressableInterface {
public:
    explicit TabInterface(ClickableLabel* label)
        : PressableInterface(label, QAccessible::PageTab)
    {
    }

    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state = PressableInterface::state();
        state.selectable = true;
        state.selected = label().active();
        return state;
    }

protected:
    [[nodiscard]] QString shownText() const override { return label().text(); }
    void press() override { label().click(); }

private:
    [[nodiscard]] ClickableLabel& label() const { return *static_cast<ClickableLabel*>(object()); }
};

/// Text that comes unasked.
class NotificationInterface final : public QAccessibleWidget {
public:
    explicit NotificationInterface(SpokenLabel* label)
        : QAccessibleWidget(label, QAccessible::Notification)
    {
    }

    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name ? static_cast<SpokenLabel*>(object())->plainText()
                                         : QAccessibleWidget::text(kind);
    }
};

QAccessibleInterface* controlInterface(const QString&, QObject* object)
{
    if (auto* button = qobject_cast<Button*>(object))
        return new ButtonInterface(button); // Owned by Qt's cache of interfaces.
    if (auto* label = qobject_cast<ClickableLabel*>(object))
        return new TabInterface(label);
    if (auto* label = qobject_cast<SpokenLabel*>(object))
        return new NotificationInterface(label);
    if (auto* window = qobject_cast<PanelWindow*>(object))
        return new QAccessibleWidget(
            window, window->windowType() == Qt::Dialog ? QAccessible::Dialog : QAccessible::Window);
    return nullptr;
}
}

void installControlAccessibility()
{
    QAccessible::installFactory(controlInterface); // Qt keeps each factory once.
}
