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

enum class Kind { Setting, Command, CommandThatOpensWindow };

struct Option {
    const char* name;
    const char* description;
    Kind kind = Kind::Setting;
    const char* value = ""; ///< what stands for it in the help; empty for an option without one

    [[nodiscard]] bool isCommand() const { return kind != Kind::Setting; }
};

constexpr Option kOptions[] = {
    {"simulate", "Drive the built-in simulated desk instead of an adapter."},
    {"language", "Show the texts in this language: en, de, fr, es or nl.", Kind::Setting, "CODE"},
    {"test-window", "Open the developer's test window."},
    {"show", "Show the main window.", Kind::CommandThatOpensWindow},
    {"history", "Show the history.", Kind::CommandThatOpensWindow},
    {"settings", "Show the settings.", Kind::CommandThatOpensWindow},
    {"snooze", "Answer the reminder: again in ten minutes.", Kind::Command},
    {"skip", "Answer the reminder: not this time.", Kind::Command},
    {"quit", "End the program.", Kind::Command},
    {"status", "Print what the program knows.", Kind::Command},
    {"watch", "Print the status as JSON, a line at each change.", Kind::Command},
    {"json", "Print the status as JSON."},
    {"version", "Print the version and exit."},
    {"h help", "Show this help and exit."},
};

void describe(QCommandLineParser& parser)
{
    parser.setApplicationDescription(
        QStringLiteral("Moves your sit/stand desk and reminds you to change position.\n"
                       "A second start shows the window of the program that is already running."));
    for (const Option& option : kOptions)
        parser.addOption({QString::fromLatin1(option.name).split(u' '),
            QString::fromLatin1(option.description), QString::fromLatin1(option.value)});
}

/// The parser takes the program's name from an application object, which does not exist yet.
QString help(const QCommandLineParser& parser)
{
    return QStringLiteral("Usage: zelvo-standup [options]\n") + parser.helpText().section(u'\n', 1);
}

CommandLine read(const QCommandLineParser& parser)
{
    CommandLine line;
    line.simulate = parser.isSet(QStringLiteral("simulate"));
    line.testWindow = parser.isSet(QStringLiteral("test-window"));
    line.language = parser.value(QStringLiteral("language"));
    line.asJson = parser.isSet(QStringLiteral("json"));
    for (const Option& option : kOptions) {
        const QString name = QString::fromLatin1(option.name);
        if (!option.isCommand() || !parser.isSet(name))
            continue;
        if (!line.command.isEmpty())
            return refused(QStringLiteral("--%1 and --%2 do not go together.").arg(line.command, name));
        line.command = name;
    }
    if (line.asJson && line.command != QLatin1String("status") && line.command != QLatin1String("watch"))
        return refused(QStringLiteral("--json requires --status or --watch."));
    return line;
}
}

CommandLine CommandLine::parse(QStringList arguments)
{
    if (arguments.size() == 1)
        return {}; // Every login's start, which need not wait for a parser.
    if (const qsizetype session = arguments.indexOf(QStringLiteral("-session")); session > 0)
        arguments.remove(session, std::min(arguments.size() - session, qsizetype(2)));
    QCommandLineParser parser;
    describe(parser);
    if (!parser.parse(arguments))
        return refused(parser.errorText());
    if (parser.isSet(QStringLiteral("help")))
        return ended(stdout, help(parser), 0);
    if (parser.isSet(QStringLiteral("version")))
        return ended(stdout, QStringLiteral("zelvo-standup %1\n").arg(QStringLiteral(ZELVO_VERSION)), 0);
    if (!parser.positionalArguments().isEmpty())
        return refused(QStringLiteral("'%1' is not an option.").arg(parser.positionalArguments().first()));
    return read(parser);
}

bool CommandLine::opensWindow() const
{
    return std::any_of(std::begin(kOptions), std::end(kOptions), [this](const Option& option) {
        return option.kind == Kind::CommandThatOpensWindow && command == QLatin1String(option.name);
    });
}

CommandLine CommandLine::refusedLanguage() const
{
    return refused(QStringLiteral("Unknown language '%1'.").arg(language));
}
