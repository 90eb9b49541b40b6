// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Runtime/WaitingRoom.h"

#include "Platform/Embedded/Runtime/Session.h"
#include "Platform/Support/OnceBuilt.h"

#include <algorithm>
#include <condition_variable>

namespace Sylvar3::internal::OvSylvar::Embedded {

using Support::MutexLock;

namespace {

/// Most cooks end sooner than a thread falls asleep.
constexpr int kLooksBeforeSleep = 100;

const Session* sessionOf(std::uintptr_t seen) {
    return reinterpret_cast<const Session*>(seen & ~SlotValue::kTagMask);
}

bool endsSoon(const Slot& slot, std::uintptr_t seen) {
    for (int look = 0; look < kLooksBeforeSleep; ++look) {
        if (slot.load(std::memory_order_relaxed) != seen) {
            return true;
        }
        __builtin_ia32_pause();
    }
    return false;
}

}  // namespace

struct WaitingRoom::Waiter {
    const Slot* slot;
    const Session* cook;
    const Session* session;
    bool isDone = false;
    End end = End::TryAgain;
    Location location{};
    std::condition_variable_any woken{};
};

WaitingRoom& WaitingRoom::instance() {
    static Support::OnceBuilt<WaitingRoom> room;
    return room.get();
}

WaitingRoom::End WaitingRoom::wait(Slot& slot,
                                   std::uintptr_t seen,
                                   const Session& session,
                                   Location& location) {
    const Session* const cook = sessionOf(seen);
    if (cook == &session) {
        return End::Cycle;
    }
    if (endsSoon(slot, seen)) {
        return End::TryAgain;
    }
    Waiter waiter{&slot, cook, &session};
    const MutexLock lock(mutex_);
    for (const Session* awaited = cook; awaited; awaited = awaitedBy(*awaited)) {
        if (awaited == &session) {
            return End::Cycle;
        }
    }
    // Counted before the last look at the slot; the cook changes the slot before it looks at the
    // count. So either this sees the new slot, or the cook sees this.
    waiters_.push_back(&waiter);
    count_.fetch_add(1, std::memory_order_seq_cst);
    if (slot.load(std::memory_order_seq_cst) == seen) {
        while (!waiter.isDone) {
            waiter.woken.wait(mutex_);
        }
    }
    count_.fetch_sub(1, std::memory_order_relaxed);
    waiters_.erase(std::find(waiters_.begin(), waiters_.end(), &waiter));
    location = std::move(waiter.location);
    return waiter.end;
}

void WaitingRoom::end(const Slot& slot, const Session& session, const Location* location) {
    if (count_.load(std::memory_order_seq_cst) == 0) {
        return;
    }
    const MutexLock lock(mutex_);
    for (Waiter* const waiter : waiters_) {
        if (!waiter->isDone && waiter->slot == &slot && waiter->cook == &session) {
            waiter->isDone = true;
            waiter->end = location ? End::Delivered : End::TryAgain;
            if (location) {
                waiter->location = *location;
            }
            waiter->woken.notify_one();
        }
    }
}

bool WaitingRoom::isWaitingFor(const Session& session, std::thread::id thread) const {
    const MutexLock lock(mutex_);
    const Session* awaited = awaitedBy(session);
    while (awaited && awaited->cookingThread.load(std::memory_order_acquire) != thread) {
        awaited = awaitedBy(*awaited);
    }
    return awaited != nullptr;
}

const Session* WaitingRoom::awaitedBy(const Session& session) const {
    const auto waiter = std::find_if(waiters_.begin(), waiters_.end(), [&](const Waiter* one) {
        return one->session == &session && !one->isDone;
    });
    return waiter == waiters_.end() ? nullptr : (*waiter)->cook;
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
