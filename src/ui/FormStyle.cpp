#include "ui/FormStyle.h"

#include "data/AppProperties.h"
#include "ui/FontAndTextHandler.h"

#include <QLabel>

namespace {
void applyTypeface(QWidget& widget, const QString& typeface)
{
    const auto* const label = qobject_cast<QLabel*>(&widget);
    if (typeface.isEmpty() || !label || !label->wordWrap())
        return;
    QFont font = label->font();
    font.setFamily(typeface);
    widget.setFont(font);
}
}

void applyFormStyle(QWidget& form)
{
    const QString typeface = AppProperties::instance().zelvoFontName();
    for (QWidget* widget : form.findChildren<QWidget*>()) {
        applyTypeface(*widget, typeface);
        if (widget->dynamicPropertyNames().isEmpty())
            continue;
        if (const QVariant font = widget->property("textStyle"); font.isValid())
            widget->setFont(FontAndTextHandler::named(font.toByteArray()));
        if (const QVariant role = widget->property("foregroundRole"); role.isValid())
            widget->setForegroundRole(role.value<QPalette::ColorRole>());
        if (const QVariant role = widget->property("backgroundRole"); role.isValid())
            widget->setBackgroundRole(role.value<QPalette::ColorRole>());
    }
}
