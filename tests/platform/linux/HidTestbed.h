#pragma once

#include <QByteArray>

#include <cstdint>
#include <functional>
#include <vector>

/// What an adapter is to do, and what it did.
struct TestWire {
    using Report = std::vector<uint8_t>;

    Report answer; ///< what a read brings, which may be less than was asked for
    int failure = 0; ///< every transfer fails with this errno
    bool isSilent = false; ///< a transfer hangs; it fails with ETIMEDOUT when the silence ends
    bool isHolding = false; ///< one hangs now
    bool isShort = false; ///< a byte of each report written gets lost
    std::vector<Report> written;
};

/// An emulated USB adapter of a machine with a /sys, a /dev and a udev of its own: answers feature reports on
/// its hidraw node as the test tells it to. The test program's own ioctl() stands for the kernel; it runs
/// under umockdev-wrapper.
class TestAdapter {
public:
    explicit TestAdapter(
        const char* manufacturer = "Zelvo Ardenta A/S", const char* product = "Desk adapter");
    ~TestAdapter();
    TestAdapter(const TestAdapter&) = delete;
    TestAdapter& operator=(const TestAdapter&) = delete;

    void change(const std::function<void(TestWire&)>& how);
    [[nodiscard]] TestWire wire();
    void setSilent(bool isSilent)
    {
        change([isSilent](TestWire& wire) { wire.isSilent = isSilent; });
    }
    /// The node's file in the test bed, for permissions and locks.
    [[nodiscard]] const QByteArray& file() const { return m_file; }
    /// Has udev speak of the adapter once more.
    void report(const char* action);

private:
    QByteArray m_file;
    QByteArray m_usbPath;
    QByteArray m_hidrawPath;
    TestWire* m_wire = nullptr;
};
