#include "platform/NotificationCenter.h"

#include "platform/ProcessServices.h"

#include <utility>

struct NotificationCenter::Observation::Entry {
    QString name;
    Handler handler;
    bool live = true;
};

NotificationCenter::Observation::Observation(std::shared_ptr<Entry> entry)
    : m_entry(std::move(entry))
{
}

NotificationCenter::Observation::~Observation()
{
    end();
}

NotificationCenter::Observation::Observation(Observation&& other) noexcept
    : m_entry(std::exchange(other.m_entry, nullptr))
{
}

NotificationCenter::Observation& NotificationCenter::Observation::operator=(Observation&& other) noexcept
{
    if (this != &other) {
        end();
        m_entry = std::exchange(other.m_entry, nullptr);
    }
    return *this;
}

void NotificationCenter::Observation::end()
{
    if (m_entry)
        m_entry->live = false;
    m_entry.reset();
}

NotificationCenter::Observation NotificationCenter::addObserver(const QString& name, Handler handler)
{
    dropEnded();
    auto entry = std::make_shared<Observation::Entry>();
    entry->name = name;
    entry->handler = std::move(handler);
    m_entries.push_back(entry);
    return Observation(entry);
}

void NotificationCenter::post(
    const QString& name, std::shared_ptr<void> object, QMap<QString, QString> userInfo)
{
    const PostedNotification posted {name, std::move(object), std::move(userInfo)};
    dropEnded();
    const auto entries = m_entries; // A handler may add and remove observers.
    for (const auto& entry : entries) {
        if (entry->live && entry->name == name)
            entry->handler(posted);
    }
}

void NotificationCenter::dropEnded()
{
    std::erase_if(m_entries, [](const auto& entry) { return !entry->live; });
}

NotificationCenter& NotificationCenter::defaultCenter()
{
    return ProcessServices::installed().notificationCenter();
}
