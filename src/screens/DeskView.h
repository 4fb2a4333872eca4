#pragma once

#include "desk/AdoptedDesk.h"
#include "platform/NotificationCenter.h"
#include "platform/RunLoop.h"

#include <QWidget>

/// The desk as it stands now, drawn to scale, with its height in words above it. The drawing glides after a
/// desk that moves, or is just there where motion is reduced; pale while there is no desk. It listens while
/// it is on show, and has a timer while it glides.
class DeskView final : public QWidget {
    Q_OBJECT

public:
    explicit DeskView(QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void follow();
    void step();

    bool m_isActive = false;
    double m_shown = 0; ///< mm, as the three below
    double m_from = 0;
    double m_to = 0;
    double m_startedAt = 0;
    TimerScope m_timers;
    TimerRef m_glide;
    NotificationCenter::Observation m_states;
    AdoptedDesk::Observation m_heights;
};
