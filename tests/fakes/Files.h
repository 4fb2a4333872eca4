#pragma once

#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

inline QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Makes the folder too.
inline void write(const QString& path, const QByteArray& bytes)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
}

/// What an action writes to the log, without the times.
template <typename Action>
QString logOf(Action action)
{
    testing::internal::CaptureStderr();
    action();
    return QString::fromStdString(testing::internal::GetCapturedStderr())
        .remove(QRegularExpression(R"(20[-0-9]* [:.0-9]* StandUp\[\d+\] )"));
}
