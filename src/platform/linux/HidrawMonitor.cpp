#include "platform/linux/HidrawMonitor.h"

#include <QSocketNotifier>

#include <cstring>
#include <libudev.h>
#include <utility>

namespace {
template <auto unref>
struct Unref {
    template <typename T>
    void operator()(T* object) const
    {
        unref(object);
    }
};
using Context = std::unique_ptr<udev, Unref<udev_unref>>;
using Monitor = std::unique_ptr<udev_monitor, Unref<udev_monitor_unref>>;
using Enumeration = std::unique_ptr<udev_enumerate, Unref<udev_enumerate_unref>>;
using Device = std::unique_ptr<udev_device, Unref<udev_device_unref>>;

constexpr struct {
    const char* property;
    const char* attribute;
} kStrings[] = {{"Manufacturer", "manufacturer"}, {"Product", "product"}};

/// The strings are attributes of the USB device above the hidraw device; a device on another bus has none.
QMap<QString, QString> usbStrings(udev_device* device)
{
    QMap<QString, QString> strings;
    udev_device* usb = udev_device_get_parent_with_subsystem_devtype(device, "usb", "usb_device");
    if (!usb)
        return strings;
    for (const auto& [property, attribute] : kStrings) {
        if (const char* value = udev_device_get_sysattr_value(usb, attribute))
            strings.insert(QString::fromLatin1(property), QString::fromUtf8(value));
    }
    return strings;
}
}

struct HidrawMonitor::Handles {
    Context context {udev_new()};
    // Source "udev" speaks after the rules have run, when the node has its permissions.
    Monitor monitor {udev_monitor_new_from_netlink(context.get(), "udev")};
};

HidrawMonitor::HidrawMonitor(Arrived arrived, Left left)
    : m_arrived(std::move(arrived))
    , m_left(std::move(left))
{
}

HidrawMonitor::~HidrawMonitor() = default;

HidStatus HidrawMonitor::start()
{
    const HidStatus status = listen();
    return status == 0 ? enumerate() : status;
}

HidStatus HidrawMonitor::listen()
{
    m_handles = std::make_shared<Handles>();
    // libudev takes null for a monitor or an enumeration and says that it is none.
    udev_monitor* monitor = m_handles->monitor.get();
    udev_monitor_filter_add_match_subsystem_devtype(monitor, "hidraw", nullptr);
    if (const int error = udev_monitor_enable_receiving(monitor); error < 0)
        return -error;
    m_notifier = std::make_unique<QSocketNotifier>(udev_monitor_get_fd(monitor), QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] { receive(); });
    return 0;
}

HidStatus HidrawMonitor::enumerate()
{
    udev* context = m_handles->context.get();
    const Enumeration enumeration(udev_enumerate_new(context));
    udev_enumerate_add_match_subsystem(enumeration.get(), "hidraw");
    // A device whose rules have yet to run would be refused for lack of permission; the monitor reports it.
    udev_enumerate_add_match_is_initialized(enumeration.get());
    if (const int error = udev_enumerate_scan_devices(enumeration.get()); error < 0)
        return -error;
    udev_list_entry* entry = nullptr;
    udev_list_entry_foreach(entry, udev_enumerate_get_list_entry(enumeration.get()))
    {
        const Device device(udev_device_new_from_syspath(context, udev_list_entry_get_name(entry)));
        if (device)
            reportArrival(device.get());
    }
    return 0;
}

void HidrawMonitor::receive()
{
    const std::weak_ptr<Handles> alive = m_handles;
    while (const auto handles = alive.lock()) {
        const Device device(udev_monitor_receive_device(handles->monitor.get()));
        if (!device)
            return;
        const char* action = udev_device_get_action(device.get());
        if (action && strcmp(action, "remove") == 0) {
            // By now the parents are gone or lead to the hub; only the path still tells who left.
            const Left left = m_left;
            left(QString::fromUtf8(udev_device_get_syspath(device.get())));
        } else {
            reportArrival(device.get());
        }
    }
}

void HidrawMonitor::reportArrival(udev_device* device)
{
    const char* node = udev_device_get_devnode(device);
    if (!node)
        return;
    const Arrived arrived = m_arrived;
    arrived(
        {QString::fromUtf8(udev_device_get_syspath(device)), QString::fromUtf8(node), usbStrings(device)});
}
