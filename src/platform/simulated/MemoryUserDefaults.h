#pragma once

#include "platform/UserDefaults.h"

#include <QMap>
#include <QStringList>

/// Settings in memory that record what was written and flushed.
class MemoryUserDefaults final : public UserDefaults {
public:
    QMap<QString, QVariant> values;
    QStringList writes; ///< keys in the order of setObject() and removeObject()
    int flushes = 0;

    [[nodiscard]] QVariant object(const QString& key) const override { return values.value(key); }
    void setObject(const QString& key, const QVariant& value) override
    {
        values.insert(key, value);
        writes.append(key);
    }
    void removeObject(const QString& key) override
    {
        values.remove(key);
        writes.append(key);
    }
    bool synchronize() override
    {
        ++flushes;
        return true;
    }
};
