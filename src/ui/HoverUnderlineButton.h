#pragma once

#include "ui/Button.h"

/// A button whose title is underlined while the mouse is inside. A checkable one is one of several to choose
/// from: a bar under it marks the chosen one, which whoever hears of its click decides. Screen readers meet a
/// radio button.
class HoverUnderlineButton final : public Button {
    Q_OBJECT

public:
    explicit HoverUnderlineButton(QWidget* parent = nullptr);

protected:
    [[nodiscard]] ButtonState state() const override;
    void nextCheckState() override { }
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
};
