// Starts programs side by side, each as its user would, and prints what each costs: time from its start to
// its tray icon, memory (PSS) after a minute, CPU time and context switches in the idle minute after that.
// Wants an X display and a session bus of its own: benchmarks/idle/run gives it both.

#include "TrayWatcher.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>
#include <QTimer>

#include <memory>
#include <unistd.h>
#include <vector>

namespace {
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
    double secondsToTray = -1;
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
                   .arg(subject.secondsToTray, 10, 'f', 3)
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
            if (subject.process->processId() == processId && subject.secondsToTray < 0)
                subject.secondsToTray = double(subject.sinceStart.nsecsElapsed()) * 1e-9;
        }
    });
    if (!watcher.start()) {
        QTextStream(stderr) << "measure-idle: there is no session bus, or it has a tray host already\n";
        return 1;
    }

    for (const QString& command : commands) {
        QStringList words = QProcess::splitCommand(command);
        Subject subject;
        subject.name = words.takeFirst();
        subject.process = std::make_unique<QProcess>();
        subject.process->setProgram(subject.name);
        subject.process->setArguments(words);
        subject.name = (QFileInfo(subject.name).fileName() + u' ' + words.join(u' ')).trimmed();
        subject.process->setStandardErrorFile(QProcess::nullDevice());
        subject.sinceStart.start();
        subject.process->start();
        subjects.push_back(std::move(subject));
        // One after the other, so that no start disturbs the time of the next.
        QTimer pause;
        QEventLoop loop;
        QObject::connect(&pause, &QTimer::timeout, &loop, &QEventLoop::quit);
        pause.start(2000);
        loop.exec();
    }

    QTimer::singleShot(kSettleSeconds * 1000, &watcher, [&] {
        for (Subject& subject : subjects) {
            subject.pssMegabytes = pssMegabytes(subject.process->processId());
            subject.before = usageOf(subject.process->processId());
        }
    });
    QTimer::singleShot((kSettleSeconds + kIdleSeconds) * 1000, &watcher, [&] {
        print(subjects);
        for (Subject& subject : subjects) {
            subject.process->terminate();
            subject.process->waitForFinished(2000);
        }
        QCoreApplication::quit();
    });
    return QCoreApplication::exec();
}
