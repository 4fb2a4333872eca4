#pragma once

#include <QString>

#include <functional>
#include <map>
#include <memory>
#include <set>

class QSocketNotifier;

/// Tells when a file may have become accessible: its permissions change, access lists included, or somebody
/// closes it. Costs nothing while no file is watched.
class AccessWatcher {
public:
    using Changed = std::function<void(const QString& path)>;

    /// The callback comes on the main run loop, several times for one change if the change has several steps.
    explicit AccessWatcher(Changed changed);
    ~AccessWatcher();
    AccessWatcher(const AccessWatcher&) = delete;
    AccessWatcher& operator=(const AccessWatcher&) = delete;

    /// Watches a file that need not be readable, by an absolute path. False when the system has no watch
    /// left.
    [[nodiscard]] bool watch(const QString& path);
    /// Does nothing for a file that is not watched.
    void unwatch(const QString& path);

private:
    [[nodiscard]] bool listen();
    void stopListening();
    void receive();

    Changed m_changed;
    int m_inotify = -1;
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::map<int, QString> m_directories; ///< by the kernel's number of the watch
    std::map<int, QString> m_files; ///< by the same number
    std::set<QString> m_paths;
};
