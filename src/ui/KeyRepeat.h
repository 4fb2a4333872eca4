#pragma once

#include <QtGlobal>

class QKeyEvent;

/// Tells a key that is pressed from one that is only kept down. Qt 6.4 misses many repetitions on X11, where
/// a key that is kept down comes as pairs of release and press: such a press has the very time of the release
/// before it.
class KeyRepeat {
public:
    /// Call from keyReleaseEvent().
    void released(const QKeyEvent& event);
    /// Whether the press is a repetition.
    [[nodiscard]] bool isRepetition(const QKeyEvent& press) const;

private:
    int m_key = 0;
    quint64 m_releaseTime = 0;
};
