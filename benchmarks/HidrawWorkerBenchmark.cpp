#include "platform/linux/HidrawWorker.h"
#include "platform/qt/QtRunLoop.h"

#include <benchmark/benchmark.h>

/// What the detour over the worker thread adds to each transfer.
static void handOver(benchmark::State& state)
{
    QtRunLoop runLoop;
    RunLoop::setMain(&runLoop);
    HidrawWorker worker("/nowhere");
    for (auto _ : state)
        benchmark::DoNotOptimize(
            worker.performWithin(HidDevice::kDeadlineSeconds, [](HidrawNode&) { return 0; }));
}
BENCHMARK(handOver)->UseRealTime();

BENCHMARK_MAIN();
