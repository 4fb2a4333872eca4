#pragma once

#include "ui/Button.h"

/// A button whose title is underlined while the mouse is inside.
class HoverUnderlineButton final : public Button {
    Q_OBJECT

public:
    explicit HoverUnderlineButton(QWidget* parent = nullptr);

protected:
    [[nodiscard]] ButtonState state() const override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
};
