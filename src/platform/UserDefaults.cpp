#include "platform/UserDefaults.h"

namespace {
UserDefaults* s_standard = nullptr;
}

UserDefaults* UserDefaults::standard()
{
    return s_standard;
}

void UserDefaults::setStandard(UserDefaults* defaults)
{
    s_standard = defaults;
}
