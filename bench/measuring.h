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

/// Times both sides in turns, in processor time of this thread, so that whatever else the machine does falls on both
/// alike. The times, in milliseconds a round, go to the counters "ours" and "beside"; without `beside` there is one only.
void MeasureTime(benchmark::State& state, const Side& ours, const Side& beside = {});

/// What the heap holds now, in bytes.
double HeapBytes();

} // namespace vorn::bench
