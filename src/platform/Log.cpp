#include "platform/Log.h"

#include <QByteArrayList>
#include <QFile>
#include <QSet>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <mutex>
#include <unistd.h>

namespace {
constexpr qsizetype kMostEarlyLines = 100;
std::mutex s_mutex; // The worker threads of backends write lines too.
QByteArrayList s_earlyLines;
bool s_redirected = false;

/// The log names the moment at which a line was written, also while the program's own clock is a virtual one.
QByteArray head()
{
    timespec now {};
    clock_gettime(CLOCK_REALTIME, &now);
    tm local {};
    localtime_r(&now.tv_sec, &local);
    char text[64];
    const size_t length = strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &local);
    std::snprintf(
        text + length, sizeof text - length, ".%03ld StandUp[%d] ", now.tv_nsec / 1000000, getpid());
    return text;
}

void write(const QByteArray& text)
{
    fwrite(text.constData(), 1, size_t(text.size()), stderr);
    fflush(stderr);
}
}

void Log::line(const QString& message)
{
    const QByteArray text = head() + message.toUtf8() + '\n';
    const std::scoped_lock lock(s_mutex);
    write(text);
    if (!s_redirected && s_earlyLines.size() < kMostEarlyLines)
        s_earlyLines.append(text);
}

void Log::once(const QString& message)
{
    static QSet<QString> written;
    if (written.contains(message))
        return;
    written.insert(message);
    line(message);
}

bool Log::redirectToFile(const QString& path)
{
    // Opened first on a descriptor of its own: freopen() would lose standard error when the file cannot be
    // opened.
    const int file = open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    if (file < 0) {
        line(QStringLiteral("The log file %1 cannot be opened: %2")
                 .arg(path, QString::fromLocal8Bit(strerror(errno))));
        return false;
    }
    const std::scoped_lock lock(s_mutex);
    dup2(file, STDERR_FILENO);
    if (file != STDERR_FILENO) // It is, when the program was started with standard error closed.
        close(file);
    s_redirected = true;
    for (const QByteArray& early : std::as_const(s_earlyLines))
        write(early);
    s_earlyLines.clear();
    return true;
}
