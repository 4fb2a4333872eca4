#pragma once

#include <QString>

#include <vector>

class Activity;

/// A period as it was seen from outside, or as it stands in the store.
struct Period {
    double start = 0; ///< seconds since 1970-01-01 UTC
    double end = 0;
    bool isStanding = false;

    [[nodiscard]] QString text() const;
    friend bool operator==(const Period&, const Period&) = default;
};

/// The tour's own book of what the hub recorded, to be held against the store.
class Ledger {
public:
    /// @param open the hub's open period now, or null
    void observe(const Activity* open);
    [[nodiscard]] const std::vector<Period>& periods() const { return m_periods; }
    /// All but the one that is still open.
    [[nodiscard]] size_t closedPeriods() const { return m_periods.size() - (m_open ? 1 : 0); }

private:
    std::vector<Period> m_periods;
    const Activity* m_open = nullptr;
    double m_openStart = 0;
};

/// Reads all periods from a store file through a connection of its own. Empty when the file cannot be read.
std::vector<Period> readStore(const QString& path);
