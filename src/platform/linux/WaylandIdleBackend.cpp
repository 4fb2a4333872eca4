#include "platform/linux/WaylandIdleBackend.h"

#include "platform/RunLoop.h"

#include <QDir>
#include <QFile>
#include <QSocketNotifier>

#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <utility>
#include <wayland-client.h>

namespace {
constexpr double kMillisecondsPerSecond = 1000.0;
/// Idle news that comes exactly one pause after watching began tells nothing: it may be the watching itself
/// that was counted from.
constexpr double kClockTolerance = 1.0;

QByteArray socketPath()
{
    const QDir folder(qEnvironmentVariable("XDG_RUNTIME_DIR"));
    const QString name = qEnvironmentVariable("WAYLAND_DISPLAY", QStringLiteral("wayland-0"));
    return QFile::encodeName(folder.absoluteFilePath(name));
}

/// libwayland's own way waits when a hung compositor has a long queue at its door. -1 when it fails.
int connectedSocket()
{
    sockaddr_un address {};
    address.sun_family = AF_UNIX;
    const QByteArray path = socketPath();
    if (size_t(path.size()) >= sizeof address.sun_path)
        return -1;
    std::memcpy(address.sun_path, path.constData(), size_t(path.size()));
    const int fd = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (fd >= 0 && ::connect(fd, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0)
        return fd;
    close(fd);
    return -1;
}

struct Disconnect {
    void operator()(wl_display* display) const { wl_display_disconnect(display); }
};
struct Destroy {
    void operator()(wl_proxy* proxy) const { wl_proxy_destroy(proxy); }
};
struct DeleteLater { // It may be what called.
    void operator()(QSocketNotifier* notifier) const
    {
        notifier->setEnabled(false);
        notifier->deleteLater();
    }
};
using Proxy = std::unique_ptr<wl_proxy, Destroy>;

/// One object that the compositor offers, bound once.
struct Global {
    Proxy proxy;
    uint32_t number = 0;

    void bind(wl_registry* registry, uint32_t itsNumber, const wl_interface& interface)
    {
        if (proxy)
            return;
        proxy.reset(static_cast<wl_proxy*>(wl_registry_bind(registry, itsNumber, &interface, 1)));
        number = itsNumber;
    }
    [[nodiscard]] bool isRemoved(uint32_t itsNumber) const { return proxy && number == itsNumber; }
};
}

struct WaylandIdleBackend::Connection {
    Connection(wl_display* its, const wl_interface& wanted)
        : display(its)
        , notifierInterface(wanted)
        , socketNotifier(new QSocketNotifier(wl_display_get_fd(its), QSocketNotifier::Read))
    {
        wl_registry* const made = wl_display_get_registry(its);
        static const wl_registry_listener kRegistryListener {&Connection::added, &Connection::removed};
        wl_registry_add_listener(made, &kRegistryListener, this);
        registry.reset(reinterpret_cast<wl_proxy*>(made));
        wl_callback* const end = wl_display_sync(its);
        static const wl_callback_listener kListListener {
            [](void* self, wl_callback*, uint32_t) { static_cast<Connection*>(self)->isListed = true; }};
        wl_callback_add_listener(end, &kListListener, this);
        endOfList.reset(reinterpret_cast<wl_proxy*>(end));
    }

    static void added(void* self, wl_registry* registry, uint32_t number, const char* interface, uint32_t)
    {
        auto& connection = *static_cast<Connection*>(self);
        if (std::strcmp(interface, wl_seat_interface.name) == 0)
            connection.seat.bind(registry, number, wl_seat_interface);
        else if (std::strcmp(interface, connection.notifierInterface.name) == 0)
            connection.notifier.bind(registry, number, connection.notifierInterface);
    }

    static void removed(void* self, wl_registry*, uint32_t number)
    {
        auto& connection = *static_cast<Connection*>(self);
        connection.isOutdated |= connection.seat.isRemoved(number) || connection.notifier.isRemoved(number);
    }

    /// Takes in what has come, without waiting; false when the connection is of no use any more.
    [[nodiscard]] bool takeEvents() const
    {
        while (wl_display_prepare_read(display.get()) != 0) {
            if (wl_display_dispatch_pending(display.get()) < 0)
                return false;
        }
        wl_display_read_events(display.get());
        wl_display_dispatch_pending(display.get());
        return !isOutdated && wl_display_get_error(display.get()) == 0;
    }

    std::unique_ptr<wl_display, Disconnect> display; // First, to go last.
    const wl_interface& notifierInterface;
    Proxy registry;
    Proxy endOfList; ///< comes after all that is offered at the start
    Global seat;
    Global notifier;
    Proxy watch;
    bool isListed = false;
    bool isOutdated = false;
    std::unique_ptr<QSocketNotifier, DeleteLater> socketNotifier;
};

WaylandIdleBackend::WaylandIdleBackend(const wl_interface& notifier, double pauseSeconds)
    : m_notifierInterface(notifier)
    , m_pauseSeconds(pauseSeconds)
    , m_lastInputAt(RunLoop::main().monotonicNow())
{
}

WaylandIdleBackend::~WaylandIdleBackend() = default;

void WaylandIdleBackend::ask(Answer answer)
{
    if (m_connection)
        read();
    if (m_answer)
        return answer(std::nullopt);
    if (!m_connection)
        connect();
    if (m_connection && !m_connection->isListed)
        m_answer = std::move(answer);
    else
        answer(lastInputAt());
}

void WaylandIdleBackend::connect()
{
    const int fd = connectedSocket();
    wl_display* const display = fd < 0 ? nullptr : wl_display_connect_to_fd(fd);
    if (!display)
        return;
    m_connection = std::make_unique<Connection>(display, m_notifierInterface);
    QSocketNotifier* const notifier = m_connection->socketNotifier.get();
    QObject::connect(notifier, &QSocketNotifier::activated, notifier, [this] { read(); });
    wl_display_flush(display);
}

void WaylandIdleBackend::read()
{
    if (!m_connection->takeEvents())
        return drop();
    if (!m_connection->watch && m_connection->seat.proxy && m_connection->notifier.proxy)
        begin();
    if (m_connection->isListed && m_answer)
        std::exchange(m_answer, {})(lastInputAt());
}

void WaylandIdleBackend::begin()
{
    m_isIdle = false;
    m_watchedSince = RunLoop::main().monotonicNow();
    m_connection->watch.reset(
        watch(m_connection->notifier.proxy.get(), reinterpret_cast<wl_seat*>(m_connection->seat.proxy.get()),
            uint32_t(m_pauseSeconds * kMillisecondsPerSecond)));
    wl_display_flush(m_connection->display.get());
}

void WaylandIdleBackend::drop()
{
    m_connection.reset();
    if (m_answer)
        std::exchange(m_answer, {})(std::nullopt);
}

void WaylandIdleBackend::idled()
{
    m_isIdle = true;
    // A compositor counts from when it was asked to: whoever was away before that is away still.
    const double pauseBegan = RunLoop::main().monotonicNow() - m_pauseSeconds;
    if (pauseBegan > m_watchedSince + kClockTolerance)
        m_lastInputAt = pauseBegan;
}

void WaylandIdleBackend::resumed()
{
    m_isIdle = false;
    m_lastInputAt = RunLoop::main().monotonicNow();
}

std::optional<double> WaylandIdleBackend::lastInputAt()
{
    if (!m_connection || !m_connection->watch)
        return std::nullopt;
    const double now = RunLoop::main().monotonicNow();
    // After a whole pause, and one more for slow news, silence says that the user is at work.
    if (!m_isIdle && now > m_watchedSince + 2 * m_pauseSeconds)
        m_lastInputAt = now;
    return m_lastInputAt;
}
