#include "data/ActivityManager.h"

#include "data/ActivityMode.h"

ActivityManager::ActivityManager()
    : m_calorieGoals {{0, 50}, {1, 100}, {2, 150}, {3, 200}, {4, 250}}
    , m_timeGoals {{0, 10}, {1, 15}, {2, 20}, {3, 30}, {4, 40}}
{
}

const ActivityManager::Goals* ActivityManager::dictForActivityMode(int32_t mode) const
{
    switch (mode) {
    case kCalorieGoal:
        return &m_calorieGoals;
    case kTimeGoal:
        return &m_timeGoals;
    default:
        return nullptr;
    }
}

double ActivityManager::goalFromIndex(int32_t index, int32_t forActivityMode) const
{
    const Goals* goals = dictForActivityMode(forActivityMode);
    return goals ? goals->value(index) : 0;
}

float ActivityManager::indexFromGoal(int32_t goal, int32_t forActivityMode) const
{
    const Goals* goals = dictForActivityMode(forActivityMode);
    return goals ? float(goals->key(goal)) : 0;
}
