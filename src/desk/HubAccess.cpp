#include "desk/HubAccess.h"

#include "data/AppProperties.h"

namespace {
constexpr int64_t kTenthsPerMillimetre = 10;
}

ZelvoController* hub()
{
    return AppProperties::instance().zelvoController().get();
}

ZelvoHIDDevice* device()
{
    return hub() ? hub()->device().get() : nullptr;
}

int64_t deskHeightMillimetres()
{
    const int64_t position = device() ? device()->position() : 0;
    return (position + AppProperties::instance().tablePositionOffset()) / kTenthsPerMillimetre;
}
