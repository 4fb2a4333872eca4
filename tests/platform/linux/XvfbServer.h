#pragma once

#include <QByteArray>
#include <QProcess>

#include <gtest/gtest.h>

/// An X server without a screen of its own, for tests. DISPLAY names it while it lives.
class XvfbServer {
public:
    XvfbServer()
        : m_previousDisplay(qgetenv("DISPLAY"))
    {
        m_server.start(QStringLiteral("Xvfb"),
            {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                QStringLiteral("0"), QStringLiteral("320x200x24"), QStringLiteral("-nolisten"),
                QStringLiteral("tcp"), QStringLiteral("-noreset")});
        EXPECT_TRUE(m_server.waitForReadyRead(10'000)) << "Xvfb does not start";
        qputenv("DISPLAY", ':' + m_server.readLine().trimmed());
    }
    ~XvfbServer()
    {
        stop();
        if (m_previousDisplay.isEmpty())
            qunsetenv("DISPLAY");
        else
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

private:
    QProcess m_server;
    QByteArray m_previousDisplay;
};
