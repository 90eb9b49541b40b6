// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Scene/SceneLocation.h"

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <exception>
#include <limits>
#include <mutex>
#include <string>

namespace ovscene {

/// Children of a location that are still to be visited, with all that is below them: those at the
/// places from `begin` to `end`, without the latter.
struct Work {
    SceneLocationPtr location;
    std::int64_t begin = 0;
    std::int64_t end = 0;
};

/// What several threads have to do. Each keeps its own work, a stack; one that runs out of it gets
/// some from the others, who hand over what lies lowest, the most as a rule. Any thread.
class WorkList {
public:
    static constexpr std::int64_t kNoLimit = std::numeric_limits<std::int64_t>::max();

    /// For so many threads, each of which calls `take` until there is nothing left.
    explicit WorkList(std::size_t threads) : threads_(threads) {}

    /// Takes the calling thread's last work, or waits for that of others. False when all is done,
    /// or the work was stopped.
    bool take(std::deque<Work>& own, Work& work);

    /// Hands over what others wait for; the last one of its own a thread keeps.
    void shareWith(std::deque<Work>& own) {
        if (own.size() > 1 && waiting_.load(std::memory_order_relaxed) > 0) {
            share(own);
        }
    }

    /// Ends the work of all threads. The first one's failure is kept.
    void stop(std::exception_ptr failure);

    /// Throws what the work was stopped for. For the time after.
    void rethrowFailure() const;

private:
    void share(std::deque<Work>& own);

    const std::size_t threads_;
    std::atomic<std::size_t> waiting_{0};
    std::atomic<bool> stopped_{false};
    std::mutex mutex_;  ///< For what follows, and for changes of what stands above.
    std::condition_variable changed_;
    std::deque<Work> shared_;
    std::exception_ptr failure_;
};

}  // namespace ovscene
