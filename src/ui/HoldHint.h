#pragma once

#include "platform/RunLoop.h"
#include "ui/SpokenLabel.h"

/// A line over a button that was let go too soon: it is to be held. It goes by itself, and no click ends on
/// it.
class HoldHint final : public SpokenLabel {
    Q_OBJECT

public:
    /// A hold that ends earlier was meant as a click.
    static constexpr double kShortestHold = 0.4;

    /// Shows the line in the button's window, which has one of them.
    static void showAt(QWidget& button);
    /// Takes it away at once.
    static void hideIn(QWidget& window);

private:
    explicit HoldHint(QWidget& window);
    void placeAt(const QWidget& button);
    void paintEvent(QPaintEvent* event) override;

    TimerScope m_timers;
    TimerRef m_end;
};
