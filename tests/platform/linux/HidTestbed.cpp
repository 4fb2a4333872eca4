#include "HidTestbed.h"

#include <algorithm>
#include <cerrno>
#include <condition_variable>
#include <cstdarg>
#include <fcntl.h>
#include <linux/hidraw.h>
#include <linux/ioctl.h>
#include <map>
#include <memory>
#include <mutex>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <umockdev.h>
#include <unistd.h>

namespace {
// What the adapters' threads and the test share.
std::mutex s_mutex;
std::condition_variable s_changed;
std::map<ino_t, TestWire> s_wires; ///< by the node's file; they stay, for a thread may still hang on one

TestWire& wireOf(int file)
{
    struct stat status { };
    fstat(file, &status);
    return s_wires[status.st_ino];
}

int transfer(TestWire& wire, std::unique_lock<std::mutex>& lock, unsigned long request, uint8_t* bytes)
{
    const int error = wire.isSilent ? ETIMEDOUT : wire.failure;
    wire.isHolding = wire.isSilent;
    s_changed.wait(lock, [&] { return !wire.isSilent; });
    wire.isHolding = false;
    if (error != 0) {
        errno = error;
        return -1;
    }
    const size_t size = _IOC_SIZE(request);
    if (request == HIDIOCSFEATURE(size)) {
        wire.written.emplace_back(bytes, bytes + size);
        return int(size) - wire.isShort;
    }
    const size_t count = std::min(size, wire.answer.size());
    std::copy_n(wire.answer.begin(), count, bytes);
    return int(count);
}

QByteArray take(gchar* text)
{
    QByteArray copy(text);
    g_free(text);
    return copy;
}

UMockdevTestbed* testbed()
{
    static const std::unique_ptr<UMockdevTestbed, decltype(&g_object_unref)> s_testbed = [] {
        UMockdevTestbed* const made = umockdev_testbed_new();
        // For a test that gives up its privileges: umockdev has sockets of its own there.
        const QByteArray root = take(umockdev_testbed_get_root_dir(made));
        chmod(root.constData(), 0777);
        chmod((root + "/ioctl/_default").constData(), 0777);
        return std::unique_ptr<UMockdevTestbed, decltype(&g_object_unref)>(made, g_object_unref);
    }();
    return s_testbed.get();
}
}

/// Takes the place of the C library's for the whole test program.
extern "C" int ioctl(int file, unsigned long request, ...) noexcept
{
    va_list arguments;
    va_start(arguments, request);
    void* const argument = va_arg(arguments, void*);
    va_end(arguments);
    if (_IOC_TYPE(request) != 'H')
        return int(syscall(SYS_ioctl, file, request, argument));
    std::unique_lock lock(s_mutex);
    return transfer(wireOf(file), lock, request, static_cast<uint8_t*>(argument));
}

TestAdapter::TestAdapter(const char* manufacturer, const char* product)
{
    static int s_count = 0;
    const QByteArray name = "hidraw" + QByteArray::number(++s_count);
    m_file = take(umockdev_testbed_get_root_dir(testbed())) + "/dev/" + name;
    m_usbPath = take(umockdev_testbed_add_device(testbed(), "usb", ("usb" + name).constData(), nullptr,
        "manufacturer", manufacturer, "product", product, nullptr, "DEVTYPE", "usb_device", nullptr));
    m_hidrawPath = take(umockdev_testbed_add_device(testbed(), "hidraw", name.constData(),
        m_usbPath.constData(), "dev", ("240:" + QByteArray::number(s_count)).constData(), nullptr, "DEVNAME",
        ("/dev/" + name).constData(), nullptr));
    // Its other side is none of ours.
    g_free(umockdev_testbed_add_device(testbed(), "input", ("input" + name).constData(),
        m_usbPath.constData(), nullptr, "DEVNAME", ("/dev/input" + name).constData(), nullptr));

    // An ordinary file stands for the node.
    const int file = open(m_file.constData(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, 0600);
    const std::lock_guard lock(s_mutex);
    m_wire = &wireOf(file);
    *m_wire = {};
    close(file);
}

/// Transfers on an open node fail from now on, then udev says why.
TestAdapter::~TestAdapter()
{
    change([](TestWire& wire) { wire.failure = ENODEV; });
    setSilent(false);
    report("remove");
    umockdev_testbed_remove_device(testbed(), m_usbPath.constData());
    unlink(m_file.constData());
}

void TestAdapter::change(const std::function<void(TestWire&)>& how)
{
    const std::lock_guard lock(s_mutex);
    how(*m_wire);
    s_changed.notify_all();
}

TestWire TestAdapter::wire()
{
    const std::lock_guard lock(s_mutex);
    return *m_wire;
}

void TestAdapter::report(const char* action)
{
    umockdev_testbed_uevent(testbed(), m_hidrawPath.constData(), action);
}
