// Reads the command line, gives its command to a program that runs already, or builds the program and runs
// it.

#include "Application.h"
#include "CommandLine.h"
#include "Program.h"
#include "commands/CommandClient.h"
#include "commands/StatusWatch.h"
#include "platform/Log.h"
#include "platform/ProcessServices.h"
#include "platform/linux/AutostartLoginItems.h"
#include "platform/linux/DisplayServer.h"
#include "platform/linux/SingleInstance.h"
#include "platform/qt/QtRunLoop.h"
#include "resources/Resources.h"
#include "shell/PictureIcon.h"

#include <QDir>

#include <cstdio>
#include <cstdlib>
#include <optional>

namespace {
const QString kIdentifier = QStringLiteral("org.zelvo.StandUp");

/// As the desktop's base directory rules say. The record would otherwise lie wherever the program was
/// started.
void ignoreRelativeFolders()
{
    for (const char* const variable : {"XDG_CONFIG_HOME", "XDG_DATA_HOME"}) {
        const QString folder = qEnvironmentVariable(variable);
        if (folder.isEmpty() || QDir::isAbsolutePath(folder))
            continue;
        Log::line(QStringLiteral("%1 is not an absolute path and is ignored: %2")
                      .arg(QString::fromLatin1(variable), folder));
        qunsetenv(variable);
    }
}

/// Qt's own messages, with time and process like all others. What Qt calls fatal (a platform that it cannot
/// load, a display that went away) is nothing that a crash report would help with.
void logQtMessage(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    Log::line(message);
    if (type == QtFatalMsg)
        std::_Exit(1);
}

CommandLine readCommandLine(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    const CommandLine commandLine = CommandLine::parse(arguments);
    const bool isUnknown =
        !commandLine.language.isEmpty() && firstAvailableLanguage({commandLine.language}).isEmpty();
    return isUnknown ? commandLine.refusedLanguage() : commandLine;
}

int showFirstInstance(const SingleInstance& instance, const QString& command)
{
    if (instance.activateFirst({qgetenv("XDG_ACTIVATION_TOKEN"), command.toUtf8()}))
        return 0;
    Log::line(QStringLiteral("The program is already running but does not respond."));
    return 1;
}

CommandClient::Answer ask(CommandClient& client, const CommandLine& commandLine)
{
    if (commandLine.command == QStringLiteral("status"))
        return client.printStatus(commandLine.asJson);
    if (commandLine.command == QStringLiteral("watch"))
        return StatusWatch(client).run();
    return client.perform(commandLine.command, qEnvironmentVariable("XDG_ACTIVATION_TOKEN"));
}

/// Gives the command to the program that runs, which needs no display here. The exit code, or nothing where
/// the program is to be started for it.
std::optional<int> carryOutElsewhere(const CommandLine& commandLine, int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QtRunLoop runLoop;
    const ProcessServices services({&runLoop});
    CommandClient client;
    const CommandClient::Answer answer = ask(client, commandLine);
    if (answer != CommandClient::Answer::NotRunning)
        return answer == CommandClient::Answer::Done ? 0 : 1;
    if (commandLine.opensWindow())
        return std::nullopt;
    client.tellNotRunning();
    return 1;
}

int run(const CommandLine& commandLine, Application& application, SingleInstance& instance)
{
    Program program(commandLine.simulate, application, instance);
    program.appear();
    if (commandLine.testWindow)
        program.showTestWindow();
    if (!commandLine.command.isEmpty())
        program.perform(commandLine.command);
    return QCoreApplication::exec();
}
}

int main(int argc, char** argv)
{
    initResources();
    const CommandLine commandLine = readCommandLine(argc, argv);
    if (commandLine.endsHere)
        return commandLine.exitCode;
    qInstallMessageHandler(logQtMessage);
    if (!commandLine.command.isEmpty()) {
        if (const std::optional<int> exitCode = carryOutElsewhere(commandLine, argc, argv)) {
            std::fflush(nullptr);
            std::_Exit(*exitCode); // QtDBus may still be delivering while what it needs is taken down.
        }
    }
    if (const QString problem = chooseDisplayServer(); !problem.isEmpty()) {
        Log::line(problem);
        return 1;
    }

    ignoreRelativeFolders();

    QGuiApplication::setDesktopFileName(kIdentifier);
    QApplication::setStyle(QStringLiteral("Fusion")); // Fixed colours and sizes belong to one style.
    Application application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("Zelvo StandUp"));
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setWindowIcon(programIcon());

    if (AutostartLoginItems().isStartUnwanted())
        return 0;
    SingleInstance instance;
    if (!instance.acquire())
        return showFirstInstance(instance, commandLine.command);
    installTexts(application, commandLine.language);
    return run(commandLine, application, instance);
}
