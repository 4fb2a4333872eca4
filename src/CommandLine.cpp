#include "CommandLine.h"

#include <QTextStream>

namespace {
const char kHelp[] = R"(Usage: zelvo-standup [options]
Moves your sit/stand desk and reminds you to change position.

  --simulate        drive the built-in simulated desk instead of an adapter
  --language CODE   show the texts in this language: en, de, fr, es or nl
  --test-window     open the developer's test window
  --version         print the version and end
  --help            print this and end

A second start shows the window of the program that runs already.
)";

CommandLine ended(FILE* stream, const QString& text, int exitCode)
{
    QTextStream(stream) << text;
    CommandLine line;
    line.endsHere = true;
    line.exitCode = exitCode;
    return line;
}
}

CommandLine CommandLine::parse(const QStringList& arguments)
{
    CommandLine line;
    for (qsizetype i = 1; i < arguments.size(); ++i) {
        const QString& argument = arguments[i];
        if (argument == QStringLiteral("--help") || argument == QStringLiteral("-h"))
            return ended(stdout, QString::fromLatin1(kHelp), 0);
        if (argument == QStringLiteral("--version"))
            return ended(stdout, QStringLiteral("zelvo-standup %1\n").arg(QStringLiteral(ZELVO_VERSION)), 0);
        if (argument == QStringLiteral("--simulate"))
            line.simulate = true;
        else if (argument == QStringLiteral("--test-window"))
            line.testWindow = true;
        else if (argument == QStringLiteral("--language") && i + 1 < arguments.size())
            line.language = arguments[++i];
        else
            return ended(stderr,
                QStringLiteral("zelvo-standup: '%1' is not understood; try --help\n").arg(argument), 2);
    }
    return line;
}
