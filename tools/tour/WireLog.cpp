#include "WireLog.h"

#include "TimeOfDay.h"

#include <QTextStream>

#include <cstring>

namespace {
uint16_t littleEndian(const std::vector<uint8_t>& bytes, size_t at)
{
    return at + 1 < bytes.size() ? uint16_t(bytes[at] | bytes[at + 1] << 8) : uint16_t(0);
}

QString millimetres(uint16_t height)
{
    return QStringLiteral("%1 mm").arg(height / 10.0, 0, 'f', 1);
}

/// Direction, bytes in hexadecimal without the zeros at the end of an answer (eight at least), and what went
/// wrong.
QString bytesOf(const HidTransfer& transfer)
{
    constexpr size_t kFewestShownBytes = 8;
    const bool isWrite = transfer.direction == HidTransfer::Direction::Write;
    size_t shown = transfer.bytes.size();
    while (!isWrite && shown > kFewestShownBytes && transfer.bytes[shown - 1] == 0)
        --shown;
    QString line = isWrite ? "write" : "read ";
    for (size_t i = 0; i < shown; ++i)
        line += QString::asprintf(" %02X", transfer.bytes[i]);
    return transfer.status == 0 ? line : line + ": " + QString::fromLocal8Bit(strerror(transfer.status));
}

QString meaningOfMovement(uint16_t value)
{
    switch (value) {
    case 0x8000:
        return "up";
    case 0x7FFF:
        return "down";
    case 0x8001:
        return "stop";
    default:
        return "go to " + millimetres(value);
    }
}

QString meaningOfStatus(const std::vector<uint8_t>& bytes)
{
    const uint16_t status = littleEndian(bytes, 2);
    return QStringLiteral("%1, height %2%3")
        .arg(QString((status & 0x0001) ? "desk answers" : "no desk"), millimetres(littleEndian(bytes, 4)),
            QString((status & 0x0200) ? ", error" : ""));
}

/// In words, after docs/protocol.md.
QString meaning(const HidTransfer& transfer)
{
    if (transfer.status != 0)
        return {};
    switch (transfer.bytes[0]) {
    case 3:
        return "init";
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
    print(QStringLiteral("%1  %2").arg(bytesOf(transfer), meaning(transfer)), transfer.seconds);
}

void WireLog::flush()
{
    if (m_count == 0)
        return;
    QTextStream(stdout) << timeOfDay(m_countedSince) << "      " << m_counted
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
