#pragma once

#include "platform/Error.h"
#include "platform/UserDefaults.h"

#include <QMap>
#include <QSet>
#include <QStringList>

#include <optional>

/// The settings in one INI file, through QSettings. Each flush replaces the file as a whole (temporary file,
/// fsync, rename), so that a crash at any moment leaves either the old file or the new one. What somebody
/// else changed in the file meanwhile is kept, unless the same key was changed here; a deleted file is
/// written anew as a whole.
///
/// It is made for numbers, truth values and texts; all come back from the file as texts that convert to what
/// was stored.
class QtUserDefaults final : public UserDefaults {
public:
    /// Reads the file as far as it can be read; a missing one is an empty store. Where lines cannot be read,
    /// the file is kept as it was under a new name beside the original. A file that cannot be read yet is
    /// read before anything is written to it, and its values then replace those that were set meanwhile for
    /// keys that had not been read.
    explicit QtUserDefaults(QString path);
    /// What could not be written before, because a disk was full, is tried once more.
    ~QtUserDefaults() override;

    /// What the user is to know of lines that could not be read; nothing when all could.
    [[nodiscard]] std::optional<Error> damage() const;

    [[nodiscard]] QVariant object(const QString& key) const override;
    void setObject(const QString& key, const QVariant& value) override;
    void removeObject(const QString& key) override;
    bool synchronize() override;

private:
    void removeLeftovers() const;
    void readBelatedly();
    bool mend();
    void report(bool written);

    QString m_path;
    QMap<QString, QVariant> m_values;
    bool m_isRead = false; ///< m_values has what the file holds
    QStringList m_readAtStart; ///< the keys of which something was known from the first
    QSet<QString> m_changedKeys; ///< changed or removed here, not yet on disk
    struct {
        QStringList lines;
        QString copy; ///< path of the file as it was
    } m_damage;
    bool m_failing = false;
};
