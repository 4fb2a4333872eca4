#pragma once

#include <QString>

#include <functional>
#include <map>
#include <memory>

class QSocketNotifier;

/// Tells when the permissions of a file change, access lists included. Costs nothing until the first watch.
class PermissionWatcher {
public:
    using Changed = std::function<void(const QString& path)>;

    /// The callback may be called several times for one change.
    explicit PermissionWatcher(Changed changed);
    ~PermissionWatcher();
    PermissionWatcher(const PermissionWatcher&) = delete;
    PermissionWatcher& operator=(const PermissionWatcher&) = delete;

    /// False, with errno set, when the file is not there or the system has no watches left.
    [[nodiscard]] bool watch(const QString& path);
    /// Does nothing for a file that is not watched.
    void unwatch(const QString& path);

private:
    [[nodiscard]] bool listen();
    void receive();
    void handle(int watch, uint32_t mask);

    Changed m_changed;
    int m_inotify = -1;
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::map<int, QString> m_paths;
};
