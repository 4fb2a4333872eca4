#include "HidTestbed.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <future>
#include <linux/hidraw.h>
#include <stdexcept>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <umockdev.h>
#include <unistd.h>
#include <utility>

namespace {
QByteArray take(gchar* text)
{
    const QByteArray copy(text);
    g_free(text);
    return copy;
}
}

HidTestbed::HidTestbed()
    : m_testbed(umockdev_testbed_new())
    , m_context(g_main_context_new())
    , m_loop(g_main_loop_new(m_context, FALSE))
    , m_thread([this] {
        g_main_context_push_thread_default(m_context);
        g_main_loop_run(m_loop);
        g_main_context_pop_thread_default(m_context);
    })
{
    // For a test that gives up its privileges: umockdev puts the sockets of listeners there.
    chmod(take(umockdev_testbed_get_root_dir(m_testbed)).constData(), 0777);
}

HidTestbed::~HidTestbed()
{
    onAdapterThread([this] { g_main_loop_quit(m_loop); });
    m_thread.join();
    g_main_loop_unref(m_loop);
    g_main_context_unref(m_context);
    g_object_unref(m_testbed);
}

std::unique_ptr<TestAdapter> HidTestbed::plug(const TestAdapter::Strings& strings)
{
    return std::make_unique<TestAdapter>(*this, m_nextNumber++, strings);
}

void HidTestbed::onAdapterThread(const std::function<void()>& callable)
{
    std::packaged_task<void()> task(callable);
    auto ended = task.get_future();
    g_main_context_invoke(
        m_context,
        [](gpointer data) -> gboolean {
            (*static_cast<std::packaged_task<void()>*>(data))();
            return G_SOURCE_REMOVE;
        },
        &task);
    ended.get();
}

TestAdapter::TestAdapter(HidTestbed& testbed, int number, const Strings& strings)
    : m_testbed(testbed)
    , m_node("/dev/hidraw" + QByteArray::number(number))
    , m_handler(umockdev_ioctl_base_new())
{
    UMockdevTestbed* bed = testbed.m_testbed;
    m_file = take(umockdev_testbed_get_root_dir(bed)) + m_node;
    const QByteArray usbName = "usb" + QByteArray::number(number);
    const QByteArray hidrawName = m_node.mid(int(strlen("/dev/")));
    m_usbPath = take(umockdev_testbed_add_device(
        bed, "usb", usbName.constData(), nullptr, nullptr, "DEVTYPE", "usb_device", nullptr));
    for (const auto& [name, value] :
        {std::pair("manufacturer", strings.manufacturer), {"product", strings.product}}) {
        if (value)
            umockdev_testbed_set_attribute(bed, m_usbPath.constData(), name, (*value + "\n").constData());
    }
    const QByteArray numbers = "240:" + QByteArray::number(number);
    m_hidrawPath = take(umockdev_testbed_add_device(bed, "hidraw", hidrawName.constData(),
        m_usbPath.constData(), "dev", numbers.constData(), nullptr, "DEVNAME", m_node.constData(), nullptr));

    // An ordinary file stands for the node; what is opened there meets the handler below.
    close(open(m_file.constData(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, 0600));

    g_signal_connect(m_handler, "handle-ioctl", G_CALLBACK(handle), this);
    testbed.onAdapterThread([&] {
        if (!umockdev_testbed_attach_ioctl(bed, m_node.constData(), m_handler, nullptr))
            throw std::runtime_error("no transfers on the emulated node");
    });
    chmod((take(umockdev_testbed_get_root_dir(bed)) + "/ioctl" + m_node).constData(), 0777);
}

TestAdapter::~TestAdapter()
{
    unplug();
    setSilent(false);
    m_testbed.onAdapterThread([this] { g_signal_handlers_disconnect_by_data(m_handler, this); });
    g_object_unref(m_handler);
}

void TestAdapter::unplug()
{
    if (!std::exchange(m_isPlugged, false))
        return;
    UMockdevTestbed* bed = m_testbed.m_testbed;
    setFailure(ENODEV);
    report("remove");
    m_testbed.onAdapterThread([&] { umockdev_testbed_detach_ioctl(bed, m_node.constData(), nullptr); });
    umockdev_testbed_remove_device(bed, m_usbPath.constData());
    unlink(m_file.constData());
}

void TestAdapter::setAnswer(Report answer)
{
    const std::lock_guard lock(m_mutex);
    m_answer = std::move(answer);
}

void TestAdapter::setFailure(int error)
{
    const std::lock_guard lock(m_mutex);
    m_failure = error;
}

void TestAdapter::setSilent(bool silent)
{
    const std::lock_guard lock(m_mutex);
    m_isSilent = silent;
    if (silent)
        return;
    for (UMockdevIoctlClient* client : m_held) {
        umockdev_ioctl_client_complete(client, -1, ETIMEDOUT);
        g_object_unref(client);
    }
    m_held.clear();
}

bool TestAdapter::isHolding() const
{
    const std::lock_guard lock(m_mutex);
    return !m_held.empty();
}

std::vector<TestAdapter::Report> TestAdapter::written() const
{
    const std::lock_guard lock(m_mutex);
    return m_written;
}

void TestAdapter::report(const char* action)
{
    umockdev_testbed_uevent(m_testbed.m_testbed, m_hidrawPath.constData(), action);
}

int TestAdapter::handle(UMockdevIoctlBase*, UMockdevIoctlClient* client, void* adapter)
{
    static_cast<TestAdapter*>(adapter)->serve(client);
    return TRUE;
}

void TestAdapter::serve(UMockdevIoctlClient* client)
{
    const std::lock_guard lock(m_mutex);
    if (m_isSilent)
        m_held.push_back(g_object_ref(client));
    else if (m_failure != 0)
        umockdev_ioctl_client_complete(client, -1, m_failure);
    else
        umockdev_ioctl_client_complete(client, transfer(client), 0);
}

long TestAdapter::transfer(UMockdevIoctlClient* client)
{
    const gulong request = umockdev_ioctl_client_get_request(client);
    const size_t size = _IOC_SIZE(request);
    UMockdevIoctlData* data =
        umockdev_ioctl_data_resolve(umockdev_ioctl_client_get_arg(client), 0, size, nullptr);
    long count = long(size);
    if (request == HIDIOCSFEATURE(size)) {
        m_written.emplace_back(data->data, data->data + size);
    } else {
        count = long(std::min(size, m_answer.size()));
        umockdev_ioctl_data_update(data, 0, m_answer.data(), int(count));
    }
    umockdev_ioctl_data_unref(data);
    return count;
}
