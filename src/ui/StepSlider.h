#pragma once

#include "ui/FocusMark.h"
#include "ui/SliderCell.h"

#include <QSlider>

/// A horizontal slider with the steps 0 to 4, at 2 at first. Screens listen to valueChanged(): mouse, arrow
/// keys, wheel (while it has the focus) and screen readers all arrive there. From right to left in
/// right-to-left layouts. In Designer forms it is promoted from QSlider.
class StepSlider final : public QSlider {
    Q_OBJECT

public:
    explicit StepSlider(QWidget* parent = nullptr);

    [[nodiscard]] const SliderCell& cell() const { return m_cell; }
    /// Where the knob stands now.
    [[nodiscard]] QRectF knobRect() const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    [[nodiscard]] int shownValue() const;
    void moveTo(double x);

    SliderCell m_cell = SliderCell::withPictures();
    FocusMark m_focusMark {*this};
};
