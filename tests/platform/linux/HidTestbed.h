#pragma once

#include <QString>

#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

typedef struct _GMainContext GMainContext;
typedef struct _GMainLoop GMainLoop;
typedef struct _UMockdevIoctlBase UMockdevIoctlBase;
typedef struct _UMockdevIoctlClient UMockdevIoctlClient;
typedef struct _UMockdevTestbed UMockdevTestbed;

class HidTestbed;

/// An emulated USB adapter: answers feature reports on its hidraw node as the test tells it to.
class TestAdapter {
public:
    using Report = std::vector<uint8_t>;
    struct Strings {
        std::optional<QByteArray> manufacturer = "Zelvo Ardenta A/S";
        std::optional<QByteArray> product = "Desk adapter";
    };

    TestAdapter(HidTestbed& testbed, int number, const Strings& strings);
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
    /// Pulls the adapter out: transfers on an open node fail, then udev says so. Its destructor does it at
    /// the latest.
    void unplug();

private:
    static int handle(UMockdevIoctlBase*, UMockdevIoctlClient* client, void* adapter);
    void serve(UMockdevIoctlClient* client);
    [[nodiscard]] long transfer(UMockdevIoctlClient* client);

    HidTestbed& m_testbed;
    QByteArray m_node;
    QByteArray m_file;
    QByteArray m_usbPath;
    QByteArray m_hidrawPath;
    UMockdevIoctlBase* m_handler;
    bool m_isPlugged = true;

    mutable std::mutex m_mutex;
    Report m_answer;
    int m_failure = 0;
    bool m_isSilent = false;
    std::vector<Report> m_written;
    std::vector<UMockdevIoctlClient*> m_held;
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
    friend class TestAdapter;
    /// Runs the callable on the thread that answers for the adapters.
    void onAdapterThread(const std::function<void()>& callable);

    UMockdevTestbed* m_testbed;
    int m_nextNumber = 0;
    GMainContext* m_context;
    GMainLoop* m_loop;
    std::thread m_thread;
};
