#pragma once

#include <QWidget>

/// A rounded surface in the colour of its background role.
class CardView final : public QWidget {
    Q_OBJECT

public:
    explicit CardView(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};
