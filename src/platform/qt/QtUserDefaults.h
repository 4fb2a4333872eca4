#pragma once

#include "platform/UserDefaults.h"

#include <QMap>
#include <QSet>

/// The settings in one INI file, through QSettings. Each flush replaces the file as a whole (temporary file,
/// fsync, rename), so that a crash at any moment leaves either the old file or the new one. What somebody
/// else changed in the file meanwhile is kept, unless the same key was changed here.
///
/// Numbers and truth values come back from the file as texts that convert to what was stored; lists, maps and
/// bytes come back as they were.
class QtUserDefaults final : public UserDefaults {
public:
    /// Reads the file. One that is damaged is set aside under a new name beside the original, and the store
    /// starts empty; a missing one is an empty store.
    explicit QtUserDefaults(QString path);

    [[nodiscard]] QVariant object(const QString& key) const override;
    void setObject(const QString& key, const QVariant& value) override;
    void removeObject(const QString& key) override;
    bool synchronize() override;

private:
    void setAside();
    void report(bool written);

    QString m_path;
    QMap<QString, QVariant> m_values;
    QSet<QString> m_changedKeys; ///< changed or removed here, not yet on disk
    bool m_failing = false;
};
