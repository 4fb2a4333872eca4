#include "platform/linux/KdeIdleBackend.h"

#include "idle-client-protocol.h"

KdeIdleBackend::KdeIdleBackend(double pauseSeconds)
    : WaylandIdleBackend(org_kde_kwin_idle_interface, pauseSeconds)
{
}

wl_proxy* KdeIdleBackend::watch(wl_proxy* notifier, wl_seat* seat, uint32_t pauseMs)
{
    static const org_kde_kwin_idle_timeout_listener kListener {
        [](void* self, org_kde_kwin_idle_timeout*) { static_cast<KdeIdleBackend*>(self)->idled(); },
        [](void* self, org_kde_kwin_idle_timeout*) { static_cast<KdeIdleBackend*>(self)->resumed(); },
    };
    org_kde_kwin_idle_timeout* const timeout =
        org_kde_kwin_idle_get_idle_timeout(reinterpret_cast<org_kde_kwin_idle*>(notifier), seat, pauseMs);
    org_kde_kwin_idle_timeout_add_listener(timeout, &kListener, this);
    return reinterpret_cast<wl_proxy*>(timeout);
}
