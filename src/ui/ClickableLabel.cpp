#include "ui/ClickableLabel.h"

#include "ui/Accessibility.h"
#include "ui/FontAndTextHandler.h"

#include <QAccessible>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace {
constexpr int kHorizontalMargin = 6;
constexpr int kVerticalMargin = 4;
constexpr qreal kRadius = 4;
}

ClickableLabel::ClickableLabel(QWidget* parent)
    : QLabel(parent)
{
    installControlAccessibility();
    setTextFormat(Qt::PlainText);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
}

void ClickableLabel::setText(const QString& text)
{
    if (m_originalAttribuedString.isNull())
        m_originalAttribuedString = text;
    QLabel::setText(text);
}

void ClickableLabel::setActive(bool active)
{
    const bool changes = active != m_active;
    m_active = active;
    updateView();
    if (changes && QAccessible::isActive()) {
        QAccessible::State changed;
        changed.selected = true;
        QAccessibleStateChangeEvent event(this, changed);
        QAccessible::updateAccessibility(&event);
    }
}

void ClickableLabel::toggleActive()
{
    setActive(!m_active);
}

void ClickableLabel::updateView()
{
    setFont(m_active ? FontAndTextHandler::Bold22() : FontAndTextHandler::Roman22());
    setForegroundRole(m_active ? QPalette::Link : QPalette::WindowText);
    setAlignment(Qt::AlignCenter);
}

QSize ClickableLabel::sizeHint() const
{
    QSize size;
    for (const QFont& candidate : {font(), FontAndTextHandler::Bold22(), FontAndTextHandler::Roman22()}) {
        const QFontMetrics metrics(candidate);
        size = size.expandedTo({metrics.horizontalAdvance(text()), metrics.height()});
    }
    return size + QSize(2 * kHorizontalMargin, 2 * kVerticalMargin);
}

QSize ClickableLabel::minimumSizeHint() const
{
    const int width = fontMetrics().horizontalAdvance(text().left(2) + QChar(0x2026)) + 2 * kHorizontalMargin;
    const QSize whole = sizeHint();
    return {std::min(width, whole.width()), whole.height()};
}

void ClickableLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, width());
    painter.drawText(rect(), int(alignment()) | Qt::TextSingleLine, shown);
    if (m_focusMark.isVisible())
        paintFocusMark(painter, rect(), kRadius);
}

void ClickableLabel::enterEvent(QEnterEvent* event)
{
    QLabel::enterEvent(event);
    setUnderlined(true);
}

void ClickableLabel::leaveEvent(QEvent* event)
{
    QLabel::leaveEvent(event);
    setUnderlined(false);
}

void ClickableLabel::mousePressEvent(QMouseEvent* event)
{
    // Taken, so that the release comes here too.
    event->setAccepted(event->button() == Qt::LeftButton);
}

void ClickableLabel::mouseReleaseEvent(QMouseEvent* event)
{
    // Who lets go outside has thought better of it.
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        click();
}

void ClickableLabel::keyPressEvent(QKeyEvent* event)
{
    const int key = event->key();
    if (key != Qt::Key_Space && key != Qt::Key_Return && key != Qt::Key_Enter)
        QLabel::keyPressEvent(event);
    else
        click(); // At each repetition too, which chooses what is chosen.
}

void ClickableLabel::setUnderlined(bool underlined)
{
    QFont changed = font();
    changed.setUnderline(underlined);
    setFont(changed);
}

void ClickableLabel::click()
{
    if (m_delegateClick)
        m_delegateClick->clickableLabelClicked(*this);
}
