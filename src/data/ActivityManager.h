#pragma once

#include <QMap>

#include <cstdint>

/// The five goal steps of each activity mode.
class ActivityManager {
public:
    using Goals = QMap<int, int>; ///< step 0 to 4 -> kcal a day or standing minutes an hour

    ActivityManager();

    [[nodiscard]] const Goals& calorieGoals() const { return m_calorieGoals; }
    [[nodiscard]] const Goals& timeGoals() const { return m_timeGoals; }
    /// Null for an unknown mode.
    [[nodiscard]] const Goals* dictForActivityMode(int32_t mode) const;
    /// 0 for an unknown step or mode.
    [[nodiscard]] double goalFromIndex(int32_t index, int32_t forActivityMode) const;
    [[nodiscard]] float indexFromGoal(int32_t goal, int32_t forActivityMode) const;

private:
    Goals m_calorieGoals;
    Goals m_timeGoals;
};
