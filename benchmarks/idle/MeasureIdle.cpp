// Starts programs side by side, each as its user would, and prints what each costs: time from its start to
// its tray icon (the median of several starts, in turns), memory (PSS) after a minute, CPU time and context
// switches in the idle minute after that.
// Wants an X display and a session bus of its own: benchmarks/idle/run gives it both.

#include "TrayWatcher.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTextStream>

#include <algorithm>
#include <functional>
#include <memory>
#include <unistd.h>
#include <utility>
#include <vector>

namespace {
constexpr int kStarts = 9;
constexpr int kMostMillisecondsToTray = 10000;
constexpr int kSettleSeconds = 60;
constexpr int kIdleSeconds = 60;

struct Usage {
    double cpuSeconds = 0;
    qint64 contextSwitches = 0;
};

struct Subject {
    QString name;
    std::unique_ptr<QProcess> process;
    QElapsedTimer sinceStart;
    bool hasIcon = false;
    std::vector<double> secondsToTray;
    double pssMegabytes = 0;
    Usage before;
};

QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

qint64 numberAfter(const QByteArray& text, const char* key)
{
    const qsizetype at = text.indexOf(key);
    if (at < 0)
        return 0;
    const qsizetype from = at + qsizetype(qstrlen(key));
    return text.mid(from, text.indexOf('\n', from) - from).trimmed().split(' ').first().toLongLong();
}

Usage usageOf(qint64 processId)
{
    const QString root = QStringLiteral("/proc/%1").arg(processId);
    Usage usage;
    const QByteArray stat = readFile(root + QStringLiteral("/stat"));
    const QList<QByteArray> fields = stat.mid(stat.lastIndexOf(')') + 2).split(' ');
    if (fields.size() > 12)
        usage.cpuSeconds =
            double(fields[11].toLongLong() + fields[12].toLongLong()) / double(sysconf(_SC_CLK_TCK));
    const QDir tasks(root + QStringLiteral("/task"));
    for (const QString& task : tasks.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QByteArray status = readFile(tasks.filePath(task) + QStringLiteral("/status"));
        usage.contextSwitches += numberAfter(status, "\nvoluntary_ctxt_switches:");
        usage.contextSwitches += numberAfter(status, "\nnonvoluntary_ctxt_switches:");
    }
    return usage;
}

double pssMegabytes(qint64 processId)
{
    return double(numberAfter(readFile(QStringLiteral("/proc/%1/smaps_rollup").arg(processId)), "\nPss:"))
        / 1024.0;
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.empty() ? -1 : values[values.size() / 2];
}

/// "env NAME=VALUE ... PROGRAM ARGUMENTS" shows as "PROGRAM ARGUMENTS".
QString shownName(const QStringList& words)
{
    const auto program = std::find_if(words.begin(), words.end(),
        [](const QString& word) { return word != QStringLiteral("env") && !word.contains(u'='); });
    QStringList shown(program, words.end());
    if (!shown.isEmpty())
        shown.front() = QFileInfo(shown.front()).fileName();
    return shown.join(u' ');
}

void wait(
    int milliseconds, const std::function<bool()>& isOver = [] { return false; })
{
    const QDeadlineTimer deadline(milliseconds);
    while (!deadline.hasExpired() && !isOver())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 20);
}

/// Starts the program and waits for its icon.
void start(Subject& subject)
{
    subject.hasIcon = false;
    subject.sinceStart.start();
    subject.process->start();
    wait(kMostMillisecondsToTray, [&] { return subject.hasIcon; });
}

void end(Subject& subject)
{
    subject.process->terminate();
    subject.process->waitForFinished(2000);
}

void print(const std::vector<Subject>& subjects)
{
    QTextStream out(stdout);
    out << QStringLiteral("%1 %2 %3 %4 %5\n")
               .arg(QStringLiteral("program"), -24)
               .arg(QStringLiteral("tray after"), 12)
               .arg(QStringLiteral("PSS"), 10)
               .arg(QStringLiteral("CPU/min"), 10)
               .arg(QStringLiteral("switches/min"), 14);
    for (const Subject& subject : subjects) {
        const Usage after = usageOf(subject.process->processId());
        out << QStringLiteral("%1 %2 s %3 MB %4 s %5\n")
                   .arg(subject.name, -24)
                   .arg(median(subject.secondsToTray), 10, 'f', 3)
                   .arg(subject.pssMegabytes, 7, 'f', 1)
                   .arg(after.cpuSeconds - subject.before.cpuSeconds, 8, 'f', 2)
                   .arg(after.contextSwitches - subject.before.contextSwitches, 14);
    }
}
}

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList commands = QCoreApplication::arguments().mid(1);
    if (commands.isEmpty()) {
        QTextStream(stderr) << "usage: measure-idle \"PROGRAM ARGUMENTS\" ...\n";
        return 2;
    }

    std::vector<Subject> subjects;
    TrayWatcher watcher([&](qint64 processId) {
        for (Subject& subject : subjects) {
            if (subject.process->processId() != processId || std::exchange(subject.hasIcon, true))
                continue;
            subject.secondsToTray.push_back(double(subject.sinceStart.nsecsElapsed()) * 1e-9);
        }
    });
    if (!watcher.start()) {
        QTextStream(stderr) << "measure-idle: there is no session bus, or it has a tray host already\n";
        return 1;
    }

    for (const QString& command : commands) {
        const QStringList words = QProcess::splitCommand(command);
        Subject subject;
        subject.name = shownName(words);
        subject.process = std::make_unique<QProcess>();
        subject.process->setProgram(words.value(0));
        subject.process->setArguments(words.mid(1));
        subject.process->setStandardErrorFile(QProcess::nullDevice());
        subjects.push_back(std::move(subject));
    }
    // The last start of each stays. In turns, and one after the other, so that no start disturbs another.
    for (int round = 1; round <= kStarts; ++round) {
        for (Subject& subject : subjects) {
            start(subject);
            wait(300);
            if (round < kStarts)
                end(subject);
        }
    }

    wait(kSettleSeconds * 1000);
    for (Subject& subject : subjects) {
        subject.pssMegabytes = pssMegabytes(subject.process->processId());
        subject.before = usageOf(subject.process->processId());
    }
    wait(kIdleSeconds * 1000);
    print(subjects);
    for (Subject& subject : subjects)
        end(subject);
    return 0;
}
