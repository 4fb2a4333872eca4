#pragma once

#include "platform/simulated/HidTransfer.h"

#include <vector>

/// Prints the reports on the wire: every write, and a read when its answer differs from the one before. Equal
/// lines in a row are counted instead of repeated.
class WireLog {
public:
    ~WireLog();

    void record(const HidTransfer& transfer);
    /// Prints what is still being counted.
    void flush();
    [[nodiscard]] int writes() const { return m_writes; }
    [[nodiscard]] int reads() const { return m_reads; }

private:
    void print(const QString& text, double seconds);

    std::vector<uint8_t> m_lastAnswer;
    QString m_counted;
    double m_countedSince = 0;
    int m_count = 0;
    int m_writes = 0;
    int m_reads = 0;
};
