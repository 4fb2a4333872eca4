#pragma once

#include <map>
#include <ostream>
#include <rapidcheck.h>
#include <string>
#include <vector>

/// What happens in one history, as plain data: who holds the script knows what must come of it.
namespace storm {
/// In the words of the table in Script.cpp.
struct Step {
    std::string verb, variant;
    double value;
    double seconds; ///< that pass after it
};

struct Script {
    double start; ///< of the wall clock, seconds since 1970-01-01 UTC
    std::map<std::string, double> settings; ///< as they stand in the settings file
    std::vector<Step> steps;
};

/// Scripts of up to that many steps; a failing one is made shorter.
[[nodiscard]] rc::Gen<Script> anyScript(int mostSteps);
/// One line, which sets the variable by which it is played again: start, each setting with its value, then
/// "verb variant value +seconds" for each step.
std::ostream& operator<<(std::ostream& out, const Script& script);
/// Understands what stands in that variable.
[[nodiscard]] Script parseScript(const std::string& text);
}
