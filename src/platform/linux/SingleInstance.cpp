#include "platform/linux/SingleInstance.h"

#include "platform/Log.h"

#include <QDir>
#include <QFile>
#include <QSocketNotifier>
#include <QStandardPaths>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <utility>

namespace {
constexpr int kRetryMs = 50;
constexpr qsizetype kLongestRequest = 4096;
constexpr size_t kMostClients = 8;
constexpr char kAnswer[] = "shown\n";

QString lockPath(const QString& folder)
{
    return folder + QStringLiteral("/org.zelvo.StandUp.lock");
}

QString systemError()
{
    return QString::fromLocal8Bit(strerror(errno));
}

/// The socket's address; false when the path is too long for one.
bool makeAddress(const QString& folder, sockaddr_un& address)
{
    const QByteArray path = QFile::encodeName(folder + QStringLiteral("/org.zelvo.StandUp.socket"));
    address = {};
    address.sun_family = AF_UNIX;
    if (size_t(path.size()) >= sizeof address.sun_path)
        return false;
    std::copy(path.begin(), path.end(), address.sun_path);
    return true;
}

const sockaddr* generic(const sockaddr_un& address)
{
    return reinterpret_cast<const sockaddr*>(&address);
}

bool isSameUser(int socket)
{
    ucred peer {};
    socklen_t length = sizeof peer;
    return getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &peer, &length) == 0 && peer.uid == getuid();
}

/// Line by line, name=value. Line ends inside a value would start a line of their own; real tokens have none.
QByteArray encoded(const ActivationToken& token)
{
    return "XDG_ACTIVATION_TOKEN=" + token.xdgActivationToken.simplified()
        + "\nDESKTOP_STARTUP_ID=" + token.desktopStartupId.simplified() + "\n";
}

ActivationToken decoded(const QByteArray& request)
{
    ActivationToken token;
    const QList<QByteArray> lines = request.split('\n');
    for (const QByteArray& line : lines) {
        const qsizetype split = line.indexOf('=');
        if (line.startsWith("XDG_ACTIVATION_TOKEN="))
            token.xdgActivationToken = line.mid(split + 1);
        else if (line.startsWith("DESKTOP_STARTUP_ID="))
            token.desktopStartupId = line.mid(split + 1);
    }
    return token;
}

/// Sends the request and waits for the answer on a connected socket, which has its timeouts set.
bool converse(int socket, const QByteArray& request)
{
    if (send(socket, request.constData(), size_t(request.size()), MSG_NOSIGNAL) != request.size())
        return false;
    shutdown(socket, SHUT_WR);
    char answer[sizeof kAnswer - 1];
    return recv(socket, answer, sizeof answer, MSG_WAITALL) == ssize_t(sizeof answer);
}
}

struct SingleInstance::Client {
    explicit Client(int connected)
        : socket(connected)
        , notifier(connected, QSocketNotifier::Read)
    {
    }
    ~Client()
    {
        notifier.setEnabled(false);
        close(socket);
    }
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;

    int socket;
    QSocketNotifier notifier;
    QByteArray request;
};

ActivationToken ActivationToken::fromEnvironment()
{
    return {qgetenv("XDG_ACTIVATION_TOKEN"), qgetenv("DESKTOP_STARTUP_ID")};
}

SingleInstance::SingleInstance(QString folder)
    : m_folder(std::move(folder))
{
}

SingleInstance::~SingleInstance()
{
    m_clients.clear();
    m_notifier.reset();
    if (m_listener >= 0)
        close(m_listener);
    // Socket and lock file stay: taking them away would race with a start that has just opened them.
    if (m_lock >= 0)
        close(m_lock);
}

QString SingleInstance::defaultFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
}

bool SingleInstance::acquire()
{
    QDir().mkpath(m_folder);
    m_lock = open(QFile::encodeName(lockPath(m_folder)).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (m_lock >= 0 && flock(m_lock, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
        close(std::exchange(m_lock, -1));
        return false;
    }
    if (m_lock < 0)
        Log::line(QStringLiteral("A second start will not be noticed, %1: %2")
                      .arg(lockPath(m_folder), systemError()));
    else if (!listen())
        Log::line(QStringLiteral("A second start cannot show this one's window: %1").arg(systemError()));
    return true;
}

bool SingleInstance::activateFirst(const ActivationToken& token, int timeoutMs) const
{
    sockaddr_un address {};
    if (!makeAddress(m_folder, address))
        return false;
    const QByteArray request = encoded(token);
    // The first instance may hold its lock already and not listen yet, so a refused connection is tried
    // again.
    for (int waitedMs = 0; waitedMs < timeoutMs; waitedMs += kRetryMs) {
        const int connection = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        const timeval timeout {timeoutMs / 1000, timeoutMs % 1000 * 1000};
        setsockopt(connection, SOL_SOCKET, SO_RCVTIMEO, &timeout, sizeof timeout);
        setsockopt(connection, SOL_SOCKET, SO_SNDTIMEO, &timeout, sizeof timeout);
        const bool connected = connect(connection, generic(address), sizeof address) == 0;
        const bool answered = connected && converse(connection, request);
        close(connection);
        if (connected)
            return answered;
        poll(nullptr, 0, kRetryMs);
    }
    return false;
}

bool SingleInstance::listen()
{
    sockaddr_un address {};
    if (!makeAddress(m_folder, address)) {
        errno = ENAMETOOLONG;
        return false;
    }
    m_listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    // Whoever holds the lock owns the name: a socket that is still there belongs to a process that was
    // killed.
    unlink(address.sun_path);
    if (m_listener < 0 || bind(m_listener, generic(address), sizeof address) != 0
        || ::listen(m_listener, 8) != 0)
        return false;
    m_notifier = std::make_unique<QSocketNotifier>(m_listener, QSocketNotifier::Read);
    QObject::connect(
        m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] { acceptClients(); });
    return true;
}

void SingleInstance::acceptClients()
{
    for (;;) {
        const int connection = accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
        if (connection < 0)
            return;
        if (!isSameUser(connection)) {
            close(connection);
            continue;
        }
        if (m_clients.size() == kMostClients)
            m_clients.erase(m_clients.begin()); // It connected long ago and never said a word.
        Client& client = *m_clients.emplace_back(std::make_unique<Client>(connection));
        QObject::connect(&client.notifier, &QSocketNotifier::activated, &client.notifier,
            [this, &client] { readFrom(client); });
    }
}

void SingleInstance::readFrom(Client& client)
{
    char bytes[512];
    ssize_t count = 0;
    while ((count = read(client.socket, bytes, sizeof bytes)) > 0) {
        client.request.append(bytes, count);
        if (client.request.size() > kLongestRequest)
            break;
    }
    if (count < 0 && (errno == EAGAIN || errno == EINTR))
        return;
    const bool complete = count == 0;
    const ActivationToken token = decoded(client.request);
    if (complete)
        send(client.socket, kAnswer, sizeof kAnswer - 1, MSG_NOSIGNAL);
    drop(client);
    if (complete && m_activated)
        m_activated(token);
}

void SingleInstance::drop(const Client& client)
{
    std::erase_if(m_clients, [&](const auto& other) { return other.get() == &client; });
}
