#include "platform/linux/ExtIdleBackend.h"

#include "ext-idle-notify-v1-client-protocol.h"

ExtIdleBackend::ExtIdleBackend(double pauseSeconds)
    : WaylandIdleBackend(ext_idle_notifier_v1_interface, pauseSeconds)
{
}

wl_proxy* ExtIdleBackend::watch(wl_proxy* notifier, wl_seat* seat, uint32_t pauseMs)
{
    static const ext_idle_notification_v1_listener kListener {
        [](void* self, ext_idle_notification_v1*) { static_cast<ExtIdleBackend*>(self)->idled(); },
        [](void* self, ext_idle_notification_v1*) { static_cast<ExtIdleBackend*>(self)->resumed(); },
    };
    ext_idle_notification_v1* const notification = ext_idle_notifier_v1_get_idle_notification(
        reinterpret_cast<ext_idle_notifier_v1*>(notifier), pauseMs, seat);
    ext_idle_notification_v1_add_listener(notification, &kListener, this);
    return reinterpret_cast<wl_proxy*>(notification);
}
