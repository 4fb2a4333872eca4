#include "simulator/DeskConsole.h"

#include "simulator/ReportText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <functional>
#include <iomanip>
#include <istream>
#include <optional>
#include <ostream>
#include <string>

namespace {
/// A computer has eight ports for them.
constexpr size_t kMostAdapters = 8;

template <typename Number, typename... Form>
std::optional<Number> parsed(std::string_view word, Form... form)
{
    Number number {};
    const auto [end, failure] = std::from_chars(word.data(), word.data() + word.size(), number, form...);
    if (failure != std::errc() || end != word.data() + word.size())
        return std::nullopt;
    return number;
}

std::optional<uint8_t> hexByte(std::string_view word)
{
    return parsed<uint8_t>(word, 16);
}

std::optional<bool> onOrOff(std::string_view word)
{
    if (word == "on")
        return true;
    if (word == "off")
        return false;
    return std::nullopt;
}

std::vector<std::string_view> wordsOf(std::string_view line)
{
    constexpr std::string_view kSpace = " \t\r";
    line = line.substr(0, line.find('#'));
    std::vector<std::string_view> words;
    for (size_t start = line.find_first_not_of(kSpace); start != line.npos;) {
        const size_t end = std::min(line.find_first_of(kSpace, start), line.size());
        words.push_back(line.substr(start, end - start));
        start = line.find_first_not_of(kSpace, end);
    }
    return words;
}

const char* yesOrNo(bool value)
{
    return value ? "yes" : "no";
}

struct NamedKind {
    std::string_view name;
    DeskModel::ErrorKind kind;
};
constexpr std::array<NamedKind, 3> kKinds {
    {{"position-lost", DeskModel::ErrorKind::PositionLost}, {"overload-up", DeskModel::ErrorKind::OverloadUp},
        {"overload-down", DeskModel::ErrorKind::OverloadDown}}};
}

struct DeskConsole::Verb {
    std::string_view name;
    std::string_view arguments;
    std::string_view meaning;
    std::function<bool(DeskConsole&, const Words&)> execute;
};

DeskConsole::DeskConsole(std::ostream& output, std::ostream& errors)
    : m_output(output)
    , m_errors(errors)
{
}

const std::vector<DeskConsole::Verb>& DeskConsole::verbs()
{
    using Console = DeskConsole;
    static const std::vector<Verb> kVerbs {
        {"set", "BYTE BYTE ...", "send a feature report, bytes in hexadecimal, the report ID first",
            &Console::setReport},
        {"get", "ID", "read the feature report with this ID (hexadecimal)", &Console::getReport},
        {"advance", "SECONDS", "let time pass", &Console::advance},
        {"height", "[HEIGHT]", "show the height in 0.1 mm, or put the desk there", &Console::height},
        {"limits", "LOWER UPPER", "set where the movement ends, in 0.1 mm", &Console::limits},
        {"error", "E05", "add an error code to the list", &Console::error},
        {"error", "KIND [on|off]", "KIND: position-lost, overload-up, overload-down or unnamed",
            &Console::error},
        {"error", "clear", "end all errors", &Console::error},
        {"fault", "reads|writes on|off", "let reads or writes fail", &Console::fault},
        {"fault", "stall|silence on|off", "refuse every report, or answer none", &Console::fault},
        {"fault", "short BYTES|off", "answer reads with so many bytes only", &Console::fault},
        {"plug", "", "plug the adapter in",
            [](Console& console, const Words&) {
                console.desk().setPlugged(true);
                return true;
            }},
        {"unplug", "", "pull the adapter out",
            [](Console& console, const Words&) {
                console.desk().setPlugged(false);
                return true;
            }},
        {"adapter", "NUMBER", "speak of this adapter from now on; the next higher number makes another one",
            &Console::adapter},
        {"desk", "on|off", "switch the desk behind the adapter",
            [](Console& console, const Words& words) {
                return console.switchTo(words, &DeskModel::setDeskOn);
            }},
        {"needs-init", "on|off", "whether the adapter waits for the init report",
            [](Console& console, const Words& words) {
                return console.switchTo(words, &DeskModel::setNeedsInit);
            }},
        {"status", "", "show the desk and its adapter",
            [](Console& console, const Words&) { return console.status(); }},
        {"help", "", "show these commands",
            [](Console& console, const Words&) {
                printCommands(console.m_output);
                return true;
            }},
        {"quit", "", "end", [](Console& console, const Words&) { return console.m_quit = true; }},
    };
    return kVerbs;
}

void DeskConsole::printCommands(std::ostream& output)
{
    const auto flags = output.flags();
    for (const Verb& verb : verbs()) {
        const std::string usage = std::string(verb.name) + ' ' + std::string(verb.arguments);
        output << "  " << std::left << std::setw(34) << usage << ' ' << verb.meaning << '\n';
    }
    output.flags(flags);
}

bool DeskConsole::run(std::istream& input, Prompt prompt)
{
    bool understood = true;
    std::string line;
    while (!m_quit) {
        if (prompt == Prompt::Shown)
            m_output << "> " << std::flush;
        if (!std::getline(input, line))
            break;
        ++m_line;
        understood = execute(line) && understood;
    }
    m_output.flush();
    return understood;
}

bool DeskConsole::execute(std::string_view line)
{
    Words words = wordsOf(line);
    if (words.empty())
        return true;
    const auto verb = std::find_if(verbs().begin(), verbs().end(),
        [&](const Verb& candidate) { return candidate.name == words.front(); });
    if (verb == verbs().end())
        return complain(R"(unknown command ")" + std::string(words.front()) + R"("; "help" lists them)");
    words.erase(words.begin());
    if (verb->arguments.empty() && !words.empty())
        return complain("\"" + std::string(verb->name) + "\" takes no arguments");
    return verb->execute(*this, words);
}

void DeskConsole::letPass(double seconds)
{
    for (DeskModel& desk : m_desks)
        desk.advance(seconds);
}

bool DeskConsole::complain(std::string_view what)
{
    m_output.flush();
    if (m_line > 0)
        m_errors << "line " << m_line << ": ";
    m_errors << what << std::endl;
    return false;
}

bool DeskConsole::report(TransferResult result)
{
    m_output << text(result) << '\n';
    return true;
}

bool DeskConsole::setReport(const Words& arguments)
{
    std::vector<uint8_t> bytes;
    for (const std::string_view word : arguments) {
        const std::optional<uint8_t> byte = hexByte(word);
        if (!byte)
            return complain("\"" + std::string(word) + "\" is not a byte in hexadecimal");
        bytes.push_back(*byte);
    }
    if (bytes.empty())
        return complain("\"set\" needs the bytes to send, the report ID first");
    return report(desk().setFeatureReport(bytes));
}

bool DeskConsole::getReport(const Words& arguments)
{
    const std::optional<uint8_t> id = arguments.size() == 1 ? hexByte(arguments[0]) : std::nullopt;
    if (!id)
        return complain("\"get\" needs one report ID in hexadecimal");
    std::array<uint8_t, DeskModel::kStatusReportLength> answer {*id};
    const TransferResult result = desk().getFeatureReport(answer);
    if (result != TransferResult::Ok)
        return report(result);
    m_output << text(answer) << '\n';
    return true;
}

bool DeskConsole::adapter(const Words& arguments)
{
    const std::optional<size_t> number = arguments.size() == 1 ? parsed<size_t>(arguments[0]) : std::nullopt;
    if (!number || *number < 1 || *number > std::min(m_desks.size() + 1, kMostAdapters))
        return complain("\"adapter\" needs the number of one that is there, or the next one up to "
            + std::to_string(kMostAdapters));
    if (*number > m_desks.size())
        m_desks.emplace_back();
    m_chosen = *number - 1;
    return true;
}

bool DeskConsole::advance(const Words& arguments)
{
    const std::optional<double> seconds = arguments.size() == 1 ? parsed<double>(arguments[0]) : std::nullopt;
    if (!seconds || !std::isfinite(*seconds) || *seconds < 0)
        return complain("\"advance\" needs a number of seconds, 0 or more");
    letPass(*seconds);
    return true;
}

bool DeskConsole::height(const Words& arguments)
{
    if (arguments.empty()) {
        m_output << desk().height() << '\n';
        return true;
    }
    const std::optional<int> height = arguments.size() == 1 ? parsed<int>(arguments[0]) : std::nullopt;
    if (!height || *height < desk().lowerLimit() || *height > desk().upperLimit())
        return complain("\"height\" needs one whole number from " + std::to_string(desk().lowerLimit())
            + " to " + std::to_string(desk().upperLimit()));
    desk().setHeight(*height);
    return true;
}

bool DeskConsole::limits(const Words& arguments)
{
    const bool two = arguments.size() == 2;
    const std::optional<int> lower = two ? parsed<int>(arguments[0]) : std::nullopt;
    const std::optional<int> upper = two ? parsed<int>(arguments[1]) : std::nullopt;
    if (!lower || !upper || !desk().setLimits(*lower, *upper))
        return complain("\"limits\" needs two whole numbers, 0 <= LOWER < UPPER <= 65535");
    return true;
}

bool DeskConsole::error(const Words& arguments)
{
    const std::string_view what = arguments.size() == 1 ? arguments[0] : std::string_view();
    if (what == "clear") {
        desk().clearErrors();
        return true;
    }
    if (!what.starts_with('E'))
        return errorKind(arguments);
    const std::optional<uint8_t> code = parsed<uint8_t>(what.substr(1), 10);
    if (!code || *code == 0)
        return complain("an error code goes from E01 to E255");
    return desk().addErrorCode(*code) || complain("the report has room for six error codes only");
}

bool DeskConsole::errorKind(const Words& arguments)
{
    constexpr auto kUsage =
        "\"error\" needs a code (E05), a kind (position-lost, overload-up, overload-down, unnamed) "
        "with \"on\" or \"off\", or \"clear\"";
    if (arguments.empty() || arguments.size() > 2)
        return complain(kUsage);
    const std::optional<bool> present = onOrOff(arguments.size() == 2 ? arguments[1] : "on");
    const auto kind =
        std::find_if(kKinds.begin(), kKinds.end(), [&](auto& named) { return named.name == arguments[0]; });
    const bool unnamed = arguments[0] == "unnamed";
    if (!present || (kind == kKinds.end() && !unnamed))
        return complain(kUsage);
    if (unnamed)
        desk().setUnnamedError(present.value());
    else
        desk().setError(kind->kind, present.value());
    return true;
}

bool DeskConsole::fault(const Words& arguments)
{
    DeskModel::Faults& faults = desk().faults();
    const std::string_view what = arguments.size() == 2 ? arguments[0] : std::string_view();
    if (what == "short") {
        const std::optional<size_t> length = parsed<size_t>(arguments[1]);
        if (!length && arguments[1] != "off")
            return complain(R"("fault short" needs a number of bytes or "off")");
        faults.answerLength = length;
        return true;
    }
    bool* const fault = what == "reads" ? &faults.failingReads
        : what == "writes"              ? &faults.failingWrites
        : what == "stall"               ? &faults.stall
        : what == "silence"             ? &faults.noAnswer
                                        : nullptr;
    const std::optional<bool> on = fault ? onOrOff(arguments[1]) : std::nullopt;
    if (!on)
        return complain(
            "\"fault\" needs \"reads\", \"writes\", \"stall\" or \"silence\" with \"on\" or \"off\", "
            "or \"short\" with a number of bytes or \"off\"");
    *fault = *on;
    return true;
}

bool DeskConsole::switchTo(const Words& arguments, void (DeskModel::*set)(bool))
{
    const std::optional<bool> on = arguments.size() == 1 ? onOrOff(arguments[0]) : std::nullopt;
    if (!on)
        return complain(R"("on" or "off" is missing)");
    (desk().*set)(*on);
    return true;
}

bool DeskConsole::status()
{
    const DeskModel::Faults& faults = desk().faults();
    m_output << "height " << desk().height() << " of " << desk().lowerLimit() << " to " << desk().upperLimit()
             << ", " << std::lround(desk().velocity()) << " a second";
    if (desk().goal())
        m_output << ", going to " << *desk().goal();
    m_output << "\nplugged " << yesOrNo(desk().isPlugged()) << ", initialised "
             << yesOrNo(desk().isInitialised()) << ", desk on " << yesOrNo(desk().isDeskOn())
             << ", communicating " << yesOrNo(desk().isCommunicating()) << "\nerrors";
    for (const NamedKind& named : kKinds) {
        if (desk().hasError(named.kind))
            m_output << ' ' << named.name;
    }
    if (desk().hasUnnamedError())
        m_output << " unnamed";
    for (const uint8_t code : desk().errorCodes())
        m_output << " E" << (code < 10 ? "0" : "") << int(code);
    m_output << (desk().hasError() ? "" : " none") << "\nfaults";
    if (faults.failingReads)
        m_output << " reads";
    if (faults.failingWrites)
        m_output << " writes";
    if (faults.stall)
        m_output << " stall";
    if (faults.noAnswer)
        m_output << " silence";
    if (faults.answerLength)
        m_output << " short " << *faults.answerLength;
    const bool any =
        faults.failingReads || faults.failingWrites || faults.stall || faults.noAnswer || faults.answerLength;
    m_output << (any ? "" : " none") << '\n';
    return true;
}
