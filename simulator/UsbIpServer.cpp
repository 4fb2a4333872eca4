#include "simulator/UsbIpServer.h"

#include "simulator/ReportText.h"

#include <arpa/inet.h>
#include <array>
#include <cerrno>
#include <ctime>
#include <iomanip>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <ostream>
#include <sys/socket.h>
#include <unistd.h>

namespace {
/// More than one computer has ports for.
constexpr size_t kMostClients = 16;

double secondsSinceStart()
{
    timespec now {};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return double(now.tv_sec) + double(now.tv_nsec) * 1e-9;
}

/// Answers are short: a client whose socket has no room for one does not read them at all.
bool sendAll(int socket, const UsbIpSession::Bytes& bytes)
{
    return send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT) == ssize_t(bytes.size());
}
}

UsbIpServer::UsbIpServer(DeskConsole& console, std::ostream& output, std::ostream& errors, Wire wire)
    : m_console(console)
    , m_output(output)
    , m_errors(errors)
    , m_wire(wire)
    , m_now(secondsSinceStart())
    , m_desks {console.desks(), {}}
{
}

UsbIpServer::~UsbIpServer()
{
    while (!m_clients.empty())
        hangUp(m_clients.begin());
    if (m_listener >= 0)
        close(m_listener);
}

bool UsbIpServer::listen(uint16_t port)
{
    m_listener = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const int yes = 1;
    setsockopt(m_listener, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    sockaddr_in address {};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK); // A desk is not for the network to move.
    return bind(m_listener, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0
        && ::listen(m_listener, int(kMostClients)) == 0;
}

void UsbIpServer::run()
{
    while (!m_console.hasQuit()) {
        const std::vector<pollfd> events = nextEvents();
        letTimePass();
        auto client = m_clients.begin();
        for (size_t i = 2; i < events.size(); ++i) {
            const auto here = client++;
            if (events[i].revents != 0 && !serve(*here))
                hangUp(here);
        }
        if (events[1].revents != 0)
            welcome();
        if (events[0].revents != 0)
            obeyInput();
        for (client = m_clients.begin(); client != m_clients.end();) {
            const auto here = client++;
            if (here->session.isUnplugged())
                hangUp(here);
        }
    }
}

/// Of standard input, the port, and the clients in their order.
std::vector<pollfd> UsbIpServer::nextEvents()
{
    std::vector<pollfd> events {{m_inputEnded ? -1 : STDIN_FILENO, POLLIN, 0}, {m_listener, POLLIN, 0}};
    for (const Client& client : m_clients)
        events.push_back({client.connection, POLLIN, 0});
    while (poll(events.data(), events.size(), -1) < 0 && errno == EINTR) { }
    return events;
}

void UsbIpServer::letTimePass()
{
    const double now = secondsSinceStart();
    m_console.letPass(now - m_now);
    m_now = now;
}

void UsbIpServer::welcome()
{
    const int socket = accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC);
    if (socket < 0)
        return;
    if (m_clients.size() >= kMostClients) {
        m_errors << "USB/IP: too many clients" << std::endl;
        close(socket);
        return;
    }
    const int yes = 1;
    setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &yes, sizeof yes);
    m_clients.emplace_back(socket, m_desks, [this](const UsbIpSession::Report& report) {
        if (m_wire == Wire::Shown)
            m_output << std::fixed << std::setprecision(3) << m_now << " adapter " << report.adapter
                     << (report.isRead ? " get " : " set ") << text(report.bytes) << ": "
                     << text(report.result) << std::endl;
    });
}

/// False when the client has gone or is to go.
bool UsbIpServer::serve(Client& client)
{
    std::array<uint8_t, 4096> buffer;
    const ssize_t count = recv(client.connection, buffer.data(), buffer.size(), MSG_DONTWAIT);
    if (count <= 0)
        return count < 0 && (errno == EAGAIN || errno == EINTR);
    const auto answer = client.session.take(std::span(buffer).first(size_t(count)));
    if (!answer)
        m_errors << "USB/IP: " << client.session.complaint() << "; the connection is closed" << std::endl;
    return answer && sendAll(client.connection, *answer);
}

void UsbIpServer::hangUp(std::list<Client>::iterator client)
{
    close(client->connection);
    m_clients.erase(client);
}

void UsbIpServer::obeyInput()
{
    std::array<char, 4096> buffer;
    const ssize_t count = read(STDIN_FILENO, buffer.data(), buffer.size());
    m_inputEnded = count == 0 || (count < 0 && errno != EINTR && errno != EAGAIN);
    m_typed.append(buffer.data(), size_t(std::max<ssize_t>(count, 0)));
    if (m_inputEnded && !m_typed.empty())
        m_typed += '\n';
    for (size_t end = 0; (end = m_typed.find('\n')) != m_typed.npos && !m_console.hasQuit();) {
        static_cast<void>(
            m_console.execute(m_typed.substr(0, end))); // It says itself what it does not understand.
        m_typed.erase(0, end + 1);
    }
    m_output.flush();
}
