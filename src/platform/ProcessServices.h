#pragma once

#include "platform/NotificationCenter.h"

#include <algorithm>
#include <memory>
#include <mutex>
#include <typeindex>
#include <utility>
#include <vector>

class Bundle;
class RunLoop;
class UserDefaults;

/// Leads to what is reached from everywhere. RunLoop::main(), Bundle::main(),
/// UserDefaults::standard() and NotificationCenter::defaultCenter() answer for the newest one that lives, so
/// it is made before whatever uses them and goes last. Nothing of a process outlives it: another one over the
/// same backends is what the next start of the program finds.
class ProcessServices {
public:
    /// They outlive the services. Whoever leaves one out must not need it; only the settings may be missing.
    struct Backends {
        RunLoop* runLoop = nullptr;
        Bundle* bundle = nullptr;
        UserDefaults* defaults = nullptr;
    };

    explicit ProcessServices(const Backends& backends);
    ~ProcessServices();
    ProcessServices(const ProcessServices&) = delete;
    ProcessServices& operator=(const ProcessServices&) = delete;

    static ProcessServices& installed();

    [[nodiscard]] const Backends& backends() const { return m_backends; }
    [[nodiscard]] NotificationCenter& notificationCenter() { return m_notificationCenter; }
    /// The process's one object of that class: made when it is first asked for, gone with the services, the
    /// newest first.
    template <typename Object>
    Object& shared();

private:
    Backends m_backends;
    ProcessServices* m_before; ///< comes back when these services go
    NotificationCenter m_notificationCenter;
    std::recursive_mutex m_mutex; ///< One shared object may ask for another while it is made.
    std::vector<std::pair<std::type_index, std::shared_ptr<void>>> m_shared;
};

template <typename Object>
Object& ProcessServices::shared()
{
    const std::scoped_lock lock(m_mutex);
    const std::type_index type = typeid(Object);
    const auto known = std::find_if(
        m_shared.begin(), m_shared.end(), [&](const auto& entry) { return entry.first == type; });
    if (known != m_shared.end())
        return *static_cast<Object*>(known->second.get());
    const std::shared_ptr<Object> made(new Object); // Its constructor may be private.
    m_shared.emplace_back(type, made);
    return *made;
}
