#include "ui/Dissolve.h"

#include "platform/RunLoop.h"
#include "ui/Motion.h"

#include <QPainter>
#include <QWidget>

#include <algorithm>

namespace {
constexpr double kFrameSeconds = 0.02;

/// A picture of what was, over what is.
class OldLook final : public QWidget {
public:
    explicit OldLook(QWidget& widget)
        : QWidget(&widget)
        , m_picture(widget.grab())
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setGeometry(widget.rect());
    }
    void fade()
    {
        m_startedAt = RunLoop::main().monotonicNow();
        m_timers.schedule(
            kFrameSeconds, RunLoop::Repeat::Yes, [this](Timer& timer) { step(timer); }, {},
            RunLoop::Precision::Precise);
        show();
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setOpacity(1 - done());
        painter.drawPixmap(0, 0, m_picture);
    }

private:
    [[nodiscard]] double done() const
    {
        return std::min((RunLoop::main().monotonicNow() - m_startedAt) / kDissolveSeconds, 1.0);
    }
    void step(Timer& timer)
    {
        update();
        if (done() < 1)
            return;
        timer.invalidate();
        deleteLater();
    }

    QPixmap m_picture;
    double m_startedAt = 0;
    TimerScope m_timers;
};
}

void dissolve(QWidget& widget, const std::function<void()>& change)
{
    auto* const oldLook = Motion::isReduced() || !widget.isVisible() ? nullptr : new OldLook(widget);
    change();
    if (oldLook)
        oldLook->fade();
}
