#include "architecture/ArchitectureRules.h"

#include <QRegularExpression>

#include <algorithm>
#include <filesystem>
#include <map>
#include <set>
#include <sstream>

namespace {
using ArchitectureRules::Findings;

const std::map<std::string, std::set<std::string>> kArrows {
    {"shell", {"shell", "screens", "ui", "desk", "data", "platform"}},
    {"screens", {"screens", "ui", "desk", "data", "platform"}},
    {"ui", {"ui", "data", "platform"}},
    {"desk", {"desk", "data", "platform"}},
    {"data", {"data", "platform"}},
    {"platform", {"platform"}},
    {"resources", {"resources", "platform"}},
};
const std::set<std::string> kBackends {"linux", "qt", "simulated"};

constexpr auto kBackendObjection = "names a backend, which is for main.cpp to choose";

bool isSource(const std::string& path)
{
    return path.ends_with(".h") || path.ends_with(".cpp");
}

/// The parts of a path: "platform/qt/QtRunLoop.h" has the folder "platform" and, below it, "qt".
struct Place {
    std::string folder;
    std::string subfolder;
    std::string file;
};

Place placeOf(const std::string& path)
{
    const std::filesystem::path whole(path);
    auto part = whole.begin();
    const auto parts = std::distance(whole.begin(), whole.end());
    const std::string folder = parts > 1 ? (part++)->string() : std::string();
    const std::string subfolder = parts > 2 ? part->string() : std::string();
    return {folder, subfolder, whole.filename().string()};
}

bool isBackend(const Place& place)
{
    return place.folder == "platform" && kBackends.contains(place.subfolder);
}

/// What Qt and the Wayland scanner generate has no folder.
bool isGenerated(const std::string& include)
{
    return include.ends_with(".moc") || include.starts_with("moc_") || include.starts_with("ui_")
        || include.ends_with("-protocol.h");
}

/// Why a file of src/ may not have this include; empty when it may.
std::string objection(const Place& from, const std::string& include)
{
    const Place to = placeOf(include);
    if (include.starts_with('.'))
        return "is not written from the source root";
    if (to.folder.empty()) // Beside main.cpp lies what only main.cpp uses.
        return from.folder.empty() || isGenerated(include) ? "" : "names no folder";
    if (to.folder == "simulator")
        return isBackend(from) && from.subfolder == "simulated" ? "" : "is for the simulated backend alone";
    if (from.folder.empty())
        return from.file == "main.cpp" || !isBackend(to) ? "" : kBackendObjection;
    const auto arrows = kArrows.find(from.folder);
    if (arrows == kArrows.end())
        return "stands in a folder that no rule knows";
    if (!arrows->second.contains(to.folder))
        return "is an arrow that does not exist";
    // The developer's test window offers the simulated desk's faults.
    const bool isTestWindow = from.folder == "shell" && from.file.starts_with("TestWindow");
    const bool sameBackend = isBackend(from) && from.subfolder == to.subfolder;
    if (isBackend(to) && !sameBackend && !(isTestWindow && to.subfolder == "simulated"))
        return kBackendObjection;
    return {};
}

/// Calls back for each match of a pattern: its line's number and the match.
template <typename Callback>
void forEachMatch(const std::string& text, const QRegularExpression& pattern, Callback callback)
{
    std::istringstream lines(text);
    std::string line;
    for (int number = 1; std::getline(lines, line); ++number) {
        for (auto matches = pattern.globalMatch(QString::fromStdString(line)); matches.hasNext();)
            callback(number, matches.next());
    }
}

std::string finding(const std::string& path, int line, const std::string& what)
{
    return path + ':' + std::to_string(line) + ": " + what;
}

/// Where the literal that starts at a quote ends: the position after its last quote.
size_t endOfLiteral(const std::string& text, size_t start)
{
    if (start > 0 && text[start] == '"' && text[start - 1] == 'R') {
        const size_t open = text.find('(', start);
        const size_t close = open == text.npos
            ? text.npos
            : text.find(')' + text.substr(start + 1, open - start - 1) + '"', open);
        return close == text.npos ? text.size() : close + open - start + 1;
    }
    size_t end = start + 1;
    while (end < text.size() && text[end] != text[start] && text[end] != '\n')
        end += text[end] == '\\' ? size_t(2) : size_t(1);
    return std::min(end + 1, text.size());
}

size_t endOfComment(const std::string& text, size_t start)
{
    const bool isBlock = text[start + 1] == '*';
    const size_t end = isBlock ? text.find("*/", start + 2) : text.find('\n', start);
    return end == text.npos ? text.size() : end + (isBlock ? 2 : 0);
}
}

std::string ArchitectureRules::withoutComments(const std::string& text)
{
    std::string code;
    for (size_t i = 0; i < text.size();) {
        const bool isComment =
            text[i] == '/' && i + 1 < text.size() && (text[i + 1] == '/' || text[i + 1] == '*');
        // In 1'000 the quote divides digits.
        const bool isLiteral = text[i] == '"'
            || (text[i] == '\'' && (i == 0 || !std::isalnum(static_cast<unsigned char>(text[i - 1]))));
        const size_t end = isComment ? endOfComment(text, i) : isLiteral ? endOfLiteral(text, i) : i + 1;
        const std::string piece = text.substr(i, end - i);
        code += isComment ? std::string(size_t(std::count(piece.begin(), piece.end(), '\n')), '\n') : piece;
        i = end;
    }
    return code;
}

Findings ArchitectureRules::wrongIncludes(const std::string& path, const std::string& text)
{
    static const QRegularExpression kInclude(QStringLiteral(R"re(^\s*#\s*include\s*"([^"]*)")re"));
    const bool isSimulator = path.starts_with("simulator/");
    const std::string inSource = path.substr(path.find('/') + 1);
    Findings findings;
    forEachMatch(withoutComments(text), kInclude, [&](int line, const QRegularExpressionMatch& match) {
        const std::string include = match.captured(1).toStdString();
        const std::string wrong = isSimulator
            ? (include.starts_with("simulator/") ? ""
                                                 : "shares the program's code with the other end of the wire")
            : objection(placeOf(inSource), include);
        if (!wrong.empty())
            findings.push_back(finding(path, line, "\"" + include + "\" " + wrong));
    });
    return findings;
}

Findings ArchitectureRules::forbiddenClocks(const std::string& path, const std::string& text)
{
    // The log names the true moment of a line, also under a virtual clock.
    if (path.starts_with("src/platform/qt/") || path.starts_with("src/platform/linux/")
        || path == "src/platform/Log.cpp")
        return {};
    static const QRegularExpression kClock(QStringLiteral(
        R"(\bQ(Chrono|Basic|Elapsed|Deadline)?Timer\b|\bcurrentDateTime(Utc)?\b|\bQ(Date|Time)::current)"
        R"(|\bcurrentM?SecsSinceEpoch\b|\bstd::chrono\b|<chrono>|\btime\s*\(\s*(nullptr|NULL|0)\s*\))"
        R"(|\bgettimeofday\b|\bclock_gettime\b|\btimerfd_create\b|\bstartTimer\s*\(|\bgetNow\s*\()"
        R"(|\b[mun]?(ano)?sleep\s*\(|\bsleep_(for|until)\b)"));
    Findings findings;
    forEachMatch(withoutComments(text), kClock, [&](int line, const QRegularExpressionMatch& match) {
        findings.push_back(finding(path, line, match.captured().toStdString() + " goes past RunLoop"));
    });
    return findings;
}

Findings ArchitectureRules::misplacedClasses(const std::string& path, const std::string& text)
{
    // A definition goes on after its name, with a brace, a base or a new line; a declaration ends there.
    static const QRegularExpression kClass(QStringLiteral(R"(^class\s+(\w+)\b(?!\s*;))"));
    const std::string file = std::filesystem::path(path).stem().string();
    Findings findings;
    forEachMatch(withoutComments(text), kClass, [&](int line, const QRegularExpressionMatch& match) {
        const std::string name = match.captured(1).toStdString();
        if (!name.starts_with(file))
            findings.push_back(finding(path, line, name + " belongs into a file of its own name"));
    });
    return findings;
}

Findings ArchitectureRules::machinePaths(const std::string& path, const std::string& text)
{
    static const QRegularExpression kPath(QStringLiteral(R"((^|[^\w./}~-])(/home/[\w.]))"));
    Findings findings;
    forEachMatch(text, kPath, [&](int line, const QRegularExpressionMatch& match) {
        findings.push_back(
            finding(path, line, match.captured(2).toStdString() + "... is a path of one machine"));
    });
    return findings;
}

Findings ArchitectureRules::all(const std::string& path, const std::string& text)
{
    Findings findings = machinePaths(path, text);
    const auto add = [&](const Findings& more) { findings.insert(findings.end(), more.begin(), more.end()); };
    const bool isProgram = path.starts_with("src/") || path.starts_with("simulator/");
    if (isProgram && isSource(path)) {
        add(wrongIncludes(path, text));
        add(forbiddenClocks(path, text));
    }
    if ((path.starts_with("src/data/") || path.starts_with("src/desk/")) && path.ends_with(".h"))
        add(misplacedClasses(path, text));
    return findings;
}
