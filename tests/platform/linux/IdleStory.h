#pragma once

#include "TestBus.h"
#include "fakes/Story.h"
#include "platform/linux/IdleBackend.h"

/// What happens around a backend, which "?" asks.
struct IdleStory : Story {
    /// The seconds since the last input that each "?" got in the end, or "none".
    std::string told(IdleBackend& backend, const char* story)
    {
        const auto answers = std::make_shared<QStringList>(); // Some come after the story.
        deeds["?"] = [&] {
            answers->append("-");
            backend.ask([this, answers, which = answers->size() - 1](std::optional<double> at) {
                (*answers)[which] = at ? QString::number(platform.runLoop.monotonicNow() - *at) : "none";
            });
        };
        play(story);
        return answers->join(u' ').toStdString();
    }
};
