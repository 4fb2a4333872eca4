#pragma once

#include <QByteArray>
#include <QProcess>
#include <QStandardPaths>

/// An X server without a screen of its own, for tests. DISPLAY names it while it lives.
class XvfbServer {
public:
    static bool isInstalled() { return !QStandardPaths::findExecutable(QStringLiteral("Xvfb")).isEmpty(); }

    XvfbServer()
        : m_previousDisplay(qgetenv("DISPLAY"))
    {
        m_server.start(QStringLiteral("Xvfb"),
            {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                QStringLiteral("0"), QStringLiteral("320x200x24"), QStringLiteral("-nolisten"),
                QStringLiteral("tcp"), QStringLiteral("-noreset")});
        if (m_server.waitForReadyRead(10'000))
            m_display = ':' + m_server.readLine().trimmed();
        qputenv("DISPLAY", m_display);
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

    [[nodiscard]] bool isRunning() const { return !m_display.isEmpty(); }
    /// The server dies, and every connection to it.
    void stop()
    {
        m_server.kill();
        m_server.waitForFinished();
    }

private:
    QProcess m_server;
    QByteArray m_display;
    QByteArray m_previousDisplay;
};
