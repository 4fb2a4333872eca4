#pragma once

#include "simulator/DeskModel.h"

#include <deque>
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

    /// One adapter's desk after another; "adapter" makes more of them.
    [[nodiscard]] std::deque<DeskModel>& desks() { return m_desks; }
    [[nodiscard]] bool hasQuit() const { return m_quit; }
    /// Lets time pass for every desk.
    void letPass(double seconds);

    /// The commands, one a line, with what they do.
    static void printCommands(std::ostream& output);

private:
    using Words = std::vector<std::string_view>;
    struct Verb;
    static const std::vector<Verb>& verbs();

    [[nodiscard]] DeskModel& desk() { return m_desks[m_chosen]; }
    bool complain(std::string_view what);
    bool report(TransferResult result);
    bool setReport(const Words& arguments);
    bool getReport(const Words& arguments);
    bool adapter(const Words& arguments);
    bool advance(const Words& arguments);
    bool height(const Words& arguments);
    bool limits(const Words& arguments);
    bool error(const Words& arguments);
    bool errorKind(const Words& arguments);
    bool fault(const Words& arguments);
    bool switchTo(const Words& arguments, void (DeskModel::*set)(bool));
    bool status();

    std::deque<DeskModel> m_desks = std::deque<DeskModel>(1);
    size_t m_chosen = 0;
    std::ostream& m_output;
    std::ostream& m_errors;
    size_t m_line = 0;
    bool m_quit = false;
};
