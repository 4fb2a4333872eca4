#include "WireLog.h"

#include <QDateTime>
#include <QTextStream>

namespace {
uint16_t littleEndian(const std::vector<uint8_t>& bytes, size_t at)
{
    return at + 1 < bytes.size() ? uint16_t(bytes[at] | bytes[at + 1] << 8) : uint16_t(0);
}

QString millimetres(uint16_t height)
{
    return QStringLiteral("%1 mm").arg(height / 10.0, 0, 'f', 1);
}

QString meaningOfMovement(uint16_t value)
{
    switch (value) {
    case 0x8000:
        return QStringLiteral("up");
    case 0x7FFF:
        return QStringLiteral("down");
    case 0x8001:
        return QStringLiteral("stop");
    default:
        return QStringLiteral("go to ") + millimetres(value);
    }
}

QString meaningOfStatus(const std::vector<uint8_t>& bytes)
{
    const uint16_t status = littleEndian(bytes, 2);
    return QStringLiteral("%1, height %2%3")
        .arg((status & 0x0001) ? QStringLiteral("desk answers") : QStringLiteral("no desk"),
            millimetres(littleEndian(bytes, 4)), (status & 0x0200) ? QStringLiteral(", error") : QString());
}

/// In words, after docs/protocol.md.
QString meaning(const HidTransfer& transfer)
{
    if (transfer.status != 0 || transfer.bytes.empty())
        return {};
    switch (transfer.bytes[0]) {
    case 3:
        return QStringLiteral("init");
    case 4:
        return meaningOfStatus(transfer.bytes);
    case 5:
        return meaningOfMovement(littleEndian(transfer.bytes, 1));
    default:
        return {};
    }
}
}

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
    print(QStringLiteral("%1  %2").arg(transfer.text(), meaning(transfer)), transfer.seconds);
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
