#pragma once

#include <memory>

class ZelvoHIDDevice;

/// The desk that a held button moves. Letting go stops that desk and no other: one that has come in its place
/// meanwhile was never moved by the button.
class DeskHold {
public:
    /// @return the desk to move, or null without one
    ZelvoHIDDevice* begin();
    void end();

private:
    std::weak_ptr<ZelvoHIDDevice> m_desk;
};
