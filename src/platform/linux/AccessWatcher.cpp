#include "platform/linux/AccessWatcher.h"

#include <QFile>
#include <QFileInfo>
#include <QSocketNotifier>

#include <climits>
#include <cstring>
#include <sys/inotify.h>
#include <unistd.h>
#include <utility>

AccessWatcher::AccessWatcher(Changed changed)
    : m_changed(std::move(changed))
{
}

AccessWatcher::~AccessWatcher()
{
    stopListening();
}

bool AccessWatcher::watch(const QString& path)
{
    if (!listen())
        return false;
    // The kernel lets nobody watch a file that he may not read, but its folder tells of it too.
    const QString directory = QFileInfo(path).path();
    const int number =
        inotify_add_watch(m_inotify, QFile::encodeName(directory).constData(), IN_ATTRIB | IN_ONLYDIR);
    if (number < 0)
        return false;
    m_directories[number] = directory;
    m_paths.insert(path);
    // The folder would tell of each closing of anything in it. Where the file may not be read this fails.
    const int closing = inotify_add_watch(m_inotify, QFile::encodeName(path).constData(), IN_CLOSE);
    if (closing >= 0)
        m_files[closing] = path;
    return true;
}

void AccessWatcher::unwatch(const QString& path)
{
    m_paths.erase(path);
    if (m_paths.empty())
        stopListening();
}

bool AccessWatcher::listen()
{
    if (m_notifier)
        return true;
    m_inotify = inotify_init1(IN_CLOEXEC | IN_NONBLOCK);
    if (m_inotify < 0)
        return false;
    m_notifier = std::make_unique<QSocketNotifier>(m_inotify, QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] { receive(); });
    return true;
}

void AccessWatcher::stopListening()
{
    if (!m_notifier)
        return;
    m_notifier.reset();
    close(std::exchange(m_inotify, -1));
    m_directories.clear();
    m_files.clear();
}

void AccessWatcher::receive()
{
    char buffer[16 * (sizeof(inotify_event) + NAME_MAX + 1)];
    const ssize_t length = read(m_inotify, buffer, sizeof buffer);
    // What did not fit is read when the notifier speaks again.
    for (const char* next = buffer; next < buffer + length;) {
        inotify_event event {};
        memcpy(&event, next, sizeof event);
        const char* name = next + sizeof event;
        next = name + event.len;
        const QString path =
            event.len == 0 ? m_files[event.wd] : m_directories[event.wd] + u'/' + QFile::decodeName(name);
        if (m_paths.contains(path))
            m_changed(path);
    }
}
