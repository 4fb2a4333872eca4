#include "HidTestbed.h"

#include <algorithm>
#include <cerrno>
#include <condition_variable>
#include <cstdarg>
#include <fcntl.h>
#include <linux/hidraw.h>
#include <linux/ioctl.h>
#include <map>
#include <mutex>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <umockdev.h>
#include <unistd.h>
#include <utility>

/// What the adapter's thread and the test share.
struct TestWire {
    int transfer(unsigned long request, uint8_t* bytes);

    std::mutex mutex;
    std::condition_variable silenceEnded;
    TestAdapter::Report answer;
    int failure = 0;
    bool isSilent = false;
    bool isHolding = false;
    std::vector<TestAdapter::Report> written;
};

int TestWire::transfer(unsigned long request, uint8_t* bytes)
{
    std::unique_lock lock(mutex);
    const int error = isSilent ? ETIMEDOUT : failure;
    isHolding = isSilent;
    silenceEnded.wait(lock, [this] { return !isSilent; });
    isHolding = false;
    if (error != 0) {
        errno = error;
        return -1;
    }
    const size_t size = _IOC_SIZE(request);
    if (request == HIDIOCSFEATURE(size)) {
        written.emplace_back(bytes, bytes + size);
        return int(size);
    }
    const size_t count = std::min(size, answer.size());
    std::copy_n(answer.begin(), count, bytes);
    return int(count);
}

namespace {
QByteArray take(gchar* text)
{
    QByteArray copy(text);
    g_free(text);
    return copy;
}

ino_t inodeOf(int file)
{
    struct stat status { };
    fstat(file, &status);
    return status.st_ino;
}

std::mutex s_wiresMutex;
std::map<ino_t, std::shared_ptr<TestWire>> s_wires; ///< by the node's file

std::shared_ptr<TestWire> wireOf(int file)
{
    const std::lock_guard lock(s_wiresMutex);
    return s_wires.at(inodeOf(file));
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
    return wireOf(file)->transfer(request, static_cast<uint8_t*>(argument));
}

HidTestbed::HidTestbed()
    : m_testbed(umockdev_testbed_new())
{
    // For a test that gives up its privileges: umockdev has sockets of its own there.
    const QByteArray root = take(umockdev_testbed_get_root_dir(m_testbed));
    chmod(root.constData(), 0777);
    chmod((root + "/ioctl/_default").constData(), 0777);
}

HidTestbed::~HidTestbed()
{
    g_object_unref(m_testbed);
}

std::unique_ptr<TestAdapter> HidTestbed::plug(const TestAdapter::Strings& strings)
{
    return std::make_unique<TestAdapter>(m_testbed, m_nextNumber++, strings);
}

TestAdapter::TestAdapter(UMockdevTestbed* testbed, int number, const Strings& strings)
    : m_testbed(testbed)
    , m_wire(std::make_shared<TestWire>())
{
    const QByteArray name = "hidraw" + QByteArray::number(number);
    m_file = take(umockdev_testbed_get_root_dir(testbed)) + "/dev/" + name;
    m_usbPath = take(umockdev_testbed_add_device(
        testbed, "usb", ("usb" + name).constData(), nullptr, nullptr, "DEVTYPE", "usb_device", nullptr));
    for (const auto& [attribute, value] :
        {std::pair("manufacturer", strings.manufacturer), {"product", strings.product}}) {
        if (value)
            umockdev_testbed_set_attribute(testbed, m_usbPath.constData(), attribute, value->constData());
    }
    m_hidrawPath = take(umockdev_testbed_add_device(testbed, "hidraw", name.constData(),
        m_usbPath.constData(), "dev", ("240:" + QByteArray::number(number)).constData(), nullptr, "DEVNAME",
        ("/dev/" + name).constData(), nullptr));

    // An ordinary file stands for the node.
    const int file = open(m_file.constData(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, 0600);
    const std::lock_guard lock(s_wiresMutex);
    s_wires[inodeOf(file)] = m_wire;
    close(file);
}

/// Transfers on an open node fail from now on, then udev says why.
TestAdapter::~TestAdapter()
{
    setFailure(ENODEV);
    setSilent(false);
    report("remove");
    umockdev_testbed_remove_device(m_testbed, m_usbPath.constData());
    unlink(m_file.constData());
}

void TestAdapter::setAnswer(Report answer)
{
    const std::lock_guard lock(m_wire->mutex);
    m_wire->answer = std::move(answer);
}

void TestAdapter::setFailure(int error)
{
    const std::lock_guard lock(m_wire->mutex);
    m_wire->failure = error;
}

void TestAdapter::setSilent(bool silent)
{
    const std::lock_guard lock(m_wire->mutex);
    m_wire->isSilent = silent;
    m_wire->silenceEnded.notify_all();
}

bool TestAdapter::isHolding() const
{
    const std::lock_guard lock(m_wire->mutex);
    return m_wire->isHolding;
}

std::vector<TestAdapter::Report> TestAdapter::written() const
{
    const std::lock_guard lock(m_wire->mutex);
    return m_wire->written;
}

void TestAdapter::report(const char* action)
{
    umockdev_testbed_uevent(m_testbed, m_hidrawPath.constData(), action);
}
