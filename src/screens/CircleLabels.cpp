#include "screens/CircleLabels.h"

#include <QFontMetrics>
#include <QLabel>
#include <QPalette>

#include <cmath>

namespace {
constexpr int kSideMargin = 6;
// The circles were drawn for a typeface with lines of this height; the fallback's are taller.
constexpr double kLineHeight = 1.2;

void centerHorizontally(QLabel& label, int top)
{
    label.move((label.parentWidget()->width() - label.width()) / 2, top);
}
}

QLabel* createCircleLabel(QWidget& circle, const QColor& color)
{
    auto* label = new QLabel(&circle);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignCenter);
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, color);
    label->setPalette(palette);
    return label;
}

void setCircleLabelText(QLabel& label, const QString& text)
{
    const int room = label.parentWidget()->width() - 2 * kSideMargin;
    label.setText(label.fontMetrics().elidedText(text.toUpper(), Qt::ElideRight, room));
    label.adjustSize();
    label.resize(label.width(), int(std::lround(label.font().pixelSize() * kLineHeight)));
}

void layOutCircleLabels(QLabel& value, QLabel& title, double valueOffset, int gap)
{
    const double middle = value.parentWidget()->height() / 2.0 + valueOffset;
    centerHorizontally(value, int(std::lround(middle - value.height() / 2.0)));
    centerHorizontally(title, value.geometry().bottom() + 1 + gap);
}
