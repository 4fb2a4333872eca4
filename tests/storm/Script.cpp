#include "storm/Script.h"

#include <algorithm>
#include <sstream>

namespace storm {
namespace {
/// Whole numbers of a unit.
struct Range {
    int least, most;
    double unit;
};

struct VerbRow {
    const char* name;
    size_t share; ///< of all steps
    std::vector<const char*> variants;
    int variantCount = 1; ///< of those without names
    Range value {0, 0, 1};
};

/// In the order of Verb.
const std::vector<VerbRow> kVerbs {
    {"wait", 10, {}},
    {"press", 16,
        {"up", "down", "memory1", "memory2", "memory3", "reminder-memory", "reminder-up", "reminder-down"}},
    {"let-go", 14, {"button", "hide", "minimise", "close", "deactivate"}},
    {"window", 7, {"main", "none"}},
    {"plug", 5, {"first", "second"}},
    {"unplug", 3, {"first", "second"}},
    {"wire", 5,
        {"well", "slow", "one-failure", "failing", "failing-reads", "failing-writes", "stalled", "silent"}, 1,
        {2, 60, 0.01}},
    {"error", 3, {"code", "none"}},
    {"handset", 5, {}, 1, {200, 6500, 1}},
    {"user", 9, {"away", "back"}},
    {"dark", 2, {}},
    {"signal", 1, {"sleep", "wake"}},
    {"sleep", 3, {}, 64, {50, 4000, 0.1}},
    {"clock", 2, {"a-bit", "hour-on", "hour-back", "day-on", "week-back", "years-on"}, 1, {3, 999, 1}},
    {"zone", 1,
        {"CET-1CEST,M3.5.0,M10.5.0/3", "NST3:30NDT,M3.2.0,M11.1.0", "IST-5:30",
            "<+1245>-12:45<+1345>,M9.5.0/2:45,M4.1.0/3:45", "UTC0"}},
    {"set", 4, {}},
    {"answer", 9, {"snooze", "skip", "skip-unpointed", "close"}},
    {"end", 1, {"kill", "quit"}},
    {"freeze", 2, {"idle", "held"}, 1, {1, 25, 0.13}},
};

struct Setting {
    const char* key;
    Range value;
};

/// No value equals its default, and no two settings are likely to be equal.
const std::vector<Setting> kSettings {
    {"Weight", {81, 260, 0.5}},
    {"ActivityMode", {1, 2, 1}},
    {"ActivityGoal", {4, 57, 1}},
    {"NumberOfStandUps", {2, 6, 1}},
    {"DevicePosition1", {60, 210, 10}},
    {"DevicePosition2", {330, 460, 10}},
    {"DevicePosition3", {230, 320, 10}},
    {"TablePositionOffset", {30, 90, 100}},
    {"TimeIdle", {41, 171, 1.0037}},
    {"TimeSnooze", {3, 12, 1.9037}},
    {"TimeNotificationDismiss", {7, 19, 1}},
    {"TimeNotificationDismissOnAction", {2, 6, 1}},
    {"AverageWorkDayHours", {3, 7, 1}},
};

double anyOf(Range range)
{
    return *rc::gen::inRange(range.least, range.most + 1) * range.unit;
}

/// Mostly moments, now and then the time a reminder takes.
double anySeconds(Verb verb)
{
    const std::vector<int> held {10, 30, 60, 120};
    const std::vector<int> other {5, 30, 30, 100, 200, 400, 900, 1500};
    return anyOf({0, *rc::gen::elementOf(verb == Verb::Press ? held : other), 0.1});
}

Step anyStep()
{
    std::vector<Verb> verbs; // As often as its share.
    for (size_t i = 0; i < kVerbs.size(); ++i)
        verbs.insert(verbs.end(), kVerbs[i].share, Verb(i));
    const Verb verb = *rc::gen::elementOf(verbs);
    const VerbRow& row = kVerbs[size_t(verb)];
    const int variant = *rc::gen::inRange(0, std::max(row.variantCount, int(variantNames(verb).size())));
    const Range range = verb == Verb::Set ? kSettings[size_t(variant)].value : row.value;
    return {verb, variant, anyOf(range), anySeconds(verb)};
}

size_t indexOf(const std::vector<const char*>& names, const std::string& name)
{
    return size_t(std::find(names.begin(), names.end(), name) - names.begin());
}

template <typename Row>
std::vector<const char*> namesOf(const std::vector<Row>& rows, const char* Row::*name)
{
    std::vector<const char*> names;
    for (const Row& row : rows)
        names.push_back(row.*name);
    return names;
}
}

const std::vector<const char*>& settingKeys()
{
    static const auto keys = namesOf(kSettings, &Setting::key);
    return keys;
}

size_t indexOfSetting(const std::string& key)
{
    return indexOf(settingKeys(), key);
}

const std::vector<const char*>& variantNames(Verb verb)
{
    return verb == Verb::Set ? settingKeys() : kVerbs[size_t(verb)].variants;
}

rc::Gen<Script> anyScript(int mostSteps)
{
    // RapidCheck draws whole numbers of the full range at this size only, and as many steps as the size. A
    // failing script is made shorter and not plainer: its steps are plain data already.
    constexpr int kFullSize = 100;
    // An ordinary Friday, the nights in which summer time begins and ends in Europe, the last day of a year.
    const auto start = rc::gen::element(1710489600., 1711843200., 1729987200., 1735671600.);
    const auto settings = rc::gen::exec([] {
        std::vector<double> values;
        for (const Setting& setting : kSettings)
            values.push_back(anyOf(setting.value));
        return values;
    });
    const auto step = rc::gen::noShrink(rc::gen::resize(kFullSize, rc::gen::exec(&anyStep)));
    return rc::gen::construct<Script>(rc::gen::noShrink(start),
        rc::gen::noShrink(rc::gen::resize(kFullSize, settings)),
        rc::gen::resize(mostSteps, rc::gen::container<std::vector<Step>>(step)));
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
    static const auto verbs = namesOf(kVerbs, &VerbRow::name);
    while (std::getline(parts, part, ';')) {
        std::istringstream words(part);
        std::string verb, variant;
        Step step {};
        words >> verb >> variant >> step.value >> step.seconds;
        step.verb = Verb(indexOf(verbs, verb));
        const auto& variants = variantNames(step.verb);
        step.variant = variants.empty() ? std::stoi(variant) : int(indexOf(variants, variant));
        script.steps.push_back(step);
    }
    return script;
}

void showValue(const Script& script, std::ostream& out)
{
    out << "ZELVO_STORM_SCRIPT='" << text(script) << "'";
}
}
