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
#include <optional>
#include <poll.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <utility>

namespace {
constexpr int kRetryMs = 50;
constexpr size_t kLongestMessage = 8192;

QString lockPath(const QString& folder)
{
    return folder + QStringLiteral("/org.zelvo.StandUp.lock");
}

QString systemError()
{
    return QString::fromLocal8Bit(strerror(errno));
}

/// The socket's address; nothing when the path is too long for one.
std::optional<sockaddr_un> addressIn(const QString& folder)
{
    const QByteArray path = QFile::encodeName(folder + QStringLiteral("/org.zelvo.StandUp.socket"));
    sockaddr_un address {AF_UNIX, {}};
    if (size_t(path.size()) >= sizeof address.sun_path)
        return std::nullopt;
    std::copy(path.begin(), path.end(), address.sun_path);
    return address;
}

const sockaddr* generic(const sockaddr_un& address)
{
    return reinterpret_cast<const sockaddr*>(&address);
}

/// Without a path of its own: the kernel makes up a name at which the answer arrives.
int makeClient(int timeoutMs)
{
    const int client = socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    const sockaddr_un unnamed {AF_UNIX, {}};
    // Whoever has no name hears no answer, which the wait for one notices.
    static_cast<void>(bind(client, generic(unnamed), sizeof unnamed.sun_family));
    const timeval timeout {timeoutMs / 1000, timeoutMs % 1000 * 1000L};
    setsockopt(client, SOL_SOCKET, SO_RCVTIMEO, &timeout, sizeof timeout);
    setsockopt(client, SOL_SOCKET, SO_SNDTIMEO, &timeout, sizeof timeout);
    return client;
}
}

SingleInstance::SingleInstance(QString folder)
    : m_folder(std::move(folder))
{
}

SingleInstance::~SingleInstance()
{
    m_notifier.reset();
    // Socket and lock file stay: taking them away would race with a start that has just opened them.
    for (const int descriptor : {m_socket, m_lock}) {
        if (descriptor >= 0)
            close(descriptor);
    }
}

QString SingleInstance::defaultFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
}

bool SingleInstance::acquire()
{
    QDir().mkpath(m_folder);
    m_lock = open(QFile::encodeName(lockPath(m_folder)).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (m_lock >= 0 && flock(m_lock, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK)
        return false;
    if (m_lock < 0)
        Log::line(QStringLiteral("A second start will not be noticed, %1: %2")
                      .arg(lockPath(m_folder), systemError()));
    else if (!listen())
        Log::line(QStringLiteral("A second start cannot show this one's window: %1").arg(systemError()));
    return true;
}

bool SingleInstance::activateFirst(const Request& request, int timeoutMs) const
{
    const QByteArray message = request.action + '\n' + request.activationToken;
    const auto first = addressIn(m_folder);
    const int client = makeClient(timeoutMs);
    // The first instance may hold its lock already and not listen yet, so a refused request is repeated.
    bool isSent = false;
    for (int waitedMs = 0; first && !isSent && waitedMs < timeoutMs; waitedMs += kRetryMs) {
        isSent =
            sendto(client, message.constData(), size_t(message.size()), 0, generic(*first), sizeof *first)
            >= 0;
        if (!isSent)
            poll(nullptr, 0, kRetryMs);
    }
    char answer = 0;
    const bool isAnswered = isSent && recv(client, &answer, sizeof answer, 0) == sizeof answer;
    close(client);
    return isAnswered;
}

bool SingleInstance::listen()
{
    const auto address = addressIn(m_folder);
    if (!address) {
        errno = ENAMETOOLONG;
        return false;
    }
    m_socket = socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    // Whoever holds the lock owns the name: a socket that is still there belongs to a process that was
    // killed.
    unlink(address->sun_path);
    if (m_socket < 0 || bind(m_socket, generic(*address), sizeof *address) != 0)
        return false;
    m_notifier = std::make_unique<QSocketNotifier>(m_socket, QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] { answer(); });
    return true;
}

void SingleInstance::answer()
{
    char message[kLongestMessage];
    sockaddr_un sender {};
    socklen_t senderLength = sizeof sender;
    const ssize_t length =
        recvfrom(m_socket, message, sizeof message, 0, reinterpret_cast<sockaddr*>(&sender), &senderLength);
    if (length < 0)
        return;
    sendto(m_socket, "!", 1, 0, generic(sender), senderLength);
    const QByteArray received(message, length);
    const qsizetype end = received.indexOf('\n');
    if (m_activated)
        m_activated({received.mid(end + 1), received.left(end)});
}
