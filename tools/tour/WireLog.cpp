#include "WireLog.h"

#include <QDateTime>
#include <QTextStream>

WireLog::~WireLog()
{
    flush();
}

void WireLog::record(const HidTransfer& transfer)
{
    const bool isWrite = transfer.direction == HidTransfer::Direction::Write;
    ++(isWrite ? m_writes : m_reads);
    if (!isWrite) {
        if (transfer.status == 0 && transfer.bytes == m_lastAnswer)
            return;
        // While the desk moves each answer differs by its height alone; the commands tell that story already.
        const bool isMoving = m_count > 1;
        m_lastAnswer = transfer.bytes;
        if (isMoving)
            return;
    }
    print(transfer.text(), transfer.seconds);
}

void WireLog::flush()
{
    if (m_count == 0)
        return;
    const QString time = QDateTime::fromMSecsSinceEpoch(qint64(m_countedSince * 1000.0 + 0.5), Qt::UTC)
                             .toString(QStringLiteral("hh:mm:ss.z"));
    QTextStream(stdout) << time.leftJustified(10, u'0', true) << "      " << m_counted
                        << (m_count > 1 ? QStringLiteral("  (%1 times)").arg(m_count) : QString())
                        << Qt::endl;
    m_count = 0;
    m_counted.clear();
}

void WireLog::print(const QString& text, double seconds)
{
    if (text == m_counted) {
        ++m_count;
        return;
    }
    flush();
    m_counted = text;
    m_countedSince = seconds;
    m_count = 1;
}
