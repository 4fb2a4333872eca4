#include "platform/Log.h"

#include <QDateTime>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <fcntl.h>
#include <functional>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {
/// The log belongs to the process, so each test takes a process of its own. Its result is the number of the
/// check that failed, or 0.
int inOwnProcess(const std::function<int()>& body)
{
    const pid_t child = fork();
    if (child == 0) {
        dup2(open("/dev/null", O_WRONLY | O_CLOEXEC), STDERR_FILENO);
        _exit(body());
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

QByteArrayList linesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed().split('\n') : QByteArrayList {{}};
}

class LogTest : public testing::Test {
protected:
    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath(QStringLiteral("StandUp.log"));
};

TEST_F(LogTest, earlyLinesAreRepeatedIntoTheFileAndLaterOnesAppended)
{
    EXPECT_EQ(inOwnProcess([&] {
        for (int i = 0; i < 101; ++i) // One more than is kept.
            Log::line(QStringLiteral("early"));
        return Log::redirectToFile(m_path) ? 0 : 1;
    }),
        0);
    EXPECT_EQ(inOwnProcess([&] {
        Log::line(QStringLiteral("second start é"));
        if (!Log::redirectToFile(m_path))
            return 1;
        Log::line(QStringLiteral("later"));
        fputs("from a library\n", stderr);
        return 0;
    }),
        0);
    const QByteArrayList lines = linesOf(m_path);
    ASSERT_EQ(lines.size(), 103);
    EXPECT_TRUE(lines[99].endsWith("] early"));
    EXPECT_TRUE(lines[100].endsWith("] second start é"));
    EXPECT_TRUE(lines[101].endsWith("] later"));
    EXPECT_EQ(lines[102], "from a library");
    // The moment, as the user's clock shows it, and the process.
    static const QRegularExpression kHead(
        QStringLiteral(R"(^\d{4}-\d\d-\d\d \d\d:\d\d:\d\d\.\d{3} StandUp\[\d+\] later$)"));
    EXPECT_TRUE(kHead.match(QString::fromUtf8(lines[101])).hasMatch()) << lines[101].constData();
    EXPECT_LT(QDateTime::fromString(QString::fromUtf8(lines[101].left(23)), Qt::ISODateWithMs)
                  .msecsTo(QDateTime::currentDateTime()),
        60000);
    EXPECT_EQ(QFile::permissions(m_path) & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
}

TEST_F(LogTest, standardErrorMayBeClosedAndStaysWhereItIsWhenAFileCannotBeOpened)
{
    EXPECT_EQ(inOwnProcess([&] {
        close(STDERR_FILENO);
        if (!Log::redirectToFile(m_path))
            return 1;
        return Log::redirectToFile(QStringLiteral("/proc/no such folder/StandUp.log")) ? 2 : 0;
    }),
        0);
    EXPECT_TRUE(linesOf(m_path).constFirst().endsWith("cannot be opened: No such file or directory"));
}

TEST_F(LogTest, linesOfSeveralThreadsStayWhole)
{
    EXPECT_EQ(inOwnProcess([&] {
        std::vector<std::thread> threads;
        for (int i = 0; i < 4; ++i) {
            threads.emplace_back([] {
                for (int line = 0; line < 50; ++line)
                    Log::line(QString(200, QLatin1Char('x')));
            });
        }
        if (!Log::redirectToFile(m_path))
            return 1;
        for (std::thread& thread : threads)
            thread.join();
        return 0;
    }),
        0);
    for (const QByteArray& line : linesOf(m_path))
        EXPECT_TRUE(line.endsWith("] " + QByteArray(200, 'x'))) << line.constData();
}
}
