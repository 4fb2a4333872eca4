#pragma once

#include "ui/HoverButton.h"

#include <cstdint>
#include <optional>

/// One memory on the setup screen: a desk at the height that is stored, the height in words, and the
/// position's name, which is the button's text. Screen readers hear name and height.
class MemoryCard final : public HoverButton {
    Q_OBJECT

public:
    explicit MemoryCard(QWidget* parent = nullptr);

    /// @param position raw, 0.1 mm; nothing when none is stored
    void setStoredPosition(std::optional<int32_t> position);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::optional<int32_t> m_position;
};
