#include "bench/measuring.h"

#include "bench/results.h"

#include <benchmark/benchmark.h>

#include <malloc.h>

#include <ctime>

namespace vorn::bench {

namespace {

/// A slow side isn't run as often as a fast one.
constexpr double EnoughSeconds = 0.2;

/// Processor time of this thread: what else the machine does meanwhile doesn't count.
double ThreadSeconds()
{
    timespec now{};
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
        const double seconds = SecondsOf(ours);
        oursSeconds += seconds;
        state.SetIterationTime(seconds);
    }
    benchmark::IterationCount besideRounds = 0;
    for (; beside.timed && besideRounds < state.iterations() && besideSeconds < EnoughSeconds; ++besideRounds)
        besideSeconds += SecondsOf(beside);
    const auto rounds = static_cast<double>(state.iterations());
    state.counters[OursCounter] = oursSeconds * 1000 / rounds;
    if (beside.timed)
        state.counters[BesideCounter] = besideSeconds * 1000 / static_cast<double>(besideRounds);
}

double HeapBytes()
{
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks) + static_cast<double>(info.hblkhd);
}

} // namespace vorn::bench
