#include "architecture/ArchitectureRules.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace {
using ArchitectureRules::Findings;

const std::filesystem::path kTop = ZELVO_SOURCE_DIR;
constexpr const char* kFolders[] = {
    "src", "simulator", "tests", "tools", "benchmarks", "docs", "packaging", "cmake", ".ci"};

std::string contents(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// What git and the tools leave at the top of a working copy.
bool isNotOurs(const std::string& name)
{
    return name == ".git" || name == "compile_commands.json" || name == "CMakeUserPresets.json"
        || name.ends_with(".user");
}

bool isText(const std::string& text)
{
    return text.find('\0') == text.npos;
}

/// Every file of the tree that people write, by its path from the top.
std::vector<std::string> sourceTree()
{
    std::vector<std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(kTop)) {
        if (entry.is_regular_file() && !isNotOurs(entry.path().filename().string()))
            files.push_back(entry.path().filename().string());
    }
    for (const char* folder : kFolders) {
        if (!std::filesystem::exists(kTop / folder))
            continue;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(kTop / folder)) {
            if (entry.is_regular_file())
                files.push_back(std::filesystem::relative(entry.path(), kTop).generic_string());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

TEST(Architecture, theSourceTreeObeysItsRules)
{
    const std::vector<std::string> files = sourceTree();
    ASSERT_TRUE(std::binary_search(files.begin(), files.end(), std::string("src/platform/RunLoop.cpp")))
        << "this is not the source tree: " << kTop;
    for (const std::string& path : files) {
        // This file's own examples break every rule.
        const std::string text = path.starts_with("tests/architecture/") ? "" : contents(kTop / path);
        if (!isText(text))
            continue;
        for (const std::string& finding : ArchitectureRules::all(path, text))
            ADD_FAILURE() << finding;
    }
}

struct Example {
    const char* path;
    const char* line;
    bool isAllowed;
};

void check(const std::vector<Example>& examples)
{
    for (const Example& example : examples) {
        SCOPED_TRACE(testing::Message() << example.path << ": " << example.line);
        const Findings findings =
            ArchitectureRules::all(example.path, std::string("\n") + example.line + "\n");
        EXPECT_EQ(findings.empty(), example.isAllowed);
        for (const std::string& finding : findings)
            EXPECT_TRUE(finding.starts_with(std::string(example.path) + ":2: ")) << finding;
    }
}

TEST(Architecture, arrowsRunOneWay)
{
    check({
        {"src/shell/MainWindow.cpp", R"(#include "screens/SetupView.h")", true},
        {"src/shell/MainWindow.cpp", R"(#include "desk/ZelvoController.h")", true},
        {"src/screens/SetupView.cpp", R"(#include "ui/Palette.h")", true},
        {"src/screens/SetupView.cpp", R"(#include "desk/ZelvoController.h")", true},
        {"src/screens/SetupView.cpp", R"(#include "shell/MainWindow.h")", false},
        {"src/ui/Palette.cpp", R"(#include "data/AppProperties.h")", true},
        {"src/ui/Palette.cpp", R"(#include "desk/ZelvoController.h")", false},
        {"src/ui/Palette.cpp", R"(#include "screens/SetupView.h")", false},
        {"src/desk/ScheduleManager.cpp", R"(#include "data/Date.h")", true},
        {"src/desk/ScheduleManager.cpp", R"(#include "ui/Palette.h")", false},
        {"src/data/Date.cpp", R"(#include "platform/Bundle.h")", true},
        {"src/data/Date.cpp", R"(#include "desk/ZelvoController.h")", false},
        {"src/data/Date.cpp", R"(  #  include "desk/ZelvoController.h")", false},
        {"src/data/Date.cpp", R"(// #include "desk/ZelvoController.h")", true},
        {"src/data/Date.cpp", R"(/* one line */ #include "desk/ZelvoController.h")", false},
        {"src/platform/RunLoop.cpp", R"(#include "data/Date.h")", false},
        {"src/platform/RunLoop.cpp", R"(#include "resources/Resources.h")", false},
        {"src/resources/Resources.cpp", R"(#include "platform/Log.h")", true},
        {"src/resources/Resources.cpp", R"(#include "data/Date.h")", false},
        {"src/main.cpp", R"(#include "shell/AppDelegate.h")", true},
        {"src/main.cpp", R"(#include "resources/Resources.h")", true},
        {"src/utils/Text.cpp", R"(#include "platform/Log.h")", false},
        {"tests/data/DateTest.cpp", R"(#include "fakes/TestPlatform.h")", true},
    });
}

TEST(Architecture, includesAreWrittenFromTheSourceRoot)
{
    check({
        {"src/ui/Palette.cpp", R"(#include "Palette.h")", false},
        {"src/ui/Palette.cpp", R"(#include "../data/Date.h")", false},
        {"src/ui/Palette.cpp", R"(#include <QColor>)", true},
        {"src/main.cpp", R"(#include "CommandLine.h")", true},
        {"src/shell/MainWindow.cpp", R"(#include "CommandLine.h")", false},
        {"src/shell/MainWindow.cpp", R"(#include "ui_MainWindow.h")", true},
        {"src/shell/MainWindow.cpp", R"(#include "MainWindow.moc")", true},
        {"src/platform/linux/WaylandIdle.cpp", R"(#include "idle-client-protocol.h")", true},
    });
}

TEST(Architecture, backendsAreChosenInOnePlace)
{
    check({
        {"src/main.cpp", R"(#include "platform/linux/LinuxHidManager.h")", true},
        {"src/main.cpp", R"(#include "platform/simulated/SimulatedHidManager.h")", true},
        {"src/CommandLine.cpp", R"(#include "platform/linux/LinuxHidManager.h")", false},
        {"tools/Tour.cpp", R"(#include "platform/simulated/SimulatedHidManager.h")", true},
        {"tests/platform/linux/X.cpp", R"(#include "platform/linux/LinuxHidManager.h")", true},
        {"src/platform/linux/X.cpp", R"(#include "platform/linux/LinuxHidManager.h")", true},
        {"src/platform/linux/X.cpp", R"(#include "platform/simulated/VirtualRunLoop.h")", false},
        {"src/platform/RunLoop.cpp", R"(#include "platform/qt/QtRunLoop.h")", false},
        {"src/desk/ZelvoHIDManager.cpp", R"(#include "platform/linux/LinuxHidManager.h")", false},
        {"src/shell/AppDelegate.cpp", R"(#include "platform/simulated/SimulatedHidManager.h")", false},
        {"src/shell/TestWindowController.cpp", R"(#include "platform/simulated/SimulatedHidManager.h")",
            true},
        {"src/shell/TestWindowController.cpp", R"(#include "platform/linux/LinuxHidManager.h")", false},
    });
}

TEST(Architecture, theSimulatorStandsApart)
{
    check({
        {"src/platform/simulated/SimulatedHidManager.h", R"(#include "simulator/DeskModel.h")", true},
        {"tools/Tour.cpp", R"(#include "simulator/DeskModel.h")", true},
        {"tests/simulator/DeskModelTest.cpp", R"(#include "simulator/DeskModel.h")", true},
        {"src/platform/HidManager.cpp", R"(#include "simulator/DeskModel.h")", false},
        {"src/platform/linux/X.cpp", R"(#include "simulator/DeskModel.h")", false},
        {"src/desk/ZelvoHIDDevice.cpp", R"(#include "simulator/DeskModel.h")", false},
        {"src/shell/TestWindowController.cpp", R"(#include "simulator/DeskModel.h")", false},
        {"src/main.cpp", R"(#include "simulator/DeskModel.h")", false},
        {"simulator/DeskConsole.cpp", R"(#include "simulator/DeskModel.h")", true},
        {"simulator/DeskModel.cpp", R"(#include "desk/ErrorCodeHandler.h")", false},
        {"simulator/DeskModel.cpp", R"(#include "platform/HidManager.h")", false},
    });
}

TEST(Architecture, timeComesFromTheRunLoopAlone)
{
    for (const char* line : {"#include <QTimer>", "QTimer::singleShot(0, this, [] {});",
             "QElapsedTimer timer;", "QDeadlineTimer deadline(5);", "QBasicTimer timer;",
             "auto now = QDateTime::currentDateTime();", "auto now = QDateTime::currentDateTimeUtc();",
             "auto day = QDate::currentDate();", "auto ms = QDateTime::currentMSecsSinceEpoch();",
             "std::chrono::seconds pause(1);", "#include <chrono>", "srand(time(nullptr));",
             "auto now = std::time( NULL );", "gettimeofday(&t, 0);", "clock_gettime(CLOCK_REALTIME, &t);",
             "m_timer = startTimer(1000);", "usleep(5);", "QThread::msleep(5);",
             "std::this_thread::sleep_for(pause);", "auto now = icu::Calendar::getNow();",
             R"(auto a = "// no comment"; QTimer timer;)", "auto n = 1'000; QTimer timer;"}) {
        check({{"src/data/Date.cpp", line, false}, {"simulator/DeskModel.cpp", line, false},
            {"src/platform/RunLoop.cpp", line, false},
            {"src/platform/simulated/VirtualRunLoop.cpp", line, false}, {"src/main.cpp", line, false},
            {"src/platform/qt/QtRunLoop.cpp", line, true},
            {"src/platform/linux/LinuxWorkspace.cpp", line, true}, {"src/platform/Log.cpp", line, true},
            {"tests/data/DateTest.cpp", line, true}});
    }
    for (const char* line :
        {"// Unlike a QTimer it is exact.", "/* QTimer", "TimerScope m_timers;", "double timeToSchedule(0);",
            "Date currentDate() const;", "runLoop.sleepMachine(5);", "RunLoop::main().now();"})
        check({{"src/data/Date.cpp", line, true}});
}

TEST(Architecture, everyClassHasAFileOfItsOwnName)
{
    check({
        {"src/data/Date.h", "class Date {", true},
        {"src/data/Date.h", "class Clock;", true},
        {"src/data/Date.h", "enum class Weekday {", true},
        {"src/data/Date.h", "struct Span {", true},
        {"src/desk/IdleObserver.h", "class IdleObserverDelegate {", true},
        {"src/desk/IdleObserver.h", "class IdleObserver final : public X {", true},
        {"src/desk/IdleObserver.h", "class ScheduleManager {", false},
        {"src/desk/IdleObserver.h", "class ScheduleManager", false},
        {"src/data/Date.h", "class Clock final : public X {", false},
        {"src/data/Date.cpp", "class Clock {", true},
    });
}

TEST(Architecture, noPathOfOneMachine)
{
    check({
        {"docs/protocol.md", "see /home/builder/docs", false},
        {"cmake/Settings.cmake", "set(X \"/home/someone/qt\")", false},
        {"run", "cd /home/builder/.cache", false},
        {"tests/data/DateTest.cpp", "// /home/someone", false},
        {"docs/protocol.md", "framework/home/desk and ~/home/x", true},
        {"docs/protocol.md", "the folder /home, and $HOME/x", true},
    });
}
}
