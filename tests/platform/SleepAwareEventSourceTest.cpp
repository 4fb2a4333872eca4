#include "platform/SleepAwareEventSource.h"

#include "fakes/Story.h"

#include <cmath>

namespace {
/// What the source answers at each "?" of a story: seconds, or "away" for longer than any limit.
QString answers(const char* words)
{
    Story story;
    TestPlatform& platform = story.platform;
    platform.user->leave();
    QStringList result;
    const auto ask = [&] {
        const double answer = platform.events.secondsSinceLastEventType(EventSource::EventType::KeyDown);
        result.append(std::isinf(answer) ? "away" : QString::number(answer));
    };
    story.deeds = {{"?", ask}, {"input", [&] { platform.user->leave(); }},
        {"wake", [&] { platform.events.didWake(); }},
        {"set", [&] { platform.runLoop.setWallClock(platform.runLoop.now() + 9999); }}};
    story.play(words);
    return result.join(u' ');
}

TEST(SleepAwareEventSource, makesOneAbsenceOfEachSleep)
{
    // +n: n seconds pass, zn: the machine sleeps n seconds, wake: the desktop's word.
    const char* const kTestCases[][2] = {
        // The source's answer.
        {"+7 ? input ? +3 ?", "7 0 3"},
        // Nobody comes.
        {"+9 z60 ? +10 ? +900 ?", "away away away"},
        // Input after the first look.
        {"+9 z60 ? +10 ? +1 input +4 ?", "away away 4"},
        // Input before the first look may have been before the sleep.
        {"z60 +3 input +2 ? +10 ? input +5 ?", "away away 5"},
        // One look asks many times, and input comes in between.
        {"z60 ? +0.1 input +2.8 ? +2.9 ? +3.1 ?", "away away away 8.8"},
        // With the desktop's word, input before the first look is known to be after the wake.
        {"+9 z60 wake +3 input +2 ? +10 ?", "away 12"},
        // Input just before the sleep.
        {"+9 input +1 z60 wake +8 ? +10 ?", "away away"},
        // The desktop's own input, with the wake.
        {"+9 z60 wake +1.4 input +5 ? +10 ? input +2 ?", "away away 2"},
        {"+9 z60 wake +1.6 input +5 ? +10 ?", "away 15"},
        // The desktop's word alone.
        {"+9 wake +5 ? +10 ? input +10 ?", "away away 10"},
        // The word comes after the clocks were looked at.
        {"z60 ? +2 input +2 wake ? +7 ?", "away 2 9"},
        // Two sleeps without input.
        {"z60 wake +8 ? z60 wake +8 ? +10 input +4 ?", "away away 4"},
        // Two sleeps, input between.
        {"z60 wake +8 ? input +10 ? z60 wake +8 ? +10 ? input +1 ?", "away 10 away away 1"},
        // Input between two sleeps that nobody looked at.
        {"z60 wake +1 input +1 z60 wake +8 ? +10 ?", "away away"},
        // Two suspends that failed: the desktop puts the idle time back with each.
        {"wake +8 ? +20 wake +1 input +8 ? +10 ?", "away away away"},
        // Clocks read one after the other are no sleep, many of them are.
        {"z0.9 ? z0.2 ?", "0 away"},
        // A clock that is set is no sleep.
        {"+5 set ?", "5"},
    };
    for (const auto& [story, expected] : kTestCases)
        EXPECT_EQ(answers(story).toStdString(), expected) << story;
}
}
