#include "ui/KeyRepeat.h"

#include <QKeyEvent>

void KeyRepeat::released(const QKeyEvent& event)
{
    m_key = event.key();
    m_releaseTime = event.timestamp();
}

bool KeyRepeat::isRepetition(const QKeyEvent& press) const
{
    const bool hasTimeOfRelease = press.timestamp() != 0 && press.timestamp() == m_releaseTime;
    return press.isAutoRepeat() || (hasTimeOfRelease && press.key() == m_key);
}
