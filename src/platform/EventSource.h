#pragma once

/// The user's input events as the desktop sees them, for telling how long ago the last one was.
class EventSource {
public:
    /// Kinds of input event, numbered as the idle observer asks for them.
    enum class EventType {
        LeftMouseDown = 1,
        LeftMouseUp = 2,
        RightMouseDown = 3,
        RightMouseUp = 4,
        MouseMoved = 5,
        LeftMouseDragged = 6,
        RightMouseDragged = 7,
        KeyDown = 10,
        KeyUp = 11,
        FlagsChanged = 12,
        ScrollWheel = 22,
        TabletPointer = 23,
        TabletProximity = 24,
        OtherMouseDown = 25,
        OtherMouseUp = 26,
        OtherMouseDragged = 27,
    };

    virtual ~EventSource() = default;
    EventSource(const EventSource&) = delete;
    EventSource& operator=(const EventSource&) = delete;

    /// Seconds since the last event of the type; a source that cannot tell types apart answers for any event.
    /// After each sleep of the machine the user counts as absent until the first input: the answers are
    /// longer than any limit, those to the first question of all.
    [[nodiscard]] virtual double secondsSinceLastEventType(EventType eventType) = 0;
    /// The desktop says that the machine woke, whether or not the clocks show a sleep.
    virtual void didWake() { }

protected:
    EventSource() = default;
};
