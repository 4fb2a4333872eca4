#include "ui/ButtonPainter.h"

#include "ui/FocusMark.h"
#include "ui/Palette.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QSize>

#include <algorithm>
#include <cmath>

namespace {
constexpr qreal kRadius = 4;
constexpr qreal kHorizontalPadding = 10;
constexpr qreal kVerticalPadding = 6;
constexpr qreal kGap = 6;

bool showsTitle(const ButtonState& state)
{
    return state.toolButtonStyle != Qt::ToolButtonIconOnly || state.image.isNull();
}

/// Spaces around a title would push it off the middle.
QString shownTitle(const ButtonState& state)
{
    return showsTitle(state) ? state.title.trimmed() : QString();
}

QFont titleFont(const ButtonState& state)
{
    QFont font = state.font;
    font.setUnderline(state.isUnderlined);
    return font;
}

qreal horizontalPadding(const ButtonState& state)
{
    return state.backgroundColor.isValid() ? kHorizontalPadding : kHorizontalPadding / 2;
}

QSizeF titleSize(const ButtonState& state)
{
    const QString title = shownTitle(state);
    if (title.isEmpty())
        return {0, 0};
    const QFontMetricsF metrics(titleFont(state));
    return {metrics.horizontalAdvance(title), metrics.height()};
}

/// Invalid: none.
QColor shownBackground(const ButtonState& state)
{
    if (!state.isPressed)
        return state.backgroundColor;
    if (state.backgroundColor.isValid())
        return pressedColor(state.backgroundColor);
    return state.shadesWhenPressed ? zelvoPressShade() : QColor();
}

void paintBackground(QPainter& painter, const QRectF& rect, const ButtonState& state)
{
    const QColor color = shownBackground(state);
    if (!color.isValid())
        return;
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawRoundedRect(rect, kRadius, kRadius);
}

QColor shownTextColor(const ButtonState& state)
{
    const bool isFlat = !state.backgroundColor.isValid();
    const QColor color = isFlat && state.isPressed ? pressedColor(state.textColor) : state.textColor;
    return readableColor(color, isFlat ? zelvoBackgroundColor() : shownBackground(state));
}

/// A picture beside a title that had to change its colour to be read changes with it.
void paintImage(QPainter& painter, const QRectF& rect, const ButtonState& state)
{
    const bool isReadable = !state.backgroundColor.isValid() || shownTextColor(state) == state.textColor;
    if (isReadable)
        state.image.draw(painter, rect);
    else
        state.image.drawTinted(painter, rect, shownTextColor(state));
}

void paintTitle(QPainter& painter, const QRectF& rect, const ButtonState& state)
{
    const QFont font = titleFont(state);
    const QString title = QFontMetricsF(font).elidedText(shownTitle(state), Qt::ElideRight, rect.width());
    painter.setFont(font);
    painter.setPen(shownTextColor(state));
    painter.drawText(rect, Qt::AlignCenter | Qt::TextSingleLine | Qt::TextDontClip, title);
}

QRectF mirrored(const QRectF& rect, const QRectF& within, Qt::LayoutDirection direction)
{
    if (direction == Qt::LeftToRight)
        return rect;
    return {QPointF(within.left() + within.right() - rect.right(), rect.top()), rect.size()};
}

void paintBeside(QPainter& painter, const QRectF& rect, const ButtonState& state)
{
    const QSizeF image = state.image.size();
    const qreal room = rect.width() - 2 * horizontalPadding(state) - image.width() - kGap;
    const qreal title = std::clamp(room, 0.0, titleSize(state).width());
    const qreal left = rect.center().x() - (image.width() + kGap + title) / 2;
    const QRectF imageRect(
        QPointF(std::round(left), std::round(rect.center().y() - image.height() / 2)), image);
    paintImage(painter, mirrored(imageRect, rect, state.direction), state);
    if (title > 0)
        paintTitle(painter,
            mirrored(
                QRectF(imageRect.right() + kGap, rect.top(), title, rect.height()), rect, state.direction),
            state);
}

void paintBelow(QPainter& painter, const QRectF& rect, const ButtonState& state)
{
    const QSizeF image = state.image.size();
    const qreal title = titleSize(state).height();
    const qreal gap = title > 0 ? kGap / 2 : 0;
    const qreal top = rect.center().y() - (image.height() + gap + title) / 2;
    const QRectF imageRect(
        QPointF(std::round(rect.center().x() - image.width() / 2), std::round(top)), image);
    paintImage(painter, imageRect, state);
    const qreal padding = horizontalPadding(state);
    if (title > 0)
        paintTitle(painter,
            QRectF(rect.left() + padding, imageRect.bottom() + gap, rect.width() - 2 * padding, title),
            state);
}
}

void paintButton(QPainter& painter, const QRectF& rect, const ButtonState& state)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (!state.isEnabled)
        painter.setOpacity(kDisabledOpacity);
    paintBackground(painter, rect, state);
    const qreal padding = horizontalPadding(state);
    if (state.image.isNull())
        paintTitle(painter, rect.adjusted(padding, 0, -padding, 0), state);
    else if (state.toolButtonStyle == Qt::ToolButtonTextBesideIcon)
        paintBeside(painter, rect, state);
    else
        paintBelow(painter, rect, state);
    painter.restore();
    if (state.showsFocus)
        paintFocusMark(painter, rect, kRadius);
}

QSize buttonSizeHint(const ButtonState& state)
{
    const QSizeF title = titleSize(state);
    const QSizeF image = state.image.isNull() ? QSizeF(0, 0) : state.image.size();
    QSizeF size(image.width() + title.width(), std::max(image.height(), title.height()));
    if (state.toolButtonStyle == Qt::ToolButtonTextUnderIcon && !image.isEmpty())
        size = {std::max(image.width(), title.width()), image.height() + kGap / 2 + title.height()};
    else if (!image.isEmpty() && !title.isEmpty())
        size.rwidth() += kGap;
    size += QSizeF(2 * horizontalPadding(state), 2 * kVerticalPadding);
    return {int(std::ceil(size.width())), int(std::ceil(size.height()))};
}
