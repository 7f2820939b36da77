#pragma once

#include <functional>

namespace benchmark {
class State;
}

namespace vorn::bench {

/// One side of a row. `prepare` and `finish` are not timed.
struct Side {
    std::function<void()> prepare;
    std::function<void()> timed;
    std::function<void()> finish;
};

/// Times one side and then the other; the repetitions of a row take turns so. The times are processor time of
/// this thread, in milliseconds a round: what else the machine does doesn't count. They go to the counters
/// "ours" and "beside"; without `beside` there is one only.
void MeasureTime(benchmark::State& state, const Side& ours, const Side& beside = {});

/// What the heap holds now, in bytes.
double HeapBytes();

} // namespace vorn::bench
