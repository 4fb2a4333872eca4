#pragma once

#include "desk/ZelvoController.h"

#include <functional>
#include <memory>
#include <utility>

/// A hub delegate for objects that the hub must not keep alive: it passes heights on until it is cut off.
class PositionListener final : public ZelvoControllerDelegate {
public:
    using Callback = std::function<void(int32_t height)>;

    explicit PositionListener(Callback callback)
        : m_callback(std::move(callback))
    {
    }

    /// The owner of the callback is going: nothing more arrives.
    void cutOff() { m_callback = nullptr; }

    void positionUpdated(int32_t height) override
    {
        if (m_callback)
            m_callback(height);
    }

private:
    Callback m_callback;
};
