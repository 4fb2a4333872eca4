#include "screens/MemoryCard.h"

#include "desk/AdoptedDesk.h"
#include "screens/DeskDrawing.h"
#include "ui/FontAndTextHandler.h"
#include "ui/Palette.h"

#include <QPainter>

#include <utility>

namespace {
constexpr double kDeskHeight = 64;
constexpr double kBelowDesk = 8;

QString heightText(std::optional<int32_t> position)
{
    return position ? AdoptedDesk::heightText(*position) : qtTrId("MemoryNotSet");
}

/// Draws a line of text at the top of the room and takes it away from there.
void paintLine(QPainter& painter, QRectF& room, const QFont& font, const QString& text)
{
    const QFontMetricsF metrics(font);
    painter.setFont(font);
    painter.drawText(room, Qt::AlignHCenter | Qt::AlignTop | Qt::TextSingleLine,
        metrics.elidedText(text, Qt::ElideRight, room.width()));
    room.setTop(room.top() + metrics.height());
}
}

MemoryCard::MemoryCard(QWidget* parent)
    : HoverButton(parent)
{
}

void MemoryCard::setStoredPosition(std::optional<int32_t> position)
{
    m_position = position;
    setAccessibleName(qtTrId("MemoryCardName").arg(text(), heightText(position)));
    update();
}

void MemoryCard::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    ButtonState look = state();
    const QString name = std::exchange(look.title, QString());
    paintButton(painter, rect(), look);

    const QString height = heightText(m_position);
    const QFont heightFont = FontAndTextHandler::Roman18();
    const double content =
        kDeskHeight + kBelowDesk + QFontMetricsF(heightFont).height() + fontMetrics().height();
    QRectF room = QRectF(rect()).adjusted(8, (rect().height() - content) / 2, -8, 0);
    const QColor color = readableColor(look.textColor, look.backgroundColor);
    if (!look.isEnabled)
        painter.setOpacity(kDisabledOpacity);
    if (m_position)
        paintDesk(painter, QRectF(room.topLeft(), QSizeF(room.width(), kDeskHeight)),
            double(AdoptedDesk::heightMillimetres(*m_position)), color);
    room.setTop(room.top() + kDeskHeight + kBelowDesk);
    painter.setPen(color);
    paintLine(painter, room, heightFont, height);
    paintLine(painter, room, font(), name);
}
