#include "CommandLine.h"

#include <QCommandLineParser>
#include <QTextStream>

#include <algorithm>
#include <iterator>

namespace {
CommandLine ended(FILE* stream, const QString& text, int exitCode)
{
    QTextStream(stream) << text;
    CommandLine line;
    line.endsHere = true;
    line.exitCode = exitCode;
    return line;
}

CommandLine refused(const QString& reason)
{
    return ended(stderr, QStringLiteral("zelvo-standup: %1 Try --help.\n").arg(reason), 2);
}

struct Command {
    const char* name;
    const char* description;
    bool opensWindow = false;
};

constexpr Command kCommands[] = {
    {"show", "Show the main window.", true},
    {"history", "Show the history.", true},
    {"settings", "Show the settings.", true},
    {"snooze", "Answer the reminder: again in ten minutes."},
    {"skip", "Answer the reminder: not this time."},
    {"quit", "End the program."},
    {"status", "Print what the program knows."},
    {"watch", "Print the status as JSON, a line at each change."},
};

/// The parser takes the program's name from an application object, which does not exist yet.
QString help(const QCommandLineParser& parser)
{
    return QStringLiteral("Usage: zelvo-standup [options]\n") + parser.helpText().section(u'\n', 1);
}
}

CommandLine CommandLine::parse(QStringList arguments)
{
    if (arguments.size() == 1)
        return {}; // Every login's start, which need not wait for a parser.
    if (const qsizetype session = arguments.indexOf(QStringLiteral("-session")); session > 0)
        arguments.remove(session, std::min(arguments.size() - session, qsizetype(2)));
    const QCommandLineOption simulate(QStringLiteral("simulate"),
        QStringLiteral("Drive the built-in simulated desk instead of an adapter."));
    const QCommandLineOption language(QStringLiteral("language"),
        QStringLiteral("Show the texts in this language: en, de, fr, es or nl."), QStringLiteral("CODE"));
    const QCommandLineOption testWindow(
        QStringLiteral("test-window"), QStringLiteral("Open the developer's test window."));
    const QCommandLineOption json(QStringLiteral("json"), QStringLiteral("Print the status as JSON."));
    const QCommandLineOption version(QStringLiteral("version"), QStringLiteral("Print the version and end."));
    const QCommandLineOption helpOption(
        {QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Print this and end."));

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Moves your sit/stand desk and reminds you to change position.\n"
                       "A second start shows the window of the program that runs already."));
    parser.addOptions({simulate, language, testWindow});
    for (const Command& command : kCommands)
        parser.addOption({QLatin1String(command.name), QLatin1String(command.description)});
    parser.addOptions({json, version, helpOption});
    if (!parser.parse(arguments))
        return refused(parser.errorText());
    if (parser.isSet(helpOption))
        return ended(stdout, help(parser), 0);
    if (parser.isSet(version))
        return ended(stdout, QStringLiteral("zelvo-standup %1\n").arg(QStringLiteral(ZELVO_VERSION)), 0);
    if (!parser.positionalArguments().isEmpty())
        return refused(QStringLiteral("'%1' is not an option.").arg(parser.positionalArguments().first()));

    CommandLine line;
    line.simulate = parser.isSet(simulate);
    line.testWindow = parser.isSet(testWindow);
    line.language = parser.value(language);
    line.asJson = parser.isSet(json);
    for (const Command& command : kCommands) {
        const QString name = QLatin1String(command.name);
        if (!parser.isSet(name))
            continue;
        if (!line.command.isEmpty())
            return refused(QStringLiteral("--%1 and --%2 do not go together.").arg(line.command, name));
        line.command = name;
    }
    if (line.asJson && line.command != QLatin1String("status") && line.command != QLatin1String("watch"))
        return refused(QStringLiteral("--json goes with --status."));
    return line;
}

bool CommandLine::opensWindow() const
{
    return std::any_of(std::begin(kCommands), std::end(kCommands),
        [this](const Command& known) { return known.opensWindow && command == QLatin1String(known.name); });
}

CommandLine CommandLine::refusedLanguage() const
{
    return refused(QStringLiteral("There are no texts in the language '%1'.").arg(language));
}
