#include "data/Date.h"
#include "platform/Bundle.h"
#include "platform/ProcessServices.h"
#include "platform/qt/QtRunLoop.h"

#include <QCoreApplication>

#include <benchmark/benchmark.h>

namespace {
/// The days of a history from 2013 to the end of 2025.
constexpr int kDays = 4748;

template <Date (Date::*Boundary)() const>
void startsOfAllDays(benchmark::State& state)
{
    const Date first = Date::dateFromComponents(2013, 1, 1);
    for (auto _ : state) {
        for (int day = 0; day < kDays; ++day)
            benchmark::DoNotOptimize((first.dateByAddingDays(day).*Boundary)());
    }
    state.SetItemsProcessed(state.iterations() * kDays);
}
BENCHMARK(startsOfAllDays<&Date::dateAtStartOfDay>)->Name("dateAtStartOfDay")->Unit(benchmark::kMillisecond);
BENCHMARK(startsOfAllDays<&Date::dateAtStartOfWeek>)
    ->Name("dateAtStartOfWeek")
    ->Unit(benchmark::kMillisecond);

/// What the kept calendar saves.
void newCalendar(benchmark::State& state)
{
    const Date date = Date::now();
    for (auto _ : state) {
        const ProcessServices services(ProcessServices::installed().backends());
        benchmark::DoNotOptimize(date.dateAtStartOfDay());
    }
}
BENCHMARK(newCalendar)->Unit(benchmark::kMicrosecond);
}

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QtRunLoop runLoop;
    Bundle bundle {QJsonObject()};
    const ProcessServices services({&runLoop, &bundle});
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
