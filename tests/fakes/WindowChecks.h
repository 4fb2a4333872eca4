#pragma once

#include "ui/Button.h"

#include <QAccessible>
#include <QFontMetrics>
#include <QLabel>
#include <QScrollArea>
#include <QStringList>

/// What a look at a whole window finds. Each answer is a list to compare with the empty or the expected one.
namespace WindowChecks {
inline bool isInScrollArea(const QWidget& widget)
{
    for (const QWidget* parent = widget.parentWidget(); parent; parent = parent->parentWidget()) {
        if (qobject_cast<const QScrollArea*>(parent))
            return true;
    }
    return false;
}

inline bool isCut(const QLabel& label)
{
    if (label.wordWrap())
        return label.heightForWidth(label.width()) > label.height();
    const QRect text = label.fontMetrics().tightBoundingRect(label.text());
    return label.sizeHint().width() > label.width() || text.height() > label.height();
}

/// Visible labels and buttons whose text has less room than it needs, or that leave their parent.
inline QStringList textsThatDoNotFit(const QWidget& window)
{
    QStringList found;
    const auto note = [&found](const QWidget& widget, const QString& text) {
        found.append(widget.objectName() + QStringLiteral(": ") + text);
    };
    for (const QLabel* label : window.findChildren<QLabel*>()) {
        if (label->isVisible() && !isInScrollArea(*label) && isCut(*label))
            note(*label, label->text());
    }
    for (const Button* button : window.findChildren<Button*>()) {
        if (button->isVisible() && button->toolButtonStyle() != Qt::ToolButtonIconOnly
            && button->sizeHint().width() > button->width())
            note(*button, button->text());
    }
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        if (widget->isVisible() && !isInScrollArea(*widget)
            && !widget->parentWidget()->rect().contains(widget->geometry()))
            note(*widget, QStringLiteral("outside its parent"));
    }
    return found;
}

inline QString accessibleText(QWidget& widget, QAccessible::Text kind)
{
    return QAccessible::queryAccessibleInterface(&widget)->text(kind);
}
}
