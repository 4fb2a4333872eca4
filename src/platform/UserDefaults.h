#pragma once

#include <QString>
#include <QVariant>

/// The per-user settings store: numbers, truth values and texts by key. Every change is on disk when
/// synchronize() returns true.
class UserDefaults {
public:
    virtual ~UserDefaults() = default;
    UserDefaults(const UserDefaults&) = delete;
    UserDefaults& operator=(const UserDefaults&) = delete;

    /// The stored value, or an invalid variant when there is none.
    [[nodiscard]] virtual QVariant object(const QString& key) const = 0;
    virtual void setObject(const QString& key, const QVariant& value) = 0;
    virtual void removeObject(const QString& key) = 0;
    /// Writes all changes to disk in one atomic replacement. False when that failed; the values stay in
    /// memory.
    virtual bool synchronize() = 0;

    /// The store of this process, or null when none is available.
    static UserDefaults* standard();

protected:
    UserDefaults() = default;
};
