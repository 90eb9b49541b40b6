// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Runtime/Location.h"
#include "Platform/Embedded/Runtime/Slot.h"
#include "Platform/Support/Mutex.h"

#include <atomic>
#include <cstdint>
#include <thread>
#include <vector>

namespace Sylvar3::internal::OvSylvar::Embedded {

class Session;

/// Where those wait who want a location that another session cooks. Any thread.
class WaitingRoom {
public:
    enum class End {
        Delivered,  ///< It was cooked; the location is there, or absent.
        TryAgain,   ///< Its cook was given up, or ended just before.
        Cycle       ///< Its cook waits, by way of others, for the one who wanted to wait.
    };

    static WaitingRoom& instance();

    WaitingRoom() = default;
    WaitingRoom(const WaitingRoom&) = delete;
    WaitingRoom& operator=(const WaitingRoom&) = delete;

    /// Waits for the end of the cook that `seen`, the slot's value, tells of. The slot must stay
    /// where it is meanwhile.
    End wait(Slot& slot, std::uintptr_t seen, const Session& session, Location& location)
        OV_EXCLUDES(mutex_);

    /// Tells those who wait for this session's cook of the slot that it has ended, after the slot
    /// says so. Null: it was given up.
    void end(const Slot& slot, const Session& session, const Location* location)
        OV_EXCLUDES(mutex_);

    /// How many wait just now.
    std::int64_t count() const { return count_.load(std::memory_order_acquire); }

    /// Whether a session waits for a cook of that thread, by way of others or not.
    bool isWaitingFor(const Session& session, std::thread::id thread) const OV_EXCLUDES(mutex_);

private:
    struct Waiter;

    /// What a session waits for; null when it does not wait.
    const Session* awaitedBy(const Session& session) const OV_REQUIRES(mutex_);

    mutable Support::Mutex mutex_;
    std::atomic<std::int64_t> count_{0};
    std::vector<Waiter*> waiters_ OV_GUARDED_BY(mutex_);
};

}  // namespace Sylvar3::internal::OvSylvar::Embedded
