#include "shell/ErrorLine.h"

#include "data/AppProperties.h"
#include "desk/ZelvoHIDDevice.h"
#include "ui/HyperLinkTextField.h"
#include "ui/ScrollingBody.h"
#include "ui/TextUtilities.h"

#include <QScrollBar>

namespace {
constexpr double kClearSeconds = 15.0;
}

ErrorLine::ErrorLine(HyperLinkTextField& label, ScrollingBody& area, WithoutUrl withoutUrl)
    : m_label(label)
    , m_area(area)
    , m_withoutUrl(withoutUrl)
    , m_errorObservation(NotificationCenter::defaultCenter().addObserver(ZelvoHIDDevice::kErrorCode,
          [this](const PostedNotification& posted) { observerErrorRecieved(posted); }))
    , m_errorRemovedObservation(
          NotificationCenter::defaultCenter().addObserver(ZelvoHIDDevice::kErrorCodeRemoved,
              [this](const PostedNotification&) { observerRemoveErrorRecieved(); }))
{
    m_area.verticalScrollBar()->setSingleStep(label.fontMetrics().height()); // No lines are cut in half.
    hide();
}

void ErrorLine::hide()
{
    m_label.hide();
    m_area.hide();
}

void ErrorLine::observerErrorRecieved(const PostedNotification& posted)
{
    invalidate(m_updateErrorTimer);
    if (!m_label.isHidden() && posted.userInfo == m_errorCodes)
        return; // Each report repeats it, as often as five times a second.
    m_errorCodes = posted.userInfo;
    // First the text: a screen reader is told once, of a label that appears or says something new.
    m_label.setText(text(posted.userInfo));
    m_label.show();
    m_area.show();
    m_area.raise();
}

void ErrorLine::observerRemoveErrorRecieved()
{
    startErrorTimer();
}

void ErrorLine::startErrorTimer()
{
    // The timer before this one is not stopped: an error has done so, or it clears a cleared line.
    m_updateErrorTimer =
        m_timers.schedule(kClearSeconds, RunLoop::Repeat::Yes, [this](Timer&) { onErrorTimerTick(); });
}

void ErrorLine::onErrorTimerTick()
{
    if (m_label.isHidden())
        return;
    hide();
    m_label.setText({});
}

QString ErrorLine::text(const QMap<QString, QString>& errorCodes) const
{
    const QUrl url = AppProperties::instance().errorUrl();
    const bool isLinked = !url.isEmpty() || m_withoutUrl == WithoutUrl::EmptyLink;
    QString text = richTextFromString(qtTrId("Error \n"));
    for (auto entry = errorCodes.cbegin(); entry != errorCodes.cend(); ++entry) {
        const QString& words = entry.value();
        const QString line = words.isEmpty() ? entry.key() : QStringLiteral("%1: %2").arg(entry.key(), words);
        text += isLinked ? hyperlinkFromString(line, url) : richTextFromString(line);
        // Outside the link, which underlines only what can be read.
        text += richTextFromString(words.isEmpty() ? QStringLiteral(": \n") : QStringLiteral(" \n"));
    }
    return text;
}
