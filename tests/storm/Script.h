#pragma once

#include <ostream>
#include <rapidcheck.h>
#include <string>
#include <vector>

/// What happens in one history, as plain data: who holds the script knows what must come of it.
namespace storm {
enum class Verb {
    Wait,
    Press, ///< a button of the main window or the reminder, held from here on
    LetGo, ///< of that button, in one of the ways a hold can end
    Open, ///< the main window, or close it
    Plug,
    Unplug,
    Wire, ///< how transfers fare from here on; `value` is what a slow one takes
    Error, ///< of the desk that is driven
    Handset, ///< somebody moves the desk to `value` without the program
    User, ///< leaves, comes back
    Dark, ///< the screens go dark or are locked
    Signal, ///< the machine announces a sleep or a wake; that it sleeps is another matter
    Sleep, ///< for `value` seconds; `variant` is a sum of SleepWith
    Clock, ///< the wall clock is set, by `value` seconds more than the variant says
    Zone, ///< the user travels
    Set, ///< a setting to its `value`
    Answer, ///< to a reminder
    End, ///< of the process, and a new start
    Freeze, ///< the process stands still for `value` seconds; a held button is let go half way
};

/// What goes with a sleep of the machine.
enum SleepWith {
    Announced = 1,
    WakeTold = 2,
    DarkBefore = 4,
    UnpluggedInSleep = 8,
    ReplugBeforeWake = 16,
    ForHours = 32, ///< a hundred times as long
};

struct Step {
    Verb verb;
    int variant;
    double value;
    double seconds; ///< that pass after it
};

struct Script {
    double start; ///< of the wall clock, seconds since 1970-01-01 UTC
    std::vector<double> settings; ///< values of settingKeys()
    std::vector<Step> steps;
};

/// As they stand in the settings file.
[[nodiscard]] const std::vector<const char*>& settingKeys();
[[nodiscard]] size_t indexOfSetting(const std::string& key);
/// The variants of a verb by name.
[[nodiscard]] const std::vector<const char*>& variantNames(Verb verb);

/// Scripts of up to that many steps; a failing one is made shorter.
[[nodiscard]] rc::Gen<Script> anyScript(int mostSteps);
/// One line that parseScript() understands: start, settings, then "verb variant value +seconds" for each
/// step.
[[nodiscard]] std::string text(const Script& script);
[[nodiscard]] Script parseScript(const std::string& text);
/// For RapidCheck.
void showValue(const Script& script, std::ostream& out);
}
