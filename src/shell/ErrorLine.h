#pragma once

#include "platform/NotificationCenter.h"
#include "platform/RunLoop.h"

class HyperLinkTextField;
class ScrollingBody;

/// The line in which a window shows the desk's errors: filled by `error_code`, cleared 15 s after the desk
/// reports itself well. Its timer repeats until the next error, because a second clearing changes nothing.
class ErrorLine {
public:
    /// Whether lines stay plain where the settings name no page on errors.
    enum class WithoutUrl { PlainText, EmptyLink };

    /// @param area around the label, shown and hidden with it
    ErrorLine(HyperLinkTextField& label, ScrollingBody& area, WithoutUrl withoutUrl);
    ErrorLine(const ErrorLine&) = delete;
    ErrorLine& operator=(const ErrorLine&) = delete;
    ~ErrorLine() = default;

    void hide();
    void observerErrorRecieved(const PostedNotification& posted);
    void observerRemoveErrorRecieved();
    void startErrorTimer();
    void onErrorTimerTick();
    [[nodiscard]] const TimerRef& updateErrorTimer() const { return m_updateErrorTimer; }

private:
    [[nodiscard]] QString text(const QMap<QString, QString>& errorCodes) const;

    HyperLinkTextField& m_label;
    ScrollingBody& m_area;
    WithoutUrl m_withoutUrl;
    QMap<QString, QString> m_errorCodes; ///< on show
    TimerRef m_updateErrorTimer;
    TimerScope m_timers;
    NotificationCenter::Observation m_errorObservation;
    NotificationCenter::Observation m_errorRemovedObservation;
};
