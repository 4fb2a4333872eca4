#include "screens/CircleAccessibility.h"

#include "screens/CircleIndicatorView.h"
#include "screens/GoalCircleView.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace {
/// A circle speaks for its two labels, which are not met one by one.
class CircleInterface : public QAccessibleWidget {
public:
    using QAccessibleWidget::QAccessibleWidget;

    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] QAccessibleInterface* child(int) const override { return nullptr; }

    /// What the circle shows, after the name it was given.
    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        QString given = QAccessibleWidget::text(kind);
        if (kind != QAccessible::Name)
            return given;
        const QString shown = static_cast<CircleView*>(object())->text();
        return given.isEmpty() || shown.isEmpty() ? given + shown : given + QLatin1String(": ") + shown;
    }
};

class IndicatorInterface final : public CircleInterface, public QAccessibleValueInterface {
public:
    explicit IndicatorInterface(CircleIndicatorView* view)
        : CircleInterface(view, QAccessible::ProgressBar)
    {
    }

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface*>(this);
        // Qt would offer to increase and to decrease the value.
        return type == QAccessible::ActionInterface ? nullptr : CircleInterface::interface_cast(type);
    }

    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::Value)
            return QStringLiteral("%1 %").arg(int(percent()));
        return CircleInterface::text(kind);
    }

    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state = CircleInterface::state();
        state.readOnly = true;
        return state;
    }

    [[nodiscard]] QVariant currentValue() const override { return percent(); }
    void setCurrentValue(const QVariant&) override { }
    [[nodiscard]] QVariant minimumValue() const override { return 0.0; }
    [[nodiscard]] QVariant maximumValue() const override { return 100.0; }
    [[nodiscard]] QVariant minimumStepSize() const override { return {}; }

private:
    [[nodiscard]] double percent() const { return static_cast<CircleIndicatorView*>(object())->percent(); }
};

class GoalInterface final : public CircleInterface {
public:
    explicit GoalInterface(GoalCircleView* view)
        : CircleInterface(view, QAccessible::RadioButton)
    {
    }

    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state = CircleInterface::state();
        state.checkable = true;
        state.checked = circle().active();
        return state;
    }

    [[nodiscard]] QStringList actionNames() const override
    {
        QStringList names = CircleInterface::actionNames();
        names.prepend(pressAction());
        return names;
    }

    void doAction(const QString& name) override
    {
        if (name == pressAction())
            circle().click();
        else
            CircleInterface::doAction(name);
    }

private:
    [[nodiscard]] GoalCircleView& circle() const { return *static_cast<GoalCircleView*>(object()); }
};

QAccessibleInterface* circleInterface(const QString&, QObject* object)
{
    // Owned by Qt's cache of interfaces.
    if (auto* indicator = qobject_cast<CircleIndicatorView*>(object))
        return new IndicatorInterface(indicator);
    if (auto* goal = qobject_cast<GoalCircleView*>(object))
        return new GoalInterface(goal);
    return nullptr;
}
}

void installCircleAccessibility()
{
    QAccessible::installFactory(circleInterface); // Qt keeps each factory once.
}
