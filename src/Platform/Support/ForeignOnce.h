// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Support/Mutex.h"

#include <atomic>
#include <thread>

namespace Sylvar3::internal::Support {

/// Runs code of others once. No lock is held while it runs, so that it may do anything, even ask
/// for this very result again: before a thread waits it follows who waits for whom, and where that
/// leads back to itself it is told so and does not wait. What one instance may wait for is another
/// instance alone; waits by other means are not seen.
class ForeignOnce {
public:
    ForeignOnce() = default;
    ForeignOnce(const ForeignOnce&) = delete;
    ForeignOnce& operator=(const ForeignOnce&) = delete;

    /// Runs `work` unless it was done before; waits while another thread runs it. `work` returns
    /// whether it is done; if not, and when it throws, the next call runs it again. Returns whether
    /// it is done; false also when waiting would never end.
    template <class Work>
    bool run(Work work) OV_EXCLUDES(mutex_) {
        if (isDone()) {
            return true;
        }
        if (!takeTurn()) {
            return isDone();
        }
        Turn turn(*this);
        return turn.done = work();
    }

    /// What `work` wrote may be read when this is true.
    bool isDone() const noexcept { return done_.load(std::memory_order_acquire); }

private:
    struct Turn {
        explicit Turn(ForeignOnce& owner) : once(owner) {}
        ~Turn() { once.endTurn(done); }
        Turn(const Turn&) = delete;
        Turn& operator=(const Turn&) = delete;

        ForeignOnce& once;
        bool done = false;
    };

    bool takeTurn() OV_EXCLUDES(mutex_);
    void endTurn(bool done) OV_EXCLUDES(mutex_);
    bool waitsFor(std::thread::id thread) const OV_REQUIRES(mutex_);

    static Mutex mutex_;  ///< One for all: it guards who waits for whom. Innermost.
    std::atomic<bool> done_{false};
    bool isRunning_ OV_GUARDED_BY(mutex_) = false;
    std::thread::id runner_ OV_GUARDED_BY(mutex_);
};

}  // namespace Sylvar3::internal::Support
