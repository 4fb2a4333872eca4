#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

class QSocketNotifier;

/// What a desktop hands to a program that it starts, so that a window may come to the front. Either may be
/// empty.
struct ActivationToken {
    QByteArray xdgActivationToken; ///< XDG_ACTIVATION_TOKEN (Wayland)
    QByteArray desktopStartupId; ///< DESKTOP_STARTUP_ID (X11)

    static ActivationToken fromEnvironment();
};

/// Lets one instance of the program run for a user. The first start holds an advisory lock, which the kernel
/// lets go when the process ends in whatever way, and listens on a socket beside it; a further start asks it
/// there to show its window.
class SingleInstance {
public:
    using ActivationCallback = std::function<void(const ActivationToken&)>;

    /// @param folder belongs to the user alone, normally $XDG_RUNTIME_DIR; it is made when missing.
    explicit SingleInstance(QString folder = defaultFolder());
    ~SingleInstance();
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;

    static QString defaultFolder();

    /// True: this is the first instance, and it hears of further starts from now on. Also true, with a log
    /// line, where no lock can be had: a program that runs twice is better than one that does not start.
    [[nodiscard]] bool acquire();

    /// Called on the main loop of the first instance at each further start.
    void onActivated(ActivationCallback callback) { m_activated = std::move(callback); }

    /// Asks the running instance to show its window and waits for its answer. False when none came in time.
    [[nodiscard]] bool activateFirst(const ActivationToken& token, int timeoutMs = 2000) const;

private:
    struct Client;

    [[nodiscard]] bool listen();
    void acceptClients();
    void readFrom(Client& client);
    void drop(const Client& client);

    QString m_folder;
    ActivationCallback m_activated;
    int m_lock = -1;
    int m_listener = -1;
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::vector<std::unique_ptr<Client>> m_clients;
};
