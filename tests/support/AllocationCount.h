// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

namespace ovtest {

/// How often this thread has called `operator new`, in any library of the process. Link
/// `AllocationCount.cpp`, which replaces the operators, to use it.
std::int64_t allocationsOfThisThread();

/// How many allocations `action` makes on this thread.
template <class Action>
std::int64_t allocationsIn(Action action) {
    const std::int64_t before = allocationsOfThisThread();
    action();
    return allocationsOfThisThread() - before;
}

}  // namespace ovtest
