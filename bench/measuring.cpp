#include "bench/measuring.h"

#include "bench/results.h"

#include <benchmark/benchmark.h>

#include <malloc.h>

#include <ctime>

namespace vorn::bench {

namespace {

/// Processor time of this thread: what else the machine does meanwhile doesn't count.
double ThreadSeconds()
{
    timespec now {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

double SecondsOf(const Side& side)
{
    if (side.prepare)
        side.prepare();
    const double begin = ThreadSeconds();
    side.timed();
    const double spent = ThreadSeconds() - begin;
    if (side.finish)
        side.finish();
    return spent;
}

} // namespace

void MeasureTime(benchmark::State& state, const Side& ours, const Side& beside)
{
    double oursSeconds = 0;
    double besideSeconds = 0;
    for ([[maybe_unused]] auto round : state) {
        const double first = SecondsOf(ours);
        const double second = beside.timed ? SecondsOf(beside) : 0;
        oursSeconds += first;
        besideSeconds += second;
        state.SetIterationTime(first + second);
    }
    const auto rounds = static_cast<double>(state.iterations());
    state.counters[OursCounter] = oursSeconds * 1000 / rounds;
    if (beside.timed)
        state.counters[BesideCounter] = besideSeconds * 1000 / rounds;
}

double HeapBytes()
{
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks) + static_cast<double>(info.hblkhd);
}

} // namespace vorn::bench
