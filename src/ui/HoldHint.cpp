#include "ui/HoldHint.h"

#include "ui/FontAndTextHandler.h"

#include <QPainter>

#include <algorithm>

namespace {
constexpr double kShownSeconds = 2.0;
/// Of its button, below the picture and the title: the desk's height above and the next row's titles stay
/// free.
constexpr int kOverlap = 9;
/// A lower button would be covered, and stands only where a line says already that it is to be held.
constexpr int kLeastButtonHeight = 32;
constexpr int kMargin = 8;
constexpr qreal kRadius = 4;
constexpr int kLeastDistance = 2; ///< from the window's edges
}

void HoldHint::showAt(QWidget& button)
{
    if (button.height() < kLeastButtonHeight)
        return;
    QWidget& window = *button.window();
    auto* hint = window.findChild<HoldHint*>();
    if (!hint)
        hint = new HoldHint(window);
    hint->placeAt(button);
    hint->show();
    invalidate(hint->m_end);
    hint->m_end =
        hint->m_timers.schedule(kShownSeconds, RunLoop::Repeat::No, [hint](Timer&) { hint->hide(); });
}

void HoldHint::hideIn(QWidget& window)
{
    if (auto* const hint = window.findChild<HoldHint*>())
        hint->hide();
}

HoldHint::HoldHint(QWidget& window)
    : SpokenLabel(&window)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFont(FontAndTextHandler::Roman14());
    setText(qtTrId("KeepHolding"));
    setContentsMargins(kMargin, kMargin / 2, kMargin, kMargin / 2);
    adjustSize();
}

void HoldHint::paintEvent(QPaintEvent*)
{
    // The window's own colours the other way round, so that it stands out from everything there.
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(QPalette::WindowText));
    painter.drawRoundedRect(rect(), kRadius, kRadius);
    painter.setPen(palette().color(QPalette::Window));
    painter.drawText(rect(), Qt::AlignCenter, text());
}

void HoldHint::placeAt(const QWidget& button)
{
    const QWidget& window = *parentWidget();
    const QPoint corner = button.mapTo(&window, QPoint());
    const int left = corner.x() + (button.width() - width()) / 2;
    const int furthest = std::max(kLeastDistance, window.width() - width() - kLeastDistance);
    const int lowest = std::max(kLeastDistance, window.height() - height() - kLeastDistance);
    move(std::clamp(left, kLeastDistance, furthest),
        std::min(corner.y() + button.height() - kOverlap, lowest));
    raise();
}
