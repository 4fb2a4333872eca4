#include "ui/HyperLinkTextField.h"

#include "ui/Palette.h"

#include <QFocusEvent>

#include <utility>

HyperLinkTextField::HyperLinkTextField(QWidget* parent)
    : SpokenLabel(parent)
{
    setWordWrap(true);
    setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    setFocusPolicy(Qt::NoFocus);
    connect(this, &QLabel::linkActivated, this, [this](const QString& address) {
        if (m_opener)
            m_opener(QUrl(address));
    });
}

void HyperLinkTextField::setText(const QString& text)
{
    m_linkColor = hexadecimalValue(zelvoHoverColor());
    setFocusPolicy(text.contains(QLatin1String("<a href")) ? Qt::StrongFocus : Qt::NoFocus);
    SpokenLabel::setText(text);
}

void HyperLinkTextField::setOpener(Opener opener)
{
    m_opener = std::move(opener);
}

void HyperLinkTextField::changeEvent(QEvent* event)
{
    QLabel::changeEvent(event);
    if (event->type() != QEvent::PaletteChange || m_linkColor.isEmpty())
        return;
    const QString color = hexadecimalValue(zelvoHoverColor());
    QLabel::setText(
        text().replace(std::exchange(m_linkColor, color), color)); // Links have theirs in the text.
}

void HyperLinkTextField::focusInEvent(QFocusEvent* event)
{
    QLabel::focusInEvent(event);
    // Straight on to a link: the text itself would take a Tab and show no mark.
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason)
        focusNextPrevChild(event->reason() == Qt::TabFocusReason);
}
