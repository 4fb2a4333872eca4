#pragma once

#include <QByteArray>

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

typedef struct _UMockdevTestbed UMockdevTestbed;

struct TestWire;

/// An emulated USB adapter: answers feature reports on its hidraw node as the test tells it to. The test
/// program's own ioctl() stands for the kernel.
class TestAdapter {
public:
    using Report = std::vector<uint8_t>;
    struct Strings {
        std::optional<QByteArray> manufacturer = "Zelvo Ardenta A/S";
        std::optional<QByteArray> product = "Desk adapter";
    };

    TestAdapter(UMockdevTestbed* testbed, int number, const Strings& strings);
    ~TestAdapter();
    TestAdapter(const TestAdapter&) = delete;
    TestAdapter& operator=(const TestAdapter&) = delete;

    /// The bytes that a read brings, which may be fewer than asked for.
    void setAnswer(Report answer);
    /// Every transfer fails with this errno; 0 ends that.
    void setFailure(int error);
    /// While silent, a transfer hangs; it fails with ETIMEDOUT when the silence ends.
    void setSilent(bool silent);
    [[nodiscard]] bool isHolding() const;

    [[nodiscard]] std::vector<Report> written() const;
    /// The node's file in the test bed, for permissions and locks.
    [[nodiscard]] const QByteArray& file() const { return m_file; }
    /// Has udev speak of the adapter once more.
    void report(const char* action);

private:
    UMockdevTestbed* m_testbed;
    QByteArray m_file;
    QByteArray m_usbPath;
    QByteArray m_hidrawPath;
    std::shared_ptr<TestWire> m_wire;
};

/// A machine of its own under /sys and /dev, with udev's events. Runs under umockdev-wrapper.
class HidTestbed {
public:
    HidTestbed();
    ~HidTestbed();
    HidTestbed(const HidTestbed&) = delete;
    HidTestbed& operator=(const HidTestbed&) = delete;

    [[nodiscard]] std::unique_ptr<TestAdapter> plug(const TestAdapter::Strings& strings = {});

private:
    UMockdevTestbed* m_testbed;
    int m_nextNumber = 0;
};
