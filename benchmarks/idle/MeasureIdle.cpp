// Measures what programs with a tray icon cost, each started as its user would start it:
//   - time and CPU time from the start until the icon is registered, and time until the host has read it;
//   - memory of each alone, half a minute after its start;
//   - CPU time and context switches of a minute, all side by side, so that each meets the same minute.
// Three rounds; the medians are printed, and what they are of the first program's.
// ROUNDS and SETTLE (seconds) in the environment make it shorter.
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
#include <ctime>
#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace {
constexpr int kStartsARound = 5;
constexpr int kMostMillisecondsToTray = 10000;
constexpr int kMinute = 60;

enum class Figure { TrayMs, ReadMs, StartCpuMs, PssMegabytes, UssMegabytes, CpuMs, Switches };
constexpr Figure kFigures[] = {Figure::TrayMs, Figure::ReadMs, Figure::StartCpuMs, Figure::PssMegabytes,
    Figure::UssMegabytes, Figure::CpuMs, Figure::Switches};
constexpr const char* kTitles[] = {
    "tray ms", "read ms", "CPU ms", "PSS MB", "USS MB", "CPU ms/min", "switches/min"};

struct Subject {
    QString name;
    QStringList command;
    std::unique_ptr<QProcess> process;
    QElapsedTimer sinceStart;
    bool isRead = false;
    std::map<Figure, std::vector<double>> figures;
    double cpuBefore = 0;
    qint64 switchesBefore = 0;

    [[nodiscard]] qint64 processId() const { return process ? process->processId() : 0; }
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

/// Milliseconds from the process's own clock, which is exact where /proc/PID/stat counts ticks of 10 ms.
double cpuMilliseconds(qint64 processId)
{
    clockid_t clock {};
    timespec time {};
    if (clock_getcpuclockid(pid_t(processId), &clock) != 0 || clock_gettime(clock, &time) != 0)
        return 0;
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) * 1e-6;
}

qint64 contextSwitches(qint64 processId)
{
    qint64 switches = 0;
    const QDir tasks(QStringLiteral("/proc/%1/task").arg(processId));
    for (const QString& task : tasks.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QByteArray status = readFile(tasks.filePath(task) + QStringLiteral("/status"));
        switches += numberAfter(status, "\nvoluntary_ctxt_switches:");
    }
    return switches;
}

void measureMemory(Subject& subject)
{
    constexpr double kKilobytes = 1024;
    const QByteArray map = readFile(QStringLiteral("/proc/%1/smaps_rollup").arg(subject.processId()));
    const auto uss = numberAfter(map, "\nPrivate_Clean:") + numberAfter(map, "\nPrivate_Dirty:");
    subject.figures[Figure::PssMegabytes].push_back(double(numberAfter(map, "\nPss:")) / kKilobytes);
    subject.figures[Figure::UssMegabytes].push_back(double(uss) / kKilobytes);
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.empty() ? -1 : values[values.size() / 2];
}

void wait(
    int milliseconds, const std::function<bool()>& isOver = [] { return false; })
{
    const QDeadlineTimer deadline(milliseconds);
    while (!deadline.hasExpired() && !isOver())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 20);
}

/// Starts the program and waits until its icon has been read.
void start(Subject& subject)
{
    subject.isRead = false;
    subject.process = std::make_unique<QProcess>();
    subject.process->setStandardErrorFile(QProcess::nullDevice());
    subject.sinceStart.start();
    subject.process->start(subject.command.first(), subject.command.mid(1));
    wait(kMostMillisecondsToTray, [&] { return subject.isRead; });
}

void end(Subject& subject)
{
    subject.process->terminate();
    if (!subject.process->waitForFinished(2000))
        subject.process->kill();
    subject.process.reset();
}

void heard(Subject& subject, TrayWatcher::Event event)
{
    const double milliseconds = double(subject.sinceStart.nsecsElapsed()) * 1e-6;
    const bool isRead = event == TrayWatcher::Event::Read;
    subject.figures[isRead ? Figure::ReadMs : Figure::TrayMs].push_back(milliseconds);
    if (!isRead)
        subject.figures[Figure::StartCpuMs].push_back(cpuMilliseconds(subject.processId()));
    subject.isRead = isRead;
}

/// In turns, and one after the other, so that no start disturbs another.
void measureStarts(std::vector<Subject>& subjects)
{
    for (int i = 0; i < kStartsARound; ++i) {
        for (Subject& subject : subjects) {
            start(subject);
            wait(300);
            end(subject);
        }
    }
}

void measureMemory(std::vector<Subject>& subjects, int settleSeconds)
{
    for (Subject& subject : subjects) {
        start(subject);
        wait(settleSeconds * 1000);
        measureMemory(subject);
        end(subject);
    }
}

void measureMinute(std::vector<Subject>& subjects, int settleSeconds)
{
    for (Subject& subject : subjects)
        start(subject);
    wait(settleSeconds * 1000);
    for (Subject& subject : subjects) {
        subject.cpuBefore = cpuMilliseconds(subject.processId());
        subject.switchesBefore = contextSwitches(subject.processId());
    }
    wait(kMinute * 1000);
    for (Subject& subject : subjects) {
        subject.figures[Figure::CpuMs].push_back(cpuMilliseconds(subject.processId()) - subject.cpuBefore);
        subject.figures[Figure::Switches].push_back(
            double(contextSwitches(subject.processId()) - subject.switchesBefore));
        end(subject);
    }
}

void print(std::vector<Subject>& subjects)
{
    QTextStream out(stdout);
    out << QStringLiteral("%1").arg(QString(), -26);
    for (const char* const title : kTitles)
        out << QStringLiteral("%1").arg(QLatin1String(title), 18);
    for (Subject& subject : subjects) {
        out << QStringLiteral("\n%1").arg(subject.name, -26);
        for (const Figure figure : kFigures) {
            const double value = median(subject.figures[figure]);
            const double share = value / median(subjects.front().figures[figure]);
            out << QStringLiteral("%1 (%2)").arg(value, 11, 'f', 1).arg(share, 4, 'f', 2);
        }
    }
    out << '\n';
}
}

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    if (arguments.isEmpty()) {
        QTextStream(stderr) << "usage: measure-idle \"NAME: PROGRAM ARGUMENTS\" ...\n";
        return 2;
    }
    const auto setting = [](const char* name, int usual) {
        return qEnvironmentVariableIsSet(name) ? qEnvironmentVariableIntValue(name) : usual;
    };
    const int rounds = setting("ROUNDS", 3);
    const int settleSeconds = setting("SETTLE", 30);

    std::vector<Subject> subjects(size_t(arguments.size()));
    for (size_t i = 0; i < subjects.size(); ++i) {
        subjects[i].name = arguments[qsizetype(i)].section(u':', 0, 0);
        subjects[i].command = QProcess::splitCommand(arguments[qsizetype(i)].section(u':', 1));
    }
    TrayWatcher watcher([&](qint64 processId, TrayWatcher::Event event) {
        for (Subject& subject : subjects) {
            if (processId != 0 && subject.processId() == processId)
                heard(subject, event);
        }
    });
    if (!watcher.start()) {
        QTextStream(stderr) << "measure-idle: there is no session bus, or it has a tray host already\n";
        return 1;
    }
    for (int round = 1; round <= rounds; ++round) {
        measureStarts(subjects);
        measureMemory(subjects, settleSeconds);
        measureMinute(subjects, settleSeconds);
        QTextStream(stderr) << "round " << round << " of " << rounds << '\n';
    }
    print(subjects);
    return 0;
}
