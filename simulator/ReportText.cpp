#include "simulator/ReportText.h"

#include <algorithm>
#include <iomanip>
#include <sstream>

namespace {
/// What a short look at a report needs; the rest is shown when it is not zero.
constexpr size_t kAlwaysShown = 8;
}

std::string text(TransferResult result)
{
    switch (result) {
    case TransferResult::Ok:
        return "ok";
    case TransferResult::Refused:
        return "refused";
    case TransferResult::Failed:
        return "failed";
    case TransferResult::NoAnswer:
        return "no answer";
    case TransferResult::Unplugged:
        return "unplugged";
    }
    return {};
}

std::string text(std::span<const uint8_t> report)
{
    const auto lastUsed =
        std::find_if(report.rbegin(), report.rend(), [](uint8_t byte) { return byte != 0; });
    const size_t shown = std::max(size_t(report.rend() - lastUsed), std::min(report.size(), kAlwaysShown));
    std::ostringstream output;
    output << std::hex << std::uppercase << std::setfill('0');
    for (size_t i = 0; i < shown; ++i)
        output << (i == 0 ? "" : " ") << std::setw(2) << int(report[i]);
    return output.str();
}
