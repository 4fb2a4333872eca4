#include "platform/Log.h"

#include "fakes/Files.h"

#include <QDateTime>
#include <QTemporaryDir>

#include <unistd.h>

/// The log belongs to the process, so each start takes a process of its own, before other tests have logged:
/// GoogleTest begins with the suites of this name.
TEST(LogDeathTest, earlyLinesAreRepeatedIntoTheFileAndLaterOnesAppended)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("StandUp.log");
    const auto firstStart = [&] {
        for (int i = 0; i < 101; ++i) // One more than is kept.
            Log::line("early");
        _exit(Log::redirectToFile(path));
    };
    EXPECT_EXIT(firstStart(), testing::ExitedWithCode(true), "early");
    const auto secondStart = [&] {
        for (int i = 0; i < 2; ++i)
            Log::once("second start é");
        const bool isRedirected = Log::redirectToFile(path);
        Log::line("later");
        fputs("from a library\n", stderr);
        _exit(isRedirected && Log::redirectToFile(path));
    };
    EXPECT_EXIT(secondStart(), testing::ExitedWithCode(true), "second start");
    const auto startWithoutStandardError = [&] {
        close(STDERR_FILENO);
        _exit(Log::redirectToFile(path) && !Log::redirectToFile("/proc/none"));
    };
    EXPECT_EXIT(startWithoutStandardError(), testing::ExitedWithCode(true), "");

    const QString written = QString::fromUtf8(contents(path));
    const QRegularExpression head(R"(^(\d{4}-\d\d-\d\d \d\d:\d\d:\d\d\.\d{3}) StandUp\[[1-9]\d*\] )",
        QRegularExpression::MultilineOption);
    EXPECT_EQ(QString(written).remove(head),
        QString("early\n").repeated(100) + "second start é\nlater\nfrom a library\n"
            + "The log file /proc/none cannot be opened: No such file or directory\n");
    const QDateTime moment = QDateTime::fromString(head.match(written).captured(1), Qt::ISODateWithMs);
    EXPECT_LT(std::abs(moment.msecsTo(QDateTime::currentDateTime())), 60000);
    EXPECT_EQ(QFile::permissions(path) & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
}
