#include "platform/UserDefaults.h"

#include "platform/ProcessServices.h"

UserDefaults* UserDefaults::standard()
{
    return ProcessServices::installed().backends().defaults;
}
