#pragma once

#include <QProcess>

#include <gtest/gtest.h>

/// A server program of the test's own, which says on its first line where it is reached.
struct TestServer {
    TestServer(const QString& program, const QStringList& arguments)
    {
        process.start(program, arguments);
        EXPECT_TRUE(process.waitForReadyRead(10'000)) << qPrintable(program) << " does not start";
        address = process.readLine().trimmed();
    }
    ~TestServer() { stop(); }
    Q_DISABLE_COPY_MOVE(TestServer)

    /// The server dies, and every connection to it.
    void stop()
    {
        process.kill();
        process.waitForFinished();
    }

    QProcess process;
    QByteArray address;
};

/// An X server without a screen of its own. DISPLAY names it.
struct XvfbServer : TestServer {
    XvfbServer()
        : TestServer("Xvfb", {"-displayfd", "1", "-noreset"})
    {
        qputenv("DISPLAY", ':' + address);
    }
};
