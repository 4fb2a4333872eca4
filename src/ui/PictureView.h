#pragma once

#include "ui/Picture.h"

#include <QWidget>

/// Shows one of the program's pictures, scaled to the widget. Decoration: screen readers pass over it.
class PictureView final : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString pictureName READ pictureName WRITE setPictureNamed)

public:
    explicit PictureView(QWidget* parent = nullptr);

    [[nodiscard]] QString pictureName() const { return m_picture.name(); }
    void setPictureNamed(const QString& name);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Picture m_picture;
};
