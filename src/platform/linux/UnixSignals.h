#pragma once

#include <QSocketNotifier>

#include <array>
#include <csignal>
#include <functional>
#include <memory>

/// The signals by which a session or a user asks a program to end, brought onto the main loop: SIGTERM,
/// SIGINT and SIGHUP. A handler may do almost nothing, so it only writes the signal's number into a pipe.
///
/// SIGHUP stays ignored when it was ignored at start (nohup). SIGPIPE is ignored for good: a log reader or a
/// second start that goes away must not end the program. One object at a time.
class UnixSignals {
public:
    using Callback = std::function<void(int signalNumber)>;

    explicit UnixSignals(Callback callback);
    ~UnixSignals();
    UnixSignals(const UnixSignals&) = delete;
    UnixSignals& operator=(const UnixSignals&) = delete;

private:
    static constexpr std::array kSignals {SIGTERM, SIGINT, SIGHUP};

    void readSignals();

    Callback m_callback;
    int m_readEnd = -1;
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::array<struct sigaction, kSignals.size()> m_previous {};
};
