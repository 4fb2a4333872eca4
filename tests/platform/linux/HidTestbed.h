#pragma once

#include <QByteArray>

#include <algorithm>
#include <cerrno>
#include <condition_variable>
#include <fcntl.h>
#include <functional>
#include <linux/hidraw.h>
#include <linux/ioctl.h>
#include <map>
#include <memory>
#include <mutex>
#include <sys/stat.h>
#include <umockdev.h>
#include <unistd.h>
#include <vector>

/// What an adapter is to do, and what it did.
struct TestWire {
    using Report = std::vector<uint8_t>;

    Report answer; ///< what a read brings, which may be less than was asked for
    int failure = 0; ///< every transfer fails with this errno
    bool isSilent = false; ///< a transfer hangs; it fails with ETIMEDOUT when the silence ends
    bool isHolding = false; ///< one hangs now
    bool isShort = false; ///< a byte of each report written gets lost
    std::vector<Report> written;
};

/// An emulated USB adapter of a machine with a /sys, a /dev and a udev of its own: answers feature reports on
/// its hidraw node as the test tells it to. The test program runs under umockdev-wrapper, and its own ioctl()
/// stands for the kernel.
struct TestAdapter {
    explicit TestAdapter(const char* manufacturer = "Zelvo Ardenta A/S", const char* product = "Desk adapter")
    {
        static int s_count = 0;
        const QByteArray name = "hidraw" + QByteArray::number(++s_count);
        m_file = take(umockdev_testbed_get_root_dir(testbed())) + "/dev/" + name;
        m_usbPath = take(umockdev_testbed_add_device(testbed(), "usb", ("usb" + name).constData(), nullptr,
            "manufacturer", manufacturer, "product", product, nullptr, "DEVTYPE", "usb_device", nullptr));
        m_hidrawPath = take(umockdev_testbed_add_device(testbed(), "hidraw", name.constData(),
            m_usbPath.constData(), "dev", ("240:" + QByteArray::number(s_count)).constData(), nullptr,
            "DEVNAME", ("/dev/" + name).constData(), nullptr));
        // Its other side is none of ours.
        g_free(umockdev_testbed_add_device(testbed(), "input", ("input" + name).constData(),
            m_usbPath.constData(), nullptr, "DEVNAME", ("/dev/input" + name).constData(), nullptr));

        // An ordinary file stands for the node.
        const int file = open(m_file.constData(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, 0600);
        const std::scoped_lock lock(s_mutex);
        m_wire = &wireOf(file);
        *m_wire = {};
        close(file);
    }
    /// Transfers on an open node fail from now on, then udev says why.
    ~TestAdapter()
    {
        change([](TestWire& wire) { wire.failure = ENODEV; });
        setSilent(false);
        report("remove");
        umockdev_testbed_remove_device(testbed(), m_usbPath.constData());
        unlink(m_file.constData());
    }
    Q_DISABLE_COPY_MOVE(TestAdapter)

    void change(const std::function<void(TestWire&)>& how)
    {
        const std::scoped_lock lock(s_mutex);
        how(*m_wire);
        s_changed.notify_all();
    }
    void setSilent(bool isSilent)
    {
        change([isSilent](TestWire& wire) { wire.isSilent = isSilent; });
    }
    [[nodiscard]] TestWire wire() const
    {
        const std::scoped_lock lock(s_mutex);
        return *m_wire;
    }
    /// The node's file in the test bed, for locks.
    [[nodiscard]] const char* file() const { return m_file.constData(); }
    /// Has udev speak of the adapter once more.
    void report(const char* action) { umockdev_testbed_uevent(testbed(), m_hidrawPath.constData(), action); }

    /// What the kernel does with a feature report for the open node. -1 and errno where that fails.
    static int transfer(int file, unsigned long request, uint8_t* bytes)
    {
        std::unique_lock lock(s_mutex);
        TestWire& wire = wireOf(file);
        const int error = wire.isSilent ? ETIMEDOUT : wire.failure;
        wire.isHolding = wire.isSilent;
        s_changed.wait(lock, [&] { return !wire.isSilent; });
        wire.isHolding = false;
        const size_t size = _IOC_SIZE(request);
        if (error != 0) {
            errno = error;
            return -1;
        }
        if (request == HIDIOCSFEATURE(size)) {
            wire.written.emplace_back(bytes, bytes + size);
            return int(size) - wire.isShort;
        }
        return int(std::copy_n(wire.answer.begin(), std::min(size, wire.answer.size()), bytes) - bytes);
    }

    static TestWire& wireOf(int file)
    {
        struct stat status { };
        fstat(file, &status);
        return s_wires[status.st_ino];
    }
    static QByteArray take(gchar* text)
    {
        return std::unique_ptr<gchar, decltype(&g_free)>(text, g_free).get();
    }
    static UMockdevTestbed* testbed()
    {
        static const std::unique_ptr<UMockdevTestbed, decltype(&g_object_unref)> s_testbed(
            umockdev_testbed_new(), g_object_unref);
        return s_testbed.get();
    }

    // What the adapters' threads and the test share.
    static inline std::mutex s_mutex;
    static inline std::condition_variable s_changed;
    static inline std::map<ino_t, TestWire>
        s_wires; ///< by the node's file; they stay, a thread may hang on one

    QByteArray m_file;
    QByteArray m_usbPath;
    QByteArray m_hidrawPath;
    TestWire* m_wire = nullptr;
};
