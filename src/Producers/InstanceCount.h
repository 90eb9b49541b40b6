// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>

namespace SYLVAR {

/// The number of producers of this process, for the eye of a debugger: nothing reads it. It is the
/// sum of its cells, with wrap-around: a thread counts in one cell, also the end of what another
/// thread made. Every step of every thread counts, so a cell moves by a load and a store, without a
/// locked instruction, and is a cache line of its own. It drifts when more threads than there are
/// cells meet.
class InstanceCount {
public:
    static constexpr std::size_t kCells = 64;

    struct alignas(64) Cell {
        std::atomic<std::uint32_t> value{0};

        void add(std::uint32_t count) noexcept {
            value.store(value.load(std::memory_order_relaxed) + count, std::memory_order_relaxed);
        }
    };

    Cell cells[kCells];

    void raise() noexcept { ofThisThread().add(1); }
    void lower() noexcept { ofThisThread().add(~std::uint32_t{0}); }

    std::uint32_t sum() const noexcept {
        std::uint32_t total = 0;
        for (const Cell& cell : cells) {
            total += cell.value.load(std::memory_order_relaxed);
        }
        return total;
    }

private:
    /// Threads take the cells in turn.
    Cell& ofThisThread() noexcept {
        [[gnu::tls_model("initial-exec")]] static thread_local std::uint32_t turn = 0;
        if (turn == 0) {
            turn = ++turns_;
        }
        return cells[turn % kCells];
    }

    std::atomic<std::uint32_t> turns_{0};
};

extern InstanceCount instanceCount;

}  // namespace SYLVAR
