#include "platform/linux/AutostartLoginItems.h"

#include "platform/Log.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

namespace {
QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The value of a key in the group [Desktop Entry]; empty when it is missing.
QByteArray valueOf(const QByteArray& key, const QByteArray& entry)
{
    bool isInGroup = false;
    const QList<QByteArray> lines = entry.split('\n');
    for (const QByteArray& line : lines) {
        const QByteArray text = line.trimmed();
        const qsizetype split = text.indexOf('=');
        if (text.startsWith('['))
            isInGroup = text == "[Desktop Entry]";
        else if (isInGroup && split > 0 && text.left(split).trimmed() == key)
            return text.mid(split + 1).trimmed();
    }
    return {};
}

/// A value of type string: line ends and backslashes are escaped.
QString stringValue(QString text)
{
    return text.replace(QLatin1Char('\\'), QLatin1String("\\\\"))
        .replace(QLatin1Char('\n'), QLatin1String("\\n"))
        .replace(QLatin1Char('\t'), QLatin1String("\\t"))
        .replace(QLatin1Char('\r'), QLatin1String("\\r"));
}

/// One argument of a command line: quoted, with the characters escaped that stay special inside quotes. A
/// percent sign would begin a field code.
QString quotedArgument(QString text)
{
    for (const char special : {'\\', '"', '`', '$'})
        text.replace(QLatin1Char(special), QStringLiteral("\\") + QLatin1Char(special));
    return QLatin1Char('"') + text.replace(QLatin1Char('%'), QLatin1String("%%")) + QLatin1Char('"');
}

/// Whether the user has written a command of their own; this class writes the executable alone.
bool hasOwnCommand(const QByteArray& entry)
{
    const QByteArray command = valueOf("Exec", entry);
    const QString executable = QString::fromUtf8(valueOf("TryExec", entry));
    return !command.isEmpty() && command != stringValue(quotedArgument(executable)).toUtf8();
}
}

AutostartLoginItems::AutostartLoginItems(const QString& configFolder)
    : m_path(configFolder + QStringLiteral("/autostart/org.zelvo.StandUp.desktop"))
{
}

QString AutostartLoginItems::defaultConfigFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
}

bool AutostartLoginItems::insertItem(const QString& executablePath)
{
    const QByteArray wanted = entry(executablePath);
    const QByteArray present = contents(m_path);
    if (isSwitchedOff() || hasOwnCommand(present) || present == wanted)
        return true;

    QDir().mkpath(QFileInfo(m_path).absolutePath());
    QSaveFile file(m_path);
    const bool written =
        file.open(QIODevice::WriteOnly) && file.write(wanted) == wanted.size() && file.commit();
    if (!written)
        Log::line(
            QStringLiteral("The program cannot be started at login, %1: %2").arg(m_path, file.errorString()));
    return written;
}

bool AutostartLoginItems::isSwitchedOff() const
{
    const QByteArray present = contents(m_path);
    return valueOf("Hidden", present).toLower() == "true"
        || valueOf("X-GNOME-Autostart-enabled", present).toLower() == "false";
}

bool AutostartLoginItems::isStartUnwanted(const QByteArray& controlGroup) const
{
    // Another entry's group is inherited by all that is started from that program: a terminal's, say.
    return isSwitchedOff() && controlGroup.contains("/app-org.zelvo.StandUp@autostart.service");
}

QByteArray AutostartLoginItems::entry(const QString& executablePath)
{
    return QStringLiteral("[Desktop Entry]\n"
                          "Type=Application\n"
                          "Name=Zelvo StandUp\n"
                          "Icon=org.zelvo.StandUp\n"
                          "Exec=%1\n"
                          "TryExec=%2\n"
                          "Terminal=false\n"
                          "X-GNOME-Autostart-Delay=2\n"
                          "X-KDE-autostart-after=panel\n"
                          "X-LXQt-Need-Tray=true\n")
        .arg(stringValue(quotedArgument(executablePath)), stringValue(executablePath))
        .toUtf8();
}

QByteArray AutostartLoginItems::ownControlGroup()
{
    return contents(QStringLiteral("/proc/self/cgroup"));
}
