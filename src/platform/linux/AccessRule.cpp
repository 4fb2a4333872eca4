#include "platform/linux/AccessRule.h"

#include <QDir>
#include <QFile>

#include <algorithm>

namespace {
const QString kFile = QStringLiteral("70-zelvo-standup.rules");
const QString kComment = QStringLiteral("#");

/// The rule without the comments around it.
QString rule()
{
    QFile file(QStringLiteral(":/%1").arg(kFile));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    const auto found = std::find_if(
        lines.cbegin(), lines.cend(), [](const QString& line) { return !line.startsWith(kComment); });
    return found == lines.cend() ? QString() : *found;
}
}

QStringList AccessRule::folders()
{
    return {QStringLiteral("/etc/udev/rules.d"), QStringLiteral("/run/udev/rules.d"),
        QStringLiteral("/usr/local/lib/udev/rules.d"), QStringLiteral("/usr/lib/udev/rules.d"),
        QStringLiteral("/lib/udev/rules.d")};
}

QStringList AccessRule::commands(const QStringList& folders)
{
    const bool isInstalled = std::any_of(folders.cbegin(), folders.cend(),
        [](const QString& folder) { return QFile::exists(QDir(folder).filePath(kFile)); });
    // Each works from any folder; the rule has no quote of the shell in it.
    return {isInstalled ? QStringLiteral("sudo udevadm control --reload")
                        : QStringLiteral("echo '%1' | sudo tee /etc/udev/rules.d/%2").arg(rule(), kFile),
        QStringLiteral("sudo udevadm trigger -s hidraw -c change")};
}
