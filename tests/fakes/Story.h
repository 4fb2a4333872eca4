#pragma once

#include "fakes/TestPlatform.h"

#include <functional>
#include <map>

/// What happens around a class under test, word by word: "+n" lets n seconds pass, in "zn" the machine
/// sleeps, and other words are deeds of the test's own, "?" a question as a rule.
struct Story {
    void play(const QString& words)
    {
        for (const QString& word : words.split(QLatin1Char(' '))) {
            if (const auto deed = deeds.find(word); deed != deeds.end())
                deed->second();
            else if (word.startsWith(QLatin1Char('+')))
                platform.runLoop.advance(word.toDouble());
            else if (word.startsWith(QLatin1Char('z')))
                platform.runLoop.sleepMachine(word.mid(1).toDouble());
            else
                otherwise(word);
            settle();
        }
    }

    TestPlatform platform;
    std::map<QString, std::function<void()>> deeds;
    std::function<void(const QString&)> otherwise;
    std::function<void()> settle = [] {
    }; ///< lets the other end and the event loop work off what is under way
};
