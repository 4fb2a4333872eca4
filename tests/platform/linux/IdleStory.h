#pragma once

#include "TestBus.h"
#include "fakes/TestPlatform.h"
#include "platform/linux/IdleBackend.h"

/// What happens around a backend, word by word: "+n" lets n seconds pass, in "zn" the machine sleeps, "?"
/// asks the backend, and any other word is a deed of the test's own.
struct IdleStory {
    /// The seconds since the last input that each "?" got in the end, or "none".
    std::string told(IdleBackend& backend, const char* story)
    {
        const auto answers = std::make_shared<QStringList>(); // Some come after the story.
        for (const QString& word : QString(story).split(u' ')) {
            if (word == "?") {
                answers->append("-");
                backend.ask([this, answers, which = answers->size() - 1](std::optional<double> at) {
                    (*answers)[which] = at ? QString::number(runLoop.monotonicNow() - *at) : "none";
                });
            } else if (word.startsWith(u'+')) {
                runLoop.advance(word.toDouble());
            } else if (word.startsWith(u'z')) {
                runLoop.sleepMachine(word.mid(1).toDouble());
            } else {
                happens(word);
            }
            settle();
        }
        return answers->join(u' ').toStdString();
    }

    TestPlatform platform;
    VirtualRunLoop& runLoop = platform.runLoop;
    std::function<void(const QString&)> happens;
    std::function<void()> settle; ///< lets the other end and the event loop work off what is under way
};
