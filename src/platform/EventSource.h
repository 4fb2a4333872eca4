#pragma once

#include <QString>

#include <functional>

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

    /// Posted without object and information when canTell() changes.
    inline static const QString kCanTellDidChange = QStringLiteral("org.zelvo.StandUp.idletimedidchange");

    virtual ~EventSource() = default;
    EventSource(const EventSource&) = delete;
    EventSource& operator=(const EventSource&) = delete;

    /// Seconds since the last event of the type; a source that cannot tell types apart answers for any event.
    /// After each sleep of the machine the user counts as absent until the first input: the answers are
    /// longer than any limit, those to the first question of all.
    [[nodiscard]] virtual double secondsSinceLastEventType(EventType eventType) = 0;
    /// Brings the answers up to date and calls back then: at once, or from the main loop soon after. Between
    /// two calls the answers grow with time, whatever input there is. A call drops the callback of the one
    /// before if that is still out.
    // NOLINTNEXTLINE(performance-unnecessary-value-param): Who does not answer at once keeps it.
    virtual void refresh(std::function<void()> ready) { ready(); }
    /// False where nothing on this desktop tells of input; the user counts as active then.
    [[nodiscard]] virtual bool canTell() const { return true; }
    /// How the log calls what the answers come from; empty while that is not known.
    [[nodiscard]] virtual QString name() const { return {}; }
    /// The desktop says that the machine woke, whether or not the clocks show a sleep.
    virtual void didWake() { }

protected:
    EventSource() = default;
};
