#include "storm/Script.h"

#include <algorithm>
#include <sstream>

namespace storm {
namespace {
using Random = std::mt19937_64;

struct VerbRow {
    const char* name;
    int share; ///< of all steps
    std::vector<const char*> variants;
};

/// In the order of Verb.
const std::vector<VerbRow> kVerbs {
    {"wait", 12, {}},
    {"press", 16,
        {"up", "down", "memory1", "memory2", "memory3", "reminder-memory", "reminder-up", "reminder-down"}},
    {"let-go", 14, {"button", "hide", "minimise", "close", "deactivate"}},
    {"window", 5, {"main", "none"}},
    {"plug", 5, {"first", "second"}},
    {"unplug", 3, {"first", "second"}},
    {"wire", 5,
        {"well", "slow", "one-failure", "failing", "failing-reads", "failing-writes", "stalled", "silent"}},
    {"error", 3, {"position-lost", "overload-up", "overload-down", "code", "unnamed", "none"}},
    {"handset", 5, {}},
    {"user", 8, {"away", "back"}},
    {"dark", 2, {}},
    {"signal", 1, {"sleep", "wake"}},
    {"sleep", 3, {}},
    {"clock", 2, {}},
    {"set", 4, {}},
    {"answer", 8, {"snooze", "skip", "skip-unpointed", "close"}},
    {"disk", 1, {"full", "free"}},
    {"end", 1, {"kill", "quit"}},
    {"freeze", 2, {}},
};

struct Range {
    const char* key;
    int least, most;
    double unit;
};

/// No value equals its default, and no two settings are likely to be equal.
const std::vector<Range> kSettings {
    {"Weight", 81, 260, 0.5},
    {"ActivityMode", 1, 2, 1},
    {"ActivityGoal", 7, 53, 1},
    {"NumberOfStandUps", 2, 6, 1},
    {"DevicePosition1", 60, 210, 10},
    {"DevicePosition2", 330, 460, 10},
    {"DevicePosition3", 230, 320, 10},
    {"TimeIdle", 41, 431, 1},
    {"TimeSnooze", 55, 777, 1},
    {"TimeNotificationDismiss", 7, 19, 1},
    {"TimeNotificationDismissOnAction", 2, 4, 1},
    {"AverageWorkDayHours", 3, 7, 1},
};

double between(Random& random, double least, double most)
{
    return std::uniform_real_distribution<>(least, most)(random);
}

int pick(Random& random, int least, int most)
{
    return std::uniform_int_distribution<>(least, most)(random);
}

double tenths(double seconds)
{
    return double(int(seconds * 10)) / 10;
}

/// Mostly moments, now and then the time a reminder takes.
double drawSeconds(Random& random)
{
    const double longest[] = {0.5, 3, 3, 20, 20, 60, 200, 500};
    return tenths(between(random, 0, longest[pick(random, 0, 7)]));
}

double drawSetting(Random& random, size_t setting)
{
    const Range& range = kSettings[setting];
    return pick(random, range.least, range.most) * range.unit;
}

Step drawStep(Random& random)
{
    static const std::vector<int> shares = [] {
        std::vector<int> result;
        for (const VerbRow& row : kVerbs)
            result.push_back(row.share);
        return result;
    }();
    static std::discrete_distribution<int> verbs(shares.begin(), shares.end());
    Step step {Verb(verbs(random)), 0, 0, drawSeconds(random)};
    step.variant = pick(random, 0, int(std::max<size_t>(variantNames(step.verb).size(), 1)) - 1);
    const double clocks[] = {7, 3600, -3600, 86400, -604800, 1.5e9};
    switch (step.verb) {
    case Verb::Press:
        step.seconds = tenths(between(random, 0, pick(random, 1, 12)));
        break;
    case Verb::Wire:
        step.value = pick(random, 1, 60) / 100.0;
        break;
    case Verb::Handset:
        step.value = pick(random, 200, 6500);
        break;
    case Verb::Sleep:
        step.variant = pick(random, 0, 1) ? Announced | WakeTold : pick(random, 0, 31);
        step.value = tenths(between(random, 5, pick(random, 0, 1) ? 60000 : 400));
        break;
    case Verb::Clock:
        step.value = clocks[pick(random, 0, 5)] + pick(random, 3, 999);
        break;
    case Verb::Set:
        step.variant = pick(random, 0, int(kSettings.size()) - 1);
        step.value = drawSetting(random, size_t(step.variant));
        break;
    case Verb::Freeze:
        step.value = tenths(between(random, 0.1, 4));
        break;
    default:
        break;
    }
    return step;
}

size_t indexOf(const std::vector<const char*>& names, const std::string& name)
{
    return size_t(std::find(names.begin(), names.end(), name) - names.begin());
}
}

const std::vector<const char*>& settingKeys()
{
    static const std::vector<const char*> keys = [] {
        std::vector<const char*> result;
        for (const Range& range : kSettings)
            result.push_back(range.key);
        return result;
    }();
    return keys;
}

const std::vector<const char*>& variantNames(Verb verb)
{
    return verb == Verb::Set ? settingKeys() : kVerbs[size_t(verb)].variants;
}

Script drawScript(Random& random, size_t steps)
{
    // An ordinary Friday, the nights in which summer time begins and ends in Europe, the last day of a year.
    const double starts[] = {1710489600, 1711843200, 1729987200, 1735671600};
    Script script {starts[pick(random, 0, 3)], {}, {}};
    for (size_t i = 0; i < kSettings.size(); ++i)
        script.settings.push_back(drawSetting(random, i));
    for (size_t i = 0; i < steps; ++i)
        script.steps.push_back(drawStep(random));
    return script;
}

std::string text(const Script& script)
{
    std::ostringstream out;
    out.precision(12);
    out << script.start;
    for (const double value : script.settings)
        out << ' ' << value;
    for (const Step& step : script.steps) {
        const auto& names = variantNames(step.verb);
        out << "; " << kVerbs[size_t(step.verb)].name << ' ';
        if (names.empty())
            out << step.variant;
        else
            out << names[size_t(step.variant)];
        out << ' ' << step.value << " +" << step.seconds;
    }
    return out.str();
}

Script parseScript(const std::string& text)
{
    std::istringstream parts(text);
    std::string part;
    std::getline(parts, part, ';');
    std::istringstream head(part);
    Script script {};
    head >> script.start;
    for (double value = 0; head >> value;)
        script.settings.push_back(value);
    std::vector<const char*> names;
    for (const VerbRow& row : kVerbs)
        names.push_back(row.name);
    while (std::getline(parts, part, ';')) {
        std::istringstream words(part);
        std::string verb, variant, seconds;
        Step step {};
        words >> verb >> variant >> step.value >> seconds;
        step.verb = Verb(indexOf(names, verb));
        const auto& variants = variantNames(step.verb);
        step.variant = variants.empty() ? std::stoi(variant) : int(indexOf(variants, variant));
        step.seconds = std::stod(seconds);
        script.steps.push_back(step);
    }
    return script;
}
}
