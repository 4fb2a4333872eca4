#pragma once

#include <QByteArray>

#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

typedef struct _UMockdevTestbed UMockdevTestbed;

/// What an adapter is to do, and what it did.
struct TestWire {
    using Report = std::vector<uint8_t>;

    Report answer; ///< what a read brings, which may be less than was asked for
    int failure = 0; ///< every transfer fails with this errno
    bool isSilent = false; ///< a transfer hangs; it fails with ETIMEDOUT when the silence ends
    bool isHolding = false; ///< one hangs now
    std::vector<Report> written;
};

/// An emulated USB adapter: answers feature reports on its hidraw node as the test tells it to. The test
/// program's own ioctl() stands for the kernel.
class TestAdapter {
public:
    TestAdapter(UMockdevTestbed* testbed, int number, const char* manufacturer, const char* product);
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
    UMockdevTestbed* m_testbed;
    QByteArray m_file;
    QByteArray m_usbPath;
    QByteArray m_hidrawPath;
    TestWire* m_wire = nullptr;
};

/// A machine of its own under /sys and /dev, with udev's events. Runs under umockdev-wrapper.
class HidTestbed {
public:
    HidTestbed();
    ~HidTestbed();
    HidTestbed(const HidTestbed&) = delete;
    HidTestbed& operator=(const HidTestbed&) = delete;

    /// @param manufacturer may be null: an adapter without any strings.
    [[nodiscard]] std::unique_ptr<TestAdapter> plug(
        const char* manufacturer = "Zelvo Ardenta A/S", const char* product = "Desk adapter")
    {
        return std::make_unique<TestAdapter>(m_testbed, m_nextNumber++, manufacturer, product);
    }

private:
    UMockdevTestbed* m_testbed;
    int m_nextNumber = 0;
};
