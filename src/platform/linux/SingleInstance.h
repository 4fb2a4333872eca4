#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <memory>

class QSocketNotifier;

/// Lets one instance of the program run for a user. The first start holds an advisory lock, which the kernel
/// lets go when the process ends in whatever way, and listens on a socket beside it; a further start asks it
/// there to show its window. Not over D-Bus: where there is no session bus, a further start must still find
/// the first.
class SingleInstance {
public:
    /// What a further start asks for.
    struct Request {
        QByteArray activationToken; ///< XDG_ACTIVATION_TOKEN, with which a desktop that starts a program lets
                                    ///< its window come to the front; may be empty
        QByteArray action; ///< the window to show; empty for the usual one
    };
    using ActivationCallback = std::function<void(const Request&)>;

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

    /// Asks the running instance to show a window and waits for its answer. False when none came in time.
    [[nodiscard]] bool activateFirst(const Request& request, int timeoutMs = 2000) const;

private:
    [[nodiscard]] bool listen();
    void answer();

    QString m_folder;
    ActivationCallback m_activated;
    int m_lock = -1;
    int m_socket = -1;
    std::unique_ptr<QSocketNotifier> m_notifier;
};
