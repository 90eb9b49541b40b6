// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "support/AllocationCount.h"

#include <benchmark/benchmark.h>

#include <cstdint>

namespace ovbench {

/// Reports the allocations that one iteration makes.
class CountAllocations {
public:
    explicit CountAllocations(benchmark::State& state)
        : state_(state), before_(ovtest::allocationsOfThisThread()) {}
    ~CountAllocations() {
        state_.counters["allocations"] =
            benchmark::Counter(static_cast<double>(ovtest::allocationsOfThisThread() - before_),
                               benchmark::Counter::kAvgIterations);
    }
    CountAllocations(const CountAllocations&) = delete;
    CountAllocations& operator=(const CountAllocations&) = delete;

private:
    benchmark::State& state_;
    std::int64_t before_;
};

}  // namespace ovbench
