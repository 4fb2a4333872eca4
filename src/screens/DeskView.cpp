#include "screens/DeskView.h"

#include "screens/DeskDrawing.h"
#include "ui/FontAndTextHandler.h"
#include "ui/Motion.h"
#include "ui/Palette.h"

#include <QPainter>

#include <algorithm>

namespace {
constexpr double kFrameSeconds = 0.025;
constexpr double kGlideSeconds = 0.2; // A held button brings a new height as often.
constexpr double kFloor = 2;
constexpr double kAboveDesk = 4;
}

DeskView::DeskView(QWidget* parent)
    : QWidget(parent)
{
}

void DeskView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    Motion::need();
    m_isActive = false; // What it shows may be from another day: no gliding from there.
    m_heights = AdoptedDesk::observePosition([this](int32_t) { follow(); });
    m_states = NotificationCenter::defaultCenter().addObserver(
        ZelvoController::kDeviceStateDidChange, [this](const PostedNotification&) { follow(); });
    follow();
}

void DeskView::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    m_heights.reset();
    m_states = {};
}

void DeskView::follow()
{
    const bool glides = m_isActive && AdoptedDesk::isActive() && !Motion::isReduced();
    m_isActive = AdoptedDesk::isActive();
    m_to = double(AdoptedDesk::heightMillimetres(AdoptedDesk::position()));
    m_from = glides ? m_shown : m_to;
    m_startedAt = RunLoop::main().monotonicNow();
    setAccessibleName(m_isActive ? AdoptedDesk::heightText(AdoptedDesk::position()) : QString());
    invalidate(m_glide);
    if (glides)
        m_glide = m_timers.schedule(
            kFrameSeconds, RunLoop::Repeat::Yes, [this](Timer&) { step(); }, {}, RunLoop::Precision::Precise);
    step();
}

void DeskView::step()
{
    const double elapsed = RunLoop::main().monotonicNow() - m_startedAt;
    const double done = std::min(elapsed / kGlideSeconds, 1.0);
    m_shown = m_from + (m_to - m_from) * done;
    if (done == 1.0)
        invalidate(m_glide);
    update();
}

void DeskView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(QRectF(0, height() - kFloor, width(), kFloor), zelvoMainLineColor());
    const QRectF room = rect().adjusted(0, 0, 0, -int(kFloor));
    paintDesk(painter, room, m_shown, m_isActive ? zelvoHoverColor() : zelvoMainLineColor());
    if (!m_isActive)
        return;
    painter.setPen(zelvoTextColor());
    painter.setFont(FontAndTextHandler::Roman30());
    painter.drawText(room.adjusted(0, 0, 0, -deskDrawingHeight(room, m_shown) - kAboveDesk),
        Qt::AlignHCenter | Qt::AlignBottom, AdoptedDesk::heightText(AdoptedDesk::position()));
}
