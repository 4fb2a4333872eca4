#pragma once

#include <QWidget>

/// A container that shows what lies behind it.
class TransparentView final : public QWidget {
    Q_OBJECT

public:
    explicit TransparentView(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};
