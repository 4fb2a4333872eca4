#pragma once

#include "screens/CircleView.h"
#include "ui/Picture.h"

/// The progress ring: a value with a caption in a circle; in transparent mode over a white disc with a pie of
/// the progress. Screen readers hear value, caption and percentage.
class CircleIndicatorView final : public CircleView {
    Q_OBJECT

public:
    explicit CircleIndicatorView(QWidget* parent = nullptr);

    /// Progress, 0 to 100; the caller keeps it there.
    [[nodiscard]] double percent() const { return m_percent; }
    void setPercent(double percent);
    /// Draw disc, pie and ring; otherwise only the ring.
    [[nodiscard]] bool transparent() const { return m_transparent; }
    void setTransparent(bool transparent);
    /// Gap between value and caption. Set at most once, before the view is shown.
    [[nodiscard]] int marginBetweenValueAndTitle() const { return m_marginBetweenValueAndTitle; }
    void setMarginBetweenValueAndTitle(int margin);

    /// Whether the smaller side is more than 105: larger fonts and ring.
    [[nodiscard]] bool isLarge() const;

    [[nodiscard]] QSize sizeHint() const override { return m_image.size().toSize(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void addConstraints() override;
    void announce() override;

private:
    double m_percent = 0;
    int m_marginBetweenValueAndTitle = 0;
    bool m_transparent = false;
    Picture m_image;
    Picture m_imageLarge;
};
