#include "desk/DeskHold.h"

#include "desk/AdoptedDesk.h"

ZelvoHIDDevice* DeskHold::begin()
{
    m_desk = AdoptedDesk::hub() ? AdoptedDesk::hub()->device() : nullptr;
    return AdoptedDesk::device();
}

void DeskHold::end()
{
    const auto desk = m_desk.lock();
    m_desk.reset();
    if (desk && desk.get() == AdoptedDesk::device())
        desk->stop();
}
