#pragma once

#include <QWidget>

/// The root of the setup screen: draws nothing of its own. A press on its background ends text editing; the
/// press then goes on to the window, which may be dragged by it.
class SetupView final : public QWidget {
    Q_OBJECT

public:
    explicit SetupView(QWidget* parent = nullptr);

protected:
    void mousePressEvent(QMouseEvent* event) override;
};
