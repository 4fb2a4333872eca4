#pragma once

#include "desk/ZelvoController.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

/// What the windows ask of the one desk. The hub may not exist yet, and it may not have adopted an adapter.
namespace AdoptedDesk {
/// The hub, or null before it has been started.
[[nodiscard]] ZelvoController* hub();
/// The adopted desk, or null.
[[nodiscard]] ZelvoHIDDevice* device();
/// Whether a desk is adopted, communicates and has told its height.
[[nodiscard]] bool isActive();
/// Whether an adapter is plugged in which this user may not open.
[[nodiscard]] bool isAdapterForbidden();
/// What gives the permission, as commands for a terminal.
[[nodiscard]] QStringList permissionCommands();
/// Raw, 0.1 mm above the adapter's zero; 0 without a desk.
[[nodiscard]] int32_t position();
/// Raw height and table offset together, in whole millimetres (truncated toward zero).
[[nodiscard]] int64_t heightMillimetres(int32_t position);
/// The same as the user reads it, in the user's unit: "71 cm".
[[nodiscard]] QString heightText(int32_t position);

/// Begun minutes until the schedule wants a change, 0 when it is due; nothing while none is scheduled.
[[nodiscard]] std::optional<int32_t> minutesToChange();

/// A registration; it ends with its last copy.
using Observation = std::shared_ptr<void>;
/// Hears each new height (raw) of the hub that exists now.
[[nodiscard]] Observation observePosition(std::function<void(int32_t height)> callback);
/// Is told once the desk stands still after a movement.
[[nodiscard]] Observation observeRest(std::function<void()> callback);
}
