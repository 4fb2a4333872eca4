#pragma once

#include "platform/HidManager.h"

#include <QMap>
#include <QString>

#include <functional>
#include <memory>

class QSocketNotifier;
struct udev_device;

/// What udev tells of a hidraw device.
struct HidrawAdapter {
    QString syspath; ///< names the adapter for as long as it is plugged in
    QString node; ///< "/dev/hidraw0"
    QMap<QString, QString> strings; ///< those of "Manufacturer" and "Product" that its USB device has
};

/// Tells of hidraw devices as they come and go, whatever their make. It sleeps until udev speaks.
class HidrawMonitor {
public:
    using Arrived = std::function<void(const HidrawAdapter&)>;
    using Left = std::function<void(const QString& syspath)>;

    /// The callbacks may destroy the monitor.
    HidrawMonitor(Arrived arrived, Left left);
    ~HidrawMonitor();
    HidrawMonitor(const HidrawMonitor&) = delete;
    HidrawMonitor& operator=(const HidrawMonitor&) = delete;

    /// Starts listening, then reports what is there already. A device that comes at this very moment, or that
    /// is set up anew, is reported more than once.
    [[nodiscard]] HidStatus start();

private:
    struct Handles;

    [[nodiscard]] HidStatus listen();
    [[nodiscard]] HidStatus enumerate();
    void receive();
    void reportArrival(udev_device* device);

    Arrived m_arrived;
    Left m_left;
    std::shared_ptr<Handles> m_handles;
    std::unique_ptr<QSocketNotifier> m_notifier;
};
