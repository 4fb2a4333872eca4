#include "simulator/DeskConsole.h"

#include <cstdlib>
#include <iostream>
#include <string_view>
#include <unistd.h>

namespace {
constexpr int kWrongUsage = 2;

void printHelp()
{
    std::cout
        << "usage: zelvo-desk-sim [--help]\n\n"
           "Plays a desk and its USB adapter for developers: commands come from standard input, one a line,\n"
           "answers go to standard output. Time stands still but for \"advance\". Heights are in 0.1 mm.\n\n";
    DeskConsole::printCommands(std::cout);
    std::cout
        << "\nAn empty line and what follows a # are passed over.\n\n"
           "Up for a moment, then look:\n"
           "  printf '%s\\n' 'set 03 04 00 FB 00 00 00 00' 'set 05 00 80 00 80 00 80 00' 'advance 0.4' \\\n"
           "      'get 04' status | zelvo-desk-sim\n\n"
           "Exit status: 0; 1 when a line from a file or a pipe was not understood; 2 for an unknown "
           "option.\n";
}
}

int main(int argc, char** argv)
{
    if (argc == 2 && (std::string_view(argv[1]) == "--help" || std::string_view(argv[1]) == "-h")) {
        printHelp();
        return EXIT_SUCCESS;
    }
    if (argc > 1) {
        std::cerr << "zelvo-desk-sim: unknown argument \"" << argv[1] << "\"; --help explains the usage\n";
        return kWrongUsage;
    }
    const bool interactive = isatty(STDIN_FILENO) != 0;
    DeskConsole console(std::cout, std::cerr);
    const bool understood =
        console.run(std::cin, interactive ? DeskConsole::Prompt::Shown : DeskConsole::Prompt::Hidden);
    return understood || interactive ? EXIT_SUCCESS : EXIT_FAILURE;
}
