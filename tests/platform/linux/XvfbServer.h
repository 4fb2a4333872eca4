#pragma once

#include <QProcess>

#include <csignal>
#include <gtest/gtest.h>

/// An X server without a screen of its own, for tests. DISPLAY names it while it lives.
class XvfbServer {
public:
    XvfbServer()
    {
        m_server.start("Xvfb", {"-displayfd", "1", "-noreset"});
        EXPECT_TRUE(m_server.waitForReadyRead(10'000)) << "Xvfb does not start";
        qputenv("DISPLAY", ':' + m_server.readLine().trimmed());
    }
    ~XvfbServer()
    {
        stop();
        qputenv("DISPLAY", m_previousDisplay);
    }
    XvfbServer(const XvfbServer&) = delete;
    XvfbServer& operator=(const XvfbServer&) = delete;

    /// The server dies, and every connection to it.
    void stop()
    {
        m_server.kill();
        m_server.waitForFinished();
    }

    /// It answers nothing any more, until it goes on.
    void freeze() { ::kill(pid_t(m_server.processId()), SIGSTOP); }
    void thaw() { ::kill(pid_t(m_server.processId()), SIGCONT); }

private:
    QProcess m_server;
    QByteArray m_previousDisplay = qgetenv("DISPLAY");
};
