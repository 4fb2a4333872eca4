#include "storm/Script.h"

#include <iomanip>
#include <random>
#include <sstream>

namespace storm {
namespace {
/// Whole numbers of a unit.
struct Range {
    int least = 0, most = 0;
    double unit = 1;
};

struct Verb {
    std::string name;
    size_t share; ///< of all steps
    std::vector<std::string> variants {"-"};
    Range value {};
    std::vector<int> longest {5, 10, 20, 40, 80, 150, 300, 700}; ///< pause after it, in tenths of a second
};

const std::vector<Verb> kVerbs {
    {"wait", 10},
    // A button of the main window or the reminder, held from here on; and let go, in one of the ways a hold
    // can end.
    {"press", 16,
        {"up", "down", "memory1", "memory2", "memory3", "reminder-memory", "reminder-up", "reminder-down"},
        {}, {10, 30, 60, 120}},
    {"let-go", 14, {"button", "hide", "minimise", "close", "deactivate"}},
    {"window", 7, {"main", "none", "none"}},
    {"plug", 5, {"first", "second"}},
    {"unplug", 3, {"first", "second"}},
    // How transfers fare from here on; the value is what a slow one takes.
    {"wire", 5,
        {"well", "slow", "one-failure", "failing", "failing-reads", "failing-writes", "stalled", "silent"},
        {2, 60, 0.01}},
    {"error", 3, {"code", "none"}},
    // Somebody moves the desk to that height without the program.
    {"handset", 5, {"-"}, {200, 6500}},
    {"user", 9, {"away", "back"}},
    // The screens go dark or are locked; the machine announces a sleep or a wake, and that it sleeps is
    // another matter. Hours are a hundred times as long.
    {"signal", 3, {"dark", "dark", "sleep", "wake"}},
    {"sleep", 3,
        {"plain", "announced", "told", "announced-told", "dark-told", "dark-announced-told",
            "announced-told-hours", "dark-announced-hours", "dark-hours", "told-unplugged",
            "announced-told-unplugged", "dark-announced-unplugged-hours", "unplugged-replugged",
            "announced-told-unplugged-replugged", "dark-told-unplugged-replugged-hours"},
        {50, 4000, 0.1}},
    // The wall clock is set, by the value more than the variant says.
    {"clock", 2, {"a-bit", "hour-on", "hour-back", "day-on", "week-back", "years-on"}, {3, 999}},
    {"zone", 1,
        {"CET-1CEST,M3.5.0,M10.5.0/3", "NST3:30NDT,M3.2.0,M11.1.0", "IST-5:30",
            "<+1245>-12:45<+1345>,M9.5.0/2:45,M4.1.0/3:45", "UTC0"}},
    {"set", 4},
    {"answer", 9, {"snooze", "skip", "close"}},
    // There is no room for the record.
    {"disk", 2, {"full", "room"}},
    // The process ends, and starts again.
    {"end", 1, {"kill", "quit"}},
    // It stands still for that long; a held button is let go half way.
    {"freeze", 3, {"-"}, {1, 25, 0.13}},
};

/// No value equals its default, and no two settings are likely to be equal. Times are odd, and a period lasts
/// longer than an adapter without an answer is waited for: what is due at one moment has an order of its own.
const std::map<std::string, Range> kSettings {{"Weight", {81, 260, 0.5}}, {"ActivityMode", {1, 2}},
    {"ActivityGoal", {4, 57}}, {"NumberOfStandUps", {7, 11}}, {"DevicePosition1", {60, 210, 10}},
    {"DevicePosition2", {330, 460, 10}}, {"DevicePosition3", {230, 320, 10}},
    {"TablePositionOffset", {30, 90, 100}}, {"TimeIdle", {17, 71, 1.0039}}, {"TimeSnooze", {3, 12, 1.0037}},
    {"TimeNotificationDismiss", {6, 12, 1.0013}}, {"TimeNotificationDismissOnAction", {2, 4, 1.0013}},
    {"AverageWorkDayHours", {3, 7}}};

using Random = std::minstd_rand;

const auto& anyOf(const auto& these, Random& random)
{
    return *std::next(these.begin(), std::uniform_int_distribution<>(0, int(these.size()) - 1)(random));
}

double anyIn(Range range, Random& random)
{
    return std::uniform_int_distribution<>(range.least, range.most)(random) * range.unit;
}

Step anyStep(uint32_t seed)
{
    static const auto verbs = [] { // As often as its share.
        std::vector<const Verb*> all;
        for (const Verb& verb : kVerbs)
            all.insert(all.end(), verb.share, &verb);
        return all;
    }();
    Random random(seed);
    const Verb& verb = *anyOf(verbs, random);
    const double seconds = anyIn({0, anyOf(verb.longest, random), 0.1}, random);
    if (verb.name != "set")
        return {verb.name, anyOf(verb.variants, random), anyIn(verb.value, random), seconds};
    const auto& [key, range] = anyOf(kSettings, random);
    return {verb.name, key, anyIn(range, random), seconds};
}
}

rc::Gen<Script> anyScript(int mostSteps)
{
    // RapidCheck draws whole numbers of the full range at a size of 100 only, and as many steps as the size.
    // A failing script is made shorter and not plainer: its steps are plain data already. An ordinary Friday,
    // the nights in which summer time begins and ends in Europe, the last day of a year.
    const auto start = rc::gen::element(1710489600., 1711843200., 1729987200., 1735671600.);
    const auto seed = rc::gen::noShrink(rc::gen::resize(100, rc::gen::arbitrary<uint32_t>()));
    const auto settings = rc::gen::map(seed, [](uint32_t drawn) {
        Random random(drawn);
        std::map<std::string, double> values;
        for (const auto& [key, range] : kSettings)
            values[key] = anyIn(range, random);
        return values;
    });
    return rc::gen::construct<Script>(rc::gen::noShrink(start), settings,
        rc::gen::resize(mostSteps, rc::gen::container<std::vector<Step>>(rc::gen::map(seed, &anyStep))));
}

std::ostream& operator<<(std::ostream& out, const Script& script)
{
    out << std::setprecision(12) << "ZELVO_STORM_SCRIPT='" << script.start;
    for (const auto& [key, value] : script.settings)
        out << ' ' << key << ' ' << value;
    for (const Step& step : script.steps)
        out << "; " << step.verb << ' ' << step.variant << ' ' << step.value << " +" << step.seconds;
    return out << "'";
}

Script parseScript(const std::string& text)
{
    std::istringstream parts(text);
    std::string part, key;
    std::getline(parts, part, ';');
    std::istringstream head(part);
    Script script {};
    for (head >> script.start; head >> key;)
        head >> script.settings[key];
    while (std::getline(parts, part, ';')) {
        Step& step = script.steps.emplace_back();
        std::istringstream(part) >> step.verb >> step.variant >> step.value >> step.seconds;
    }
    return script;
}
}
