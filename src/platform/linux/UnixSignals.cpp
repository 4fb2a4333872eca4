#include "platform/linux/UnixSignals.h"

#include "platform/Log.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace {
volatile sig_atomic_t s_writeEnd = -1;

void passOn(int signalNumber)
{
    const int keptErrno = errno;
    const auto number = static_cast<unsigned char>(signalNumber);
    // A full pipe already holds a request to end; one more is not missed.
    [[maybe_unused]] const ssize_t written = write(s_writeEnd, &number, sizeof number);
    errno = keptErrno;
}
}

UnixSignals::UnixSignals(Callback callback)
    : m_callback(std::move(callback))
{
    signal(SIGPIPE, SIG_IGN);
    int ends[2];
    if (pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) {
        Log::line(QStringLiteral("Signals end the program at once, without a last save: %1")
                      .arg(QString::fromLocal8Bit(strerror(errno))));
        return;
    }
    m_readEnd = ends[0];
    s_writeEnd = ends[1];
    m_notifier = std::make_unique<QSocketNotifier>(m_readEnd, QSocketNotifier::Read);
    QObject::connect(
        m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] { readSignals(); });

    struct sigaction action { };
    action.sa_handler = passOn;
    action.sa_flags = SA_RESTART;
    sigfillset(&action.sa_mask);
    for (size_t i = 0; i < kSignals.size(); ++i) {
        sigaction(kSignals[i], nullptr, &m_previous[i]);
        if (kSignals[i] != SIGHUP || m_previous[i].sa_handler != SIG_IGN)
            sigaction(kSignals[i], &action, nullptr);
    }
}

UnixSignals::~UnixSignals()
{
    if (m_readEnd < 0)
        return;
    for (size_t i = 0; i < kSignals.size(); ++i)
        sigaction(kSignals[i], &m_previous[i], nullptr);
    m_notifier.reset();
    close(std::exchange(m_readEnd, -1));
    close(s_writeEnd);
    s_writeEnd = -1;
}

void UnixSignals::readSignals()
{
    // One at a time, because the callback may end this object; the notifier speaks again while more wait.
    unsigned char number = 0;
    if (read(m_readEnd, &number, sizeof number) == sizeof number)
        m_callback(number);
}
