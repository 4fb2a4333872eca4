#pragma once

#include "simulator/DeskConsole.h"
#include "simulator/UsbIpSession.h"

#include <cstdint>
#include <iosfwd>
#include <list>
#include <poll.h>
#include <string>
#include <vector>

/// Lends the adapters of a console to whatever kernel asks for them on a TCP port of this machine, while the
/// console obeys standard input. Time passes for the desks as it does for everybody.
class UsbIpServer {
public:
    static constexpr uint16_t kPort = 3240; ///< of USB/IP
    /// Whether each feature report is told on the output: seconds since the machine's start, adapter, report,
    /// result.
    enum class Wire { Shown, Hidden };

    UsbIpServer(DeskConsole& console, std::ostream& output, std::ostream& errors, Wire wire);
    ~UsbIpServer();
    UsbIpServer(const UsbIpServer&) = delete;
    UsbIpServer& operator=(const UsbIpServer&) = delete;

    /// False, with errno set, when the port is not available.
    [[nodiscard]] bool listen(uint16_t port);
    /// Serves until a line says "quit". The end of standard input ends nothing.
    void run();

private:
    struct Client {
        Client(int socket, UsbIpSession::Desks& desks, const UsbIpSession::Witness& witness)
            : connection(socket)
            , session(desks, witness)
        {
        }
        int connection;
        UsbIpSession session;
    };

    [[nodiscard]] std::vector<pollfd> nextEvents();
    void letTimePass();
    void welcome();
    [[nodiscard]] bool serve(Client& client);
    void hangUp(std::list<Client>::iterator client);
    void obeyInput();

    DeskConsole& m_console;
    std::ostream& m_output;
    std::ostream& m_errors;
    Wire m_wire;
    double m_now;
    UsbIpSession::Desks m_desks;
    int m_listener = -1;
    std::list<Client> m_clients;
    bool m_inputEnded = false;
    std::string m_typed; // What does not fill a line yet.
};
