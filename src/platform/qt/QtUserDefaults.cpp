#include "platform/qt/QtUserDefaults.h"

#include "platform/Log.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QStringDecoder>

#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace {
constexpr auto kOwnerOnly = QFileDevice::ReadOwner | QFileDevice::WriteOwner;

bool isList(const QVariant& value)
{
    return value.userType() == QMetaType::QVariantList || value.userType() == QMetaType::QStringList;
}

/// INI has no lists of its own: a list of numbers would come back as texts and an empty list as nothing.
/// Inside a list of one, QSettings stores the inner list with its types.
QVariant wrapped(const QVariant& value)
{
    return isList(value) ? QVariant(QVariantList {value}) : value;
}

QVariant unwrapped(const QVariant& value)
{
    const QVariantList list = isList(value) ? value.toList() : QVariantList();
    return list.size() == 1 && isList(list.first()) ? list.first() : value;
}

QMap<QString, QVariant> allValues(const QSettings& settings)
{
    QMap<QString, QVariant> values;
    const QStringList keys = settings.allKeys();
    for (const QString& key : keys)
        values.insert(key, unwrapped(settings.value(key)));
    return values;
}

/// QSettings itself only notices lines that are no assignment. Every file it writes is UTF-8 text that ends
/// with a line end; one that does not was cut short or overwritten with something else.
bool looksLikeText(const QByteArray& bytes)
{
    if (bytes.isEmpty())
        return true;
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder(bytes);
    return !decoder.hasError() && !text.contains(QChar(0)) && text.endsWith(QLatin1Char('\n'));
}

bool isDamaged(const QString& path, const QSettings& settings)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    return settings.status() == QSettings::FormatError || !looksLikeText(file.readAll());
}

/// The new name of a renamed file survives a power cut only once its folder is on disk too.
void syncFolder(const QString& path)
{
    const QByteArray folder = QFile::encodeName(QFileInfo(path).absolutePath());
    const int descriptor = open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    fsync(descriptor);
    close(descriptor);
}
}

QtUserDefaults::QtUserDefaults(QString path)
    : m_path(std::move(path))
{
    // A process that was killed while writing leaves QSettings' lock behind, and a half-written lock would
    // hold up the first write for half a minute. Only one instance runs, so the lock is nobody's.
    QFile::remove(m_path + QStringLiteral(".lock"));
    if (!QFileInfo(m_path).isFile())
        return;

    const QSettings settings(m_path, QSettings::IniFormat);
    m_values = allValues(settings); // Also makes QSettings parse everything, before its status is asked.
    if (isDamaged(m_path, settings))
        setAside();
    else if (settings.status() != QSettings::NoError)
        Log::line(QStringLiteral("The settings file %1 cannot be read; the program starts on defaults.")
                      .arg(m_path));
}

QVariant QtUserDefaults::object(const QString& key) const
{
    return m_values.value(key);
}

void QtUserDefaults::setObject(const QString& key, const QVariant& value)
{
    if (!value.isValid()) {
        removeObject(key);
        return;
    }
    m_values.insert(key, value);
    m_changedKeys.insert(key);
}

void QtUserDefaults::removeObject(const QString& key)
{
    if (m_values.remove(key) > 0)
        m_changedKeys.insert(key);
}

bool QtUserDefaults::synchronize()
{
    if (m_changedKeys.isEmpty())
        return true;

    QDir().mkpath(QFileInfo(m_path).absolutePath());
    // A new object each time: the status of a QSettings stays bad once a write has failed.
    QSettings settings(m_path, QSettings::IniFormat);
    for (const QString& key : std::as_const(m_changedKeys)) {
        const auto value = m_values.constFind(key);
        if (value == m_values.cend())
            settings.remove(key);
        else
            settings.setValue(key, wrapped(*value));
    }
    settings.sync();
    const bool written = settings.status() != QSettings::AccessError;
    if (written) {
        QFile::setPermissions(m_path, kOwnerOnly);
        syncFolder(m_path);
        m_changedKeys.clear();
    }
    report(written);
    return written;
}

void QtUserDefaults::setAside()
{
    m_values.clear();
    int number = 1;
    const auto asideName = [&] { return QStringLiteral("%1.damaged-%2").arg(m_path).arg(number); };
    while (QFileInfo::exists(asideName()))
        ++number;
    if (QFile::rename(m_path, asideName()))
        Log::line(QStringLiteral(
            "The settings file %1 is damaged; it is kept as %2 and the program starts on defaults.")
                      .arg(m_path, asideName()));
    else
        Log::line(QStringLiteral(
            "The settings file %1 is damaged and cannot be renamed; the program starts on defaults.")
                      .arg(m_path));
}

void QtUserDefaults::report(bool written)
{
    if (written == !m_failing)
        return;
    m_failing = !written;
    Log::line(written
            ? QStringLiteral("The settings are written to %1 again.").arg(m_path)
            : QStringLiteral(
                "The settings cannot be written to %1; until that is possible they are only in memory.")
                  .arg(m_path));
}
