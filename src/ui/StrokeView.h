#pragma once

#include <QWidget>

/// A rule, one logical pixel thick, horizontal at first.
class StrokeView : public QWidget {
    Q_OBJECT

public:
    explicit StrokeView(QWidget* parent = nullptr);

    [[nodiscard]] bool horizontal() const { return m_horizontal; }
    void setHorizontal(bool horizontal);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool m_horizontal = true;
};
