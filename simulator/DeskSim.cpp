#include "simulator/DeskConsole.h"
#include "simulator/UsbIpServer.h"

#include <cerrno>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <optional>
#include <span>
#include <string_view>
#include <unistd.h>

namespace {
constexpr int kWrongUsage = 2;

void printHelp()
{
    std::cout
        << "usage: zelvo-desk-sim [--usbip [PORT] [--wire]]\n\n"
           "Plays a desk and its USB adapter for developers: commands come from standard input, one a line,\n"
           "answers go to standard output. Time stands still but for \"advance\". Heights are in 0.1 mm.\n\n";
    DeskConsole::printCommands(std::cout);
    std::cout
        << "\nAn empty line and what follows a # are passed over.\n\n"
           "Up for a moment, then look:\n"
           "  printf '%s\\n' 'set 03 04 00 FB 00 00 00 00' 'set 05 00 80 00 80 00 80 00' 'advance 0.4' \\\n"
           "      'get 04' status | zelvo-desk-sim\n\n"
           "With --usbip time passes by itself, and a kernel can plug the adapters in as its own, over TCP "
           "on\n"
           "this machine (PORT, else 3240); --wire tells each report that goes over the wire. As root, with\n"
           "Debian's usbip:\n"
           "  modprobe vhci-hcd\n"
           "  usbip attach -r 127.0.0.1 -b 1-1     # 1-2 for the second adapter\n"
           "After \"unplug\" and \"plug\" it is attached in the same way again.\n\n"
           "Exit status: 0; 1 when a line from a file or a pipe was not understood, or the port is not "
           "available; 2 for\na wrong option.\n";
}

struct Options {
    bool help = false;
    std::optional<uint16_t> port; // Of USB/IP, when it is asked for.
    UsbIpServer::Wire wire = UsbIpServer::Wire::Hidden;
};

std::optional<uint16_t> portIn(std::string_view word)
{
    uint16_t port = 0;
    const auto [end, failure] = std::from_chars(word.data(), word.data() + word.size(), port);
    return failure == std::errc() && end == word.data() + word.size() && port > 0 ? std::optional(port)
                                                                                  : std::nullopt;
}

/// The first word that is wrong, where one is.
std::optional<std::string_view> read(std::span<char*> words, Options& options)
{
    for (size_t i = 0; i < words.size(); ++i) {
        const std::string_view word = words[i];
        if (word == "--help" || word == "-h") {
            options.help = true;
        } else if (word == "--usbip") {
            const std::optional<uint16_t> port = i + 1 < words.size() ? portIn(words[i + 1]) : std::nullopt;
            options.port = port.value_or(UsbIpServer::kPort);
            if (port)
                ++i;
        } else if (word == "--wire") {
            options.wire = UsbIpServer::Wire::Shown;
        } else {
            return word;
        }
    }
    if (options.wire == UsbIpServer::Wire::Shown && !options.port)
        return "--wire"; // There is none.
    return std::nullopt;
}

int serve(DeskConsole& console, const Options& options)
{
    UsbIpServer server(console, std::cout, std::cerr, options.wire);
    if (!server.listen(*options.port)) {
        std::cerr << "zelvo-desk-sim: port " << *options.port << ": " << std::strerror(errno) << '\n';
        return EXIT_FAILURE;
    }
    std::cout << "Port " << *options.port << " lends adapter 1-1; \"help\" lists the commands." << std::endl;
    server.run();
    return EXIT_SUCCESS;
}
}

int main(int argc, char** argv)
{
    Options options;
    if (const auto wrong = read(std::span(argv, size_t(argc)).subspan(1), options)) {
        std::cerr << "zelvo-desk-sim: wrong argument \"" << *wrong << "\"; --help explains the usage\n";
        return kWrongUsage;
    }
    if (options.help) {
        printHelp();
        return EXIT_SUCCESS;
    }
    DeskConsole console(std::cout, std::cerr);
    if (options.port)
        return serve(console, options);
    const bool interactive = isatty(STDIN_FILENO) != 0;
    const bool understood =
        console.run(std::cin, interactive ? DeskConsole::Prompt::Shown : DeskConsole::Prompt::Hidden);
    return understood || interactive ? EXIT_SUCCESS : EXIT_FAILURE;
}
