// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

namespace ovtest {

/// Whether memory is counted; under a sanitizer, which has an allocator of its own, it isn't. Link
/// `AllocationPeak.cpp`, which replaces `malloc` and its kin, to count it.
bool isAllocationPeakKnown();

/// Bytes of memory in use in the whole process, and the most since `beginAllocationPeak`.
std::int64_t allocatedBytes();
std::int64_t allocationPeak();
void beginAllocationPeak();

/// The most bytes of memory that `action` uses at a time, what it leaves behind included.
template <class Action>
std::int64_t allocationPeakOf(Action action) {
    beginAllocationPeak();
    const std::int64_t before = allocatedBytes();
    action();
    return allocationPeak() - before;
}

}  // namespace ovtest
