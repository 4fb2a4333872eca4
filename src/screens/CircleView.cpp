#include "screens/CircleView.h"

#include "screens/CircleAccessibility.h"

#include <QLabel>

#include <cmath>

namespace {
constexpr int kSideMargin = 6;
// The circles were drawn for a typeface with lines of this height; the fallback's are taller.
constexpr double kLineHeight = 1.2;

QLabel* createLabel(QWidget& circle, QPalette::ColorRole role)
{
    auto* label = new QLabel(&circle);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignCenter);
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    label->setForegroundRole(role);
    return label;
}

void setLabelText(QLabel& label, const std::optional<QString>& text)
{
    if (!text)
        return;
    const int room = label.parentWidget()->width() - 2 * kSideMargin;
    label.setText(label.fontMetrics().elidedText(text->toUpper(), Qt::ElideRight, room));
    label.adjustSize();
    label.resize(label.width(), int(std::lround(label.font().pixelSize() * kLineHeight)));
}

void centerHorizontally(QLabel& label, int top)
{
    label.move((label.parentWidget()->width() - label.width()) / 2, top);
}
}

CircleView::CircleView(QPalette::ColorRole role, QWidget* parent)
    : QWidget(parent)
    , m_textFieldTitle(createLabel(*this, role))
    , m_textFieldValue(createLabel(*this, role))
{
    installCircleAccessibility();
}

void CircleView::setValue(const std::optional<QString>& value)
{
    if (m_value == value)
        return;
    m_value = value;
    addConstraints();
    announce();
}

void CircleView::setTitle(const std::optional<QString>& title)
{
    if (m_title == title)
        return;
    m_title = title;
    addConstraints();
    announce();
}

QString CircleView::text() const
{
    return (m_value.value_or(QString()) + QLatin1Char(' ') + m_title.value_or(QString())).trimmed();
}

void CircleView::setVerticalOffset(double offset)
{
    m_verticalOffset = offset;
    addConstraints();
}

void CircleView::layOutLabels(double rise, int gap)
{
    setLabelText(*m_textFieldValue, m_value);
    setLabelText(*m_textFieldTitle, m_title);
    const double middle = height() / 2.0 - rise - m_verticalOffset;
    centerHorizontally(*m_textFieldValue, int(std::lround(middle - m_textFieldValue->height() / 2.0)));
    centerHorizontally(*m_textFieldTitle, m_textFieldValue->geometry().bottom() + 1 + gap);
}

void CircleView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    addConstraints();
}
