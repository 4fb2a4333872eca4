#include "desk/DeskHold.h"

#include "desk/AdoptedDesk.h"

ZelvoHIDDevice* DeskHold::begin()
{
    m_desk = hub() ? hub()->device() : nullptr;
    return device();
}

void DeskHold::end()
{
    const auto desk = m_desk.lock();
    m_desk.reset();
    if (desk && desk.get() == device())
        desk->stop();
}
