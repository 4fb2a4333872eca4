#include "ui/SpokenLabel.h"

#include "ui/Accessibility.h"

#include <QAccessible>
#include <QTextDocumentFragment>

SpokenLabel::SpokenLabel(QWidget* parent)
    : QLabel(parent)
{
    installControlAccessibility();
}

void SpokenLabel::setText(const QString& text)
{
    if (text == this->text())
        return;
    QLabel::setText(text);
    if (text.isEmpty() || !isVisible() || !QAccessible::isActive())
        return;
    // Screen readers speak a notification that appears; Qt hands no alert on.
    QAccessibleEvent event(this, QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&event);
}

QString SpokenLabel::plainText() const
{
    return Qt::mightBeRichText(text()) ? QTextDocumentFragment::fromHtml(text()).toPlainText() : text();
}
