#pragma once

#include "ui/Picture.h"

#include <QWidget>

/// Shows one of the program's pictures, scaled to the widget. Decoration: screen readers pass over it.
class PictureView final : public QWidget {
    Q_OBJECT

public:
    explicit PictureView(QWidget* parent = nullptr);

    void setPicture(const Picture& picture);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Picture m_picture;
};
