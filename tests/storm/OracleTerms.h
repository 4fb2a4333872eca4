#pragma once

#include <cmath>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

// What the parts of the oracle count with: seconds, and how numbers and errors are read.
namespace storm {
inline constexpr double kPoll = 1.0;
inline constexpr double kCheck = 0.2; ///< after an adapter was taken up
inline constexpr double kLook = 10.0; ///< at the user
inline constexpr double kPulse = 15.0;
inline constexpr double kResend = 0.2; ///< of a held movement
inline constexpr double kStop = 0.3; ///< no movement report comes later than this after a hold
inline constexpr double kErrorStays = 15.0;
inline constexpr double kFade = 0.4;
inline constexpr double kPatience = 5.05; ///< with a transfer that is not answered
inline constexpr double kSlowest = 0.6; ///< transfer
inline constexpr double kBelieved = 5.0; ///< an answer
inline constexpr double kWait = 0.01; ///< for an answer; then it is heard of when it comes
inline constexpr double kRounding = 1e-4;
/// The record is the truth again so soon after whatever happens: two looks at the user after a wake, and a
/// standstill.
inline constexpr double kLongestError = 2 * kLook + 4.5;

inline constexpr uint16_t kStopCommand = 0x8001;

inline bool isNear(double left, double right, double tolerance = 1e-3)
{
    return std::abs(left - right) < tolerance;
}

inline std::string number(double value)
{
    return std::to_string(value);
}

/// The number that a text holds.
inline double numberIn(const std::string& text)
{
    const size_t at = text.find_first_of("0123456789");
    return at == std::string::npos ? -1 : std::stod(text.substr(at));
}

/// What a window says of a status report; nothing without an error.
inline std::string errorIn(const std::vector<uint8_t>& report)
{
    if (!(report[3] & 2))
        return {};
    std::map<std::string, std::string> lines;
    for (size_t i = 34; i < 40 && report[32]; ++i) {
        if (report[i])
            lines["E" + std::to_string(report[i])] = "";
    }
    const char* const kinds[] {"PositionLostError", "OverloadUpError", "OverloadDownError"};
    for (int kind : {1, 2, 3}) {
        if (report[6] & (kind == 1 ? 1 : kind * 4 - 4))
            lines["E0" + std::to_string(kind)] = kinds[kind - 1];
    }
    std::string text = "Error";
    for (const auto& [key, line] : lines)
        text += " " + key + ":" + (line.empty() ? "" : " " + line);
    return text;
}
}
