#pragma once

#include <QMap>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

/// What an observer receives. `object` is the sender's subject and may be empty; the name tells its type.
struct PostedNotification {
    QString name;
    std::shared_ptr<void> object;
    QMap<QString, QString> userInfo;
};

/// In-process news by name, delivered synchronously on the main thread in the order of registration.
/// Observers that leave during a delivery hear nothing more; observers that join during a delivery hear only
/// later ones.
class NotificationCenter {
public:
    using Handler = std::function<void(const PostedNotification&)>;

    /// A registration; it ends with this object.
    class Observation {
    public:
        Observation() = default;
        ~Observation();
        Observation(Observation&& other) noexcept;
        Observation& operator=(Observation&& other) noexcept;

    private:
        friend class NotificationCenter;
        struct Entry;
        explicit Observation(std::shared_ptr<Entry> entry);
        void end();

        std::shared_ptr<Entry> m_entry;
    };

    NotificationCenter() = default;
    ~NotificationCenter() = default;
    NotificationCenter(const NotificationCenter&) = delete;
    NotificationCenter& operator=(const NotificationCenter&) = delete;

    [[nodiscard]] Observation addObserver(const QString& name, Handler handler);
    void post(const QString& name, std::shared_ptr<void> object = {}, QMap<QString, QString> userInfo = {});

    /// The application's centre.
    static NotificationCenter& defaultCenter();

private:
    void dropEnded();

    std::vector<std::shared_ptr<Observation::Entry>> m_entries;
};
