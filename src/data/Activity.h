#pragma once

#include "data/ActivityPeriod.h"

#include <cstdint>
#include <memory>

class ManagedObjectContext;

/// One stored period of sitting or standing. A change is kept in the context until the next successful save.
class Activity {
public:
    Activity(const Activity&) = delete;
    Activity& operator=(const Activity&) = delete;
    ~Activity();

    [[nodiscard]] Date startDate() const { return m_period.startDate; }
    void setStartDate(Date startDate);
    /// When the period ended, or the last pulse while it is still running.
    [[nodiscard]] Date endDate() const { return m_period.endDate; }
    void setEndDate(Date endDate);
    [[nodiscard]] bool isStanding() const { return m_period.isStanding; }
    void setIsStanding(bool isStanding);
    /// The user's weight when the record was made, in kg.
    [[nodiscard]] double weight() const { return m_weight; }
    void setWeight(double weight);

    /// Whether the record has been saved at least once.
    [[nodiscard]] bool isStored() const { return m_rowId != 0; }

    [[nodiscard]] const ActivityPeriod& period() const { return m_period; }

    /// Ends the period (now, unless the caller knows better) and saves its context. False (and one log line)
    /// when the save failed; the new end stays in memory and goes out with the next successful save.
    bool pulse(Date endDate = Date::now());

private:
    friend class ManagedObjectContext;
    explicit Activity(ManagedObjectContext& context);
    void changed();

    ManagedObjectContext* m_context; ///< Null once the context is gone.
    int64_t m_rowId = 0; ///< 0 until the record has been saved for the first time.
    ActivityPeriod m_period;
    double m_weight = 0;
};

using ActivityRef = std::shared_ptr<Activity>;
