#include "platform/Log.h"

#include <QDateTime>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {
/// The log belongs to the process, so each start takes a process of its own, before other tests have logged:
/// GoogleTest begins with the suites of this name.
class LogDeathTest : public testing::Test {
protected:
    QString contents()
    {
        QFile file(m_path);
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    const QRegularExpression m_head {R"(^(\d{4}-\d\d-\d\d \d\d:\d\d:\d\d\.\d{3}) StandUp\[[1-9]\d*\] )",
        QRegularExpression::MultilineOption};
    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath("StandUp.log");
};

TEST_F(LogDeathTest, earlyLinesAreRepeatedIntoTheFileAndLaterOnesAppended)
{
    const auto firstStart = [&] {
        for (int i = 0; i < 101; ++i) // One more than is kept.
            Log::line("early");
        _exit(!Log::redirectToFile(m_path));
    };
    EXPECT_EXIT(firstStart(), testing::ExitedWithCode(0), "early");
    const auto secondStart = [&] {
        Log::once("second start é");
        Log::once("second start é");
        const bool isRedirected = Log::redirectToFile(m_path);
        Log::line("later");
        fputs("from a library\n", stderr);
        _exit(!isRedirected || !Log::redirectToFile(m_path));
    };
    EXPECT_EXIT(secondStart(), testing::ExitedWithCode(0), "second start");
    const QString written = contents();
    EXPECT_EQ(QString(written).remove(m_head),
        QString("early\n").repeated(100) + "second start é\nlater\nfrom a library\n");
    const QDateTime moment = QDateTime::fromString(m_head.match(written).captured(1), Qt::ISODateWithMs);
    EXPECT_LT(std::abs(moment.msecsTo(QDateTime::currentDateTime())), 60000);
    EXPECT_EQ(QFile::permissions(m_path) & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
}

TEST_F(LogDeathTest, standardErrorMayBeClosedAndStaysWhereItIsWhenAFileCannotBeOpened)
{
    const auto start = [&] {
        close(STDERR_FILENO);
        const bool isRedirected = Log::redirectToFile(m_path);
        _exit(!isRedirected || Log::redirectToFile("/proc/none/StandUp.log"));
    };
    EXPECT_EXIT(start(), testing::ExitedWithCode(0), "");
    EXPECT_EQ(contents().remove(m_head),
        "The log file /proc/none/StandUp.log cannot be opened: No such file or directory\n");
}

TEST_F(LogDeathTest, linesOfSeveralThreadsStayWhole)
{
    const auto start = [&] {
        std::vector<std::thread> threads;
        for (int i = 0; i < 4; ++i) {
            threads.emplace_back([] {
                for (int line = 0; line < 50; ++line)
                    Log::line(QString(200, u'x'));
            });
        }
        const bool isRedirected = Log::redirectToFile(m_path);
        for (std::thread& thread : threads)
            thread.join();
        _exit(!isRedirected);
    };
    EXPECT_EXIT(start(), testing::ExitedWithCode(0), "");
    EXPECT_EQ(contents().remove(m_head).remove(QString(200, u'x')).remove(u'\n'), QString());
}
}
