// SPDX-License-Identifier: Apache-2.0
#include "Platform/Support/ForeignOnce.h"

#include "Platform/Support/OnceBuilt.h"

#include <condition_variable>
#include <map>

namespace Sylvar3::internal::Support {
namespace {

/// Guarded by the mutex of all.
struct Waits {
    std::map<std::thread::id, const ForeignOnce*> places;
};

Waits& waits() {
    static OnceBuilt<Waits> state;
    return state.get();
}

std::condition_variable_any& turnEnded() {
    static OnceBuilt<std::condition_variable_any> condition;
    return condition.get();
}

}  // namespace

Mutex ForeignOnce::mutex_;

bool ForeignOnce::takeTurn() {
    const std::thread::id self = std::this_thread::get_id();
    std::condition_variable_any& ended = turnEnded();  // Built here, since endTurn must not throw.
    MutexLock lock(mutex_);
    while (isRunning_) {
        if (waitsFor(self)) {
            return false;
        }
        waits().places[self] = this;
        ended.wait(mutex_);
        waits().places.erase(self);
    }
    if (isDone()) {
        return false;
    }
    runner_ = self;
    isRunning_ = true;
    return true;
}

void ForeignOnce::endTurn(bool done) {
    MutexLock lock(mutex_);
    isRunning_ = false;
    done_.store(done, std::memory_order_release);
    turnEnded().notify_all();
}

bool ForeignOnce::waitsFor(std::thread::id thread) const {
    for (const ForeignOnce* once = this; once->isRunning_;) {
        if (once->runner_ == thread) {
            return true;
        }
        const auto next = waits().places.find(once->runner_);
        if (next == waits().places.end()) {
            return false;
        }
        once = next->second;
    }
    return false;
}

}  // namespace Sylvar3::internal::Support
