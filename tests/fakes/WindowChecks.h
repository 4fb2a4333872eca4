#pragma once

#include <QAbstractButton>
#include <QAccessible>
#include <QLabel>
#include <QStringList>

/// What a look at a whole window finds.
namespace WindowChecks {
inline bool hasRoomForItsText(const QWidget& widget)
{
    const auto* const label = qobject_cast<const QLabel*>(&widget);
    if (label && label->wordWrap())
        return label->heightForWidth(label->width()) <= label->height();
    return !(label || qobject_cast<const QAbstractButton*>(&widget))
        || widget.sizeHint().width() <= widget.width();
}

/// Visible labels and buttons whose text has less room than it needs, and whatever leaves its parent.
inline QStringList textsThatDoNotFit(const QWidget& window)
{
    QStringList found;
    for (const QWidget* const widget : window.findChildren<QWidget*>()) {
        if (widget->isVisible()
            && !(hasRoomForItsText(*widget) && widget->parentWidget()->rect().contains(widget->geometry())))
            found.append(widget->objectName());
    }
    return found;
}

inline QString accessibleText(QWidget& widget, QAccessible::Text kind)
{
    return QAccessible::queryAccessibleInterface(&widget)->text(kind);
}
}
