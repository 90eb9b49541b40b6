// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <cstdint>

namespace SYLVAR {

/// The number of producers of this process, for the eye of a debugger: nothing reads it. It moves
/// by separate loads and stores, so that a step costs no locked instruction, and drifts when
/// threads meet. Alone on its cache line, because every step of every thread writes to it.
struct alignas(64) InstanceCount {
    std::atomic<std::uint32_t> value{0};

    void raise() noexcept { set(value.load(std::memory_order_relaxed) + 1); }
    void lower() noexcept { set(value.load(std::memory_order_relaxed) - 1); }

private:
    void set(std::uint32_t count) noexcept { value.store(count, std::memory_order_relaxed); }
};

extern InstanceCount instanceCount;

}  // namespace SYLVAR
