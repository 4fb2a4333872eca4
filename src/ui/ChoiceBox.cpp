#include "ui/ChoiceBox.h"

#include "ui/Palette.h"

#include <QPainter>
#include <QStyle>

#include <algorithm>
#include <iterator>

namespace {
constexpr qreal kRadius = 4;
constexpr int kPadding = 10;
constexpr int kArrowWidth = 10;
constexpr int kGap = 8;
constexpr qreal kArrowLine = 1.5;

void paintArrow(QPainter& painter, const QRectF& rect)
{
    const QPointF arrow[] = {rect.topLeft(), {rect.center().x(), rect.bottom()}, rect.topRight()};
    painter.setPen(QPen(zelvoTextColor(), kArrowLine, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(arrow, int(std::size(arrow)));
}
}

ChoiceBox::ChoiceBox(QWidget* parent)
    : QComboBox(parent)
{
}

QSize ChoiceBox::sizeHint() const
{
    int longest = 0;
    for (int index = 0; index < count(); ++index)
        longest = std::max(longest, fontMetrics().horizontalAdvance(itemText(index)));
    return {kPadding + longest + kGap + kArrowWidth + kPadding, QComboBox::sizeHint().height()};
}

void ChoiceBox::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(zelvoButtonDarkBackgroundColor());
    painter.drawRoundedRect(rect(), kRadius, kRadius);
    const auto place = [this](Qt::Alignment side, QSize size) {
        const QRect inside = rect().adjusted(kPadding, 0, -kPadding, 0);
        return QStyle::alignedRect(layoutDirection(), side | Qt::AlignVCenter, size, inside);
    };
    const QSize room(width() - 2 * kPadding - kArrowWidth - kGap, height());
    const Qt::Alignment side = QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft);
    painter.setPen(zelvoTextColor());
    painter.drawText(place(Qt::AlignLeft, room), int(side | Qt::AlignVCenter), currentText());
    paintArrow(painter, place(Qt::AlignRight, {kArrowWidth, kArrowWidth / 2}));
    if (m_focusMark.isVisible())
        paintFocusMark(painter, rect(), kRadius);
}
