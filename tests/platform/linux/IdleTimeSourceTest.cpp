#include "platform/linux/IdleTimeSource.h"

#include "fakes/Files.h"
#include "fakes/Story.h"
#include "platform/NotificationCenter.h"

#include <utility>

namespace {
/// Answers what it is told to, or keeps silent.
struct ToldBackend final : IdleBackend {
    [[nodiscard]] QString name() const override { return itsName; }
    void ask(Answer answer) override
    {
        if (isSilent && !unanswered)
            unanswered = std::move(answer);
        else
            answer(isSilent ? std::nullopt : lastInputAt);
    }
    QString itsName;
    std::optional<double> lastInputAt;
    bool isSilent = false;
    Answer unanswered;
};

/// The idle seconds at each "?" of a story, with "!" where nothing can tell and "-" before it where the look
/// is not over, and after them what the log and the notifications said.
QString told(const char* words)
{
    Story story; // Its clock stands at 0.
    IdleTimeSource::Backends backends;
    std::map<QChar, ToldBackend*> byName;
    for (const QChar name : {u'a', u'b'}) {
        byName[name] = new ToldBackend;
        byName[name]->itsName = name;
        backends.emplace_back(byName[name]);
    }
    std::optional<IdleTimeSource> source;
    QStringList answers;
    int posts = 0;
    const auto observation = NotificationCenter::defaultCenter().addObserver(
        EventSource::kCanTellDidChange, [&](const PostedNotification&) { ++posts; });
    story.deeds["start"] = [&] { source.emplace([&] { return std::move(backends); }).refresh([] {}); };
    story.deeds["?"] = [&] {
        bool isReady = false;
        source->refresh([&] { isReady = true; });
        const double seconds = source->secondsSinceLastEventType(EventSource::EventType::KeyDown);
        answers.append((isReady ? "" : "-") + QString::number(seconds) + (source->canTell() ? "" : "!"));
    };
    story.otherwise = [&](const QString& word) {
        ToldBackend& backend = *byName.at(word[0]);
        if (word.endsWith(u'!'))
            return std::exchange(backend.unanswered, {})(1000);
        backend.isSilent = word.endsWith(u'~');
        backend.lastInputAt = word.contains(u'=') ? std::optional(word.mid(2).toDouble()) : std::nullopt;
    };
    const QString log = logOf([&] { story.play(words); });
    for (const QString& line : log.split(u'\n', Qt::SkipEmptyParts))
        answers.append(line.section("comes from: ", 1).section(u',', 0, 0));
    return answers.join(u' ') + QString(" %1").arg(posts);
}

TEST(IdleTimeSource, asksTheBestThatAnswersAndForgetsNoInput)
{
    const char* const kTestCases[][2] = {
        {"a=4 b=1 start +9 ? +3 ?", "5 8 a 0"},
        {"b=1 start +9 ? a=5 ? a- ? b=8 ?", "8 4 4 1 b a b 0"}, // The next knows of older input only.
        {"a=5 start +10 ? a=3 ? a=20 ?", "5 7 0 a 0"}, // One may know better by and by.
        {"start +9 ? +4 ? b=6 ? +4 b=15 ?", "0! 0! 0 2 none b 2"}, // Active while nothing could tell.
        // An absence goes on while the compositor restarts, and ends when it stays away.
        {"a=0 start +300 ? a- +10 ? +15 ? +0.1 ? a=0 +4 ?", "300 310 325 0! 4 a none a 2"},
        {"a=0 start +300 ? a- +25 ? a=0 +10 ? a- +25 ?", "300 325 335 360 a 0"},
        // Once without an answer is a program that was held up itself, however long.
        {"a=0 start +300 ? a- +40 ? a=0 ? a- +26 ? ?", "300 340 340 366 0! a none 1"},
        // One that hangs holds up one look, and its late answer is for nobody.
        {"b=4 a~ start +6 ? +1 ? a! ? a=9 +5 ?", "2 3 -3 3 b a 0"},
        {"a=1 start a~ +10 ? +10 ? a! +10 ? a=25 ?", "-9 19 -29 5 a 0"},
    };
    for (const auto& [story, expected] : kTestCases)
        EXPECT_EQ(told(story).toStdString(), expected) << story;
}
}
