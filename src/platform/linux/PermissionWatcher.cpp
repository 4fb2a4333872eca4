#include "platform/linux/PermissionWatcher.h"

#include <QFile>
#include <QSocketNotifier>

#include <algorithm>
#include <climits>
#include <cstring>
#include <sys/inotify.h>
#include <unistd.h>
#include <utility>

PermissionWatcher::PermissionWatcher(Changed changed)
    : m_changed(std::move(changed))
{
}

PermissionWatcher::~PermissionWatcher()
{
    m_notifier.reset();
    if (m_inotify >= 0)
        close(m_inotify);
}

bool PermissionWatcher::watch(const QString& path)
{
    if (!listen())
        return false;
    const int watch = inotify_add_watch(m_inotify, QFile::encodeName(path).constData(), IN_ATTRIB);
    if (watch < 0)
        return false;
    m_paths[watch] = path;
    return true;
}

void PermissionWatcher::unwatch(const QString& path)
{
    const auto found = std::find_if(
        m_paths.begin(), m_paths.end(), [&](const auto& watched) { return watched.second == path; });
    if (found == m_paths.end())
        return;
    // Fails when the file is gone, and its watch with it.
    inotify_rm_watch(m_inotify, found->first);
    m_paths.erase(found);
}

bool PermissionWatcher::listen()
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

void PermissionWatcher::receive()
{
    alignas(inotify_event) char buffer[16 * (sizeof(inotify_event) + NAME_MAX + 1)];
    const ssize_t length = read(m_inotify, buffer, sizeof buffer);
    // What does not fit is read when the notifier speaks again.
    for (const char* next = buffer; next < buffer + length;) {
        inotify_event event {};
        memcpy(&event, next, sizeof event);
        next += sizeof event + event.len;
        handle(event.wd, event.mask);
    }
}

void PermissionWatcher::handle(int watch, uint32_t mask)
{
    const auto found = m_paths.find(watch);
    if (found == m_paths.end())
        return;
    const QString path = found->second;
    if (mask & IN_IGNORED)
        m_paths.erase(found);
    else
        m_changed(path);
}
