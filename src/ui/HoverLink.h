#pragma once

#include "ui/Button.h"

/// A button that looks like a link: underlined, in the hover colour, and grey while the mouse is inside.
class HoverLink final : public Button {
    Q_OBJECT

public:
    explicit HoverLink(QWidget* parent = nullptr);

protected:
    [[nodiscard]] ButtonState state() const override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
};
