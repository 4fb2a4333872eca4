#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QString>
#include <QVariantMap>

/// Asks the running program from another process. No question waits longer than two seconds. What goes wrong
/// is told on standard error in one sentence; that the program does not run is told by the caller, who may
/// start it instead.
class CommandClient {
public:
    enum class Answer { Done, NotRunning, Failed };

    CommandClient();
    ~CommandClient();
    CommandClient(const CommandClient&) = delete;
    CommandClient& operator=(const CommandClient&) = delete;

    /// One of CommandService's actions. "quit" is done when the program has left the bus.
    [[nodiscard]] Answer perform(const QString& action, const QString& activationToken);
    [[nodiscard]] Answer printStatus(bool asJson);
    [[nodiscard]] Answer askStatus(QVariantMap& status) const;

    /// Says why nobody was reached, for a command that does not start the program.
    void tellNotRunning() const;
    [[nodiscard]] const QDBusConnection& bus() const { return m_bus; }
    static void tell(const QString& sentence);

private:
    [[nodiscard]] QDBusMessage call(
        const QString& interface, const QString& method, const QVariantList& arguments = {}) const;

    QDBusConnection m_bus;
};
