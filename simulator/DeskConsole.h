#pragma once

#include "simulator/DeskModel.h"

#include <iosfwd>
#include <string_view>
#include <vector>

/// Plays a desk on text streams: one command a line, its answer on the output, what is wrong with a line on
/// the error stream. An empty line and what follows a # are passed over.
class DeskConsole {
public:
    enum class Prompt { Shown, Hidden };

    DeskConsole(std::ostream& output, std::ostream& errors);

    /// Carries out every line up to "quit" or the end. False when a line was not understood.
    [[nodiscard]] bool run(std::istream& input, Prompt prompt = Prompt::Hidden);
    /// Carries out one line. False when it was not understood.
    [[nodiscard]] bool execute(std::string_view line);

    [[nodiscard]] DeskModel& desk() { return m_desk; }

    /// The commands, one a line, with what they do.
    static void printCommands(std::ostream& output);

private:
    using Words = std::vector<std::string_view>;
    struct Verb;
    static const std::vector<Verb>& verbs();

    bool complain(std::string_view what);
    bool report(TransferResult result);
    bool setReport(const Words& arguments);
    bool getReport(const Words& arguments);
    bool advance(const Words& arguments);
    bool height(const Words& arguments);
    bool limits(const Words& arguments);
    bool error(const Words& arguments);
    bool errorKind(const Words& arguments);
    bool fault(const Words& arguments);
    bool switchTo(const Words& arguments, void (DeskModel::*set)(bool));
    bool status();

    DeskModel m_desk;
    std::ostream& m_output;
    std::ostream& m_errors;
    size_t m_line = 0;
    bool m_quit = false;
};
