#include "platform/qt/QtUserDefaults.h"

#include "platform/Log.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QSettings>
#include <QStringDecoder>

#include <algorithm>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace {
constexpr auto kOwnerOnly = QFileDevice::ReadOwner | QFileDevice::WriteOwner;

QMap<QString, QVariant> allValues(const QSettings& settings)
{
    QMap<QString, QVariant> values;
    const QStringList keys = settings.allKeys();
    for (const QString& key : keys)
        values.insert(key, settings.value(key));
    return values;
}

/// Nothing where the file cannot be read to its end.
std::optional<QByteArray> contents(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    QByteArray bytes = file.readAll();
    return file.error() == QFileDevice::NoError ? std::optional(std::move(bytes)) : std::nullopt;
}

/// Without a byte order mark. Editors of other systems write in Latin-1.
QString decoded(const QByteArray& line)
{
    QStringDecoder decoder(
        QStringDecoder::Utf8, QStringDecoder::Flag::Stateless); // Half a letter is an error.
    const QString text = decoder(line);
    return decoder.hasError() ? QString::fromLatin1(line) : text;
}

/// A quotation mark or a backslash at the end without its fellow would make the following lines part of this
/// one.
bool endsWithItsLine(const QString& line)
{
    bool isQuoted = false;
    for (auto character = line.cbegin(); character != line.cend(); ++character) {
        if (*character == QLatin1Char('"'))
            isQuoted = !isQuoted;
        else if (*character == QLatin1Char('\\') && ++character == line.cend())
            return false;
    }
    return !isQuoted;
}

bool isSection(const QString& line)
{
    return line.startsWith(QLatin1Char('[')) && line.endsWith(QLatin1Char(']'));
}

bool isAssignment(const QString& line)
{
    const bool isText = std::none_of(line.cbegin(), line.cend(),
        [](QChar c) { return c.category() == QChar::Other_Control && c != QLatin1Char('\t'); });
    return isText && line.indexOf(QLatin1Char('=')) > 0 && endsWithItsLine(line);
}

/// What QSettings reads without harm to other lines, and the lines that nobody can read.
struct Lines {
    QByteArray readable;
    QStringList unreadable;
};

Lines sorted(QByteArray bytes)
{
    Lines lines;
    if (bytes.endsWith('\n'))
        bytes.chop(1);
    for (const QByteArray& bytesOfLine : bytes.split('\n')) {
        const QString line = decoded(bytesOfLine).trimmed();
        if (line.startsWith(QLatin1Char('#')))
            continue; // A comment, but QSettings knows only those that begin with a semicolon.
        if (line.isEmpty() || line.startsWith(QLatin1Char(';')) || isSection(line) || isAssignment(line))
            lines.readable += line.toUtf8() + '\n';
        else
            lines.unreadable.append(line);
    }
    return lines;
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
    removeLeftovers();
    if (!contents(m_path)) {
        if (QFileInfo::exists(m_path))
            Log::line(QStringLiteral("The settings file %1 cannot be read; the program starts on defaults.")
                          .arg(m_path));
        return;
    }
    m_isRead = mend();
    m_values = allValues(QSettings(m_path, QSettings::IniFormat));
    m_readAtStart = m_values.keys();
}

QtUserDefaults::~QtUserDefaults()
{
    synchronize();
}

/// A process that was killed while writing leaves QSettings' lock behind, which would hold up the first write
/// for half a minute, and its unfinished file. Only one instance runs, so they are nobody's. Without a lock
/// such a name is the user's own: a .backup, say.
void QtUserDefaults::removeLeftovers() const
{
    if (!QFile::remove(m_path + QStringLiteral(".lock")))
        return;
    const QFileInfo file(m_path);
    const QString unfinished = file.fileName() + u'.'; // Six letters follow.
    for (const QString& name : file.dir().entryList(QDir::Files)) {
        if (name.startsWith(unfinished) && name.size() == unfinished.size() + 6)
            QFile::remove(file.dir().filePath(name));
    }
}

/// At last, what could not be read at the start. What was set here for it meanwhile gives way: most of it are
/// defaults for what seemed to be missing.
void QtUserDefaults::readBelatedly()
{
    if (m_isRead || !mend())
        return;
    const QMap<QString, QVariant> values = allValues(QSettings(m_path, QSettings::IniFormat));
    for (auto value = values.cbegin(); value != values.cend(); ++value) {
        if (!m_readAtStart.contains(value.key()))
            m_values.insert(value.key(), *value);
    }
    m_isRead = !values.isEmpty();
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
    readBelatedly(); // What is set from now on replaces what the file holds.
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
    readBelatedly();
    if (!mend()) {
        report(false);
        return false;
    }
    // A new object each time: the status of a QSettings stays bad once a write has failed.
    QSettings settings(m_path, QSettings::IniFormat);
    // A file that was deleted or emptied is to have everything again.
    const QStringList keys = settings.allKeys().isEmpty() ? m_values.keys() : m_changedKeys.values();
    for (const QString& key : keys) {
        const auto value = m_values.constFind(key);
        if (value == m_values.cend())
            settings.remove(key);
        else
            settings.setValue(key, *value);
    }
    settings.sync();
    const bool written = settings.status() != QSettings::AccessError;
    if (written) {
        QFile::setPermissions(m_path, kOwnerOnly);
        syncFolder(m_path);
        m_changedKeys.clear();
        m_isRead = true;
    }
    report(written);
    return written;
}

/// QSettings would drop what it cannot read, and sometimes the lines after it, with the next write. Such a
/// file is kept as it was beside one that holds the rest. False when there is no room for that yet, and for a
/// file that cannot be read: QSettings would take it for an empty one, also later.
bool QtUserDefaults::mend()
{
    const std::optional<QByteArray> bytes = contents(m_path);
    if (!bytes)
        return !QFileInfo::exists(m_path);
    const Lines lines = sorted(*bytes);
    if (lines.readable == *bytes)
        return true;
    int number = 1;
    const auto copyName = [&] { return QStringLiteral("%1.damaged-%2").arg(m_path).arg(number); };
    while (QFileInfo::exists(copyName()))
        ++number;
    if (!lines.unreadable.isEmpty() && !QFile::copy(m_path, copyName()))
        return false;
    QSaveFile mended(m_path);
    if (!mended.open(QIODevice::WriteOnly) || mended.write(lines.readable) < 0 || !mended.commit()) {
        QFile::remove(copyName()); // The file is still as it was; the next attempt would copy it once more.
        return false;
    }
    if (lines.unreadable.isEmpty())
        return true;
    m_damage = {lines.unreadable, copyName()};
    // Who asks for the damage asks at the start; an editor may do it at any time.
    Log::line(QStringLiteral("Parts of the settings file could not be read; a copy of it as it was is %1.")
                  .arg(copyName()));
    return true;
}

std::optional<Error> QtUserDefaults::damage() const
{
    if (m_damage.lines.isEmpty())
        return std::nullopt;
    constexpr qsizetype kMostShown = 200;
    return Error {QStringLiteral("Settings"), int(m_damage.lines.size()),
        qtTrId("SettingsDamaged").arg(QDir::toNativeSeparators(m_path)),
        qtTrId("SettingsDamagedReason")
            .arg(m_damage.lines.join(QLatin1Char('\n')).left(kMostShown),
                QDir::toNativeSeparators(m_damage.copy))};
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
