#include "platform/ProcessServices.h"
#include "platform/linux/HidrawWorker.h"
#include "platform/qt/QtRunLoop.h"

#include <benchmark/benchmark.h>

/// What the detour over the worker thread adds to each transfer.
static void handOver(benchmark::State& state)
{
    QtRunLoop runLoop;
    const ProcessServices services({&runLoop});
    const std::vector<uint8_t> stop {5, 1, 0x80, 1, 0x80, 1, 0x80, 1};
    HidrawWorker worker("/nowhere", stop, [](const HidMailbox::News&) {});
    const auto await = [&] { worker.await(HidMailbox::Direction::Write, stop[0], HidDevice::kWaitSeconds); };
    worker.post([&](HidMailbox& mailbox) { mailbox.write(stop, 0); });
    await();
    // No node is there, so the adapter counts as lost, and each probe is one refused transfer.
    for (auto _ : state) {
        worker.post([](HidMailbox& mailbox) { mailbox.probe(0); });
        await();
    }
}
BENCHMARK(handOver)->UseRealTime();

BENCHMARK_MAIN();
