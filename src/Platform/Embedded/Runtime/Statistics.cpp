// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Runtime/Statistics.h"

#include "Platform/Embedded/Runtime/Session.h"
#include "Platform/Support/OnceBuilt.h"

#include <algorithm>

namespace Sylvar3::internal::OvSylvar::Embedded {

using Support::MutexLock;

Statistics& Statistics::instance() {
    static Support::OnceBuilt<Statistics> statistics;
    return statistics.get();
}

void Statistics::add(const Session& session) {
    const MutexLock lock(mutex_);
    sessions_.insert(&session);
}

void Statistics::remove(const Session& session) {
    const MutexLock lock(mutex_);
    addTo(ended_, session);
    sessions_.erase(&session);
}

Statistics::Counts Statistics::counts() const {
    const MutexLock lock(mutex_);
    Counts sums = ended_;
    for (const Session* const session : sessions_) {
        addTo(sums, *session);
    }
    return sums;
}

bool Statistics::isCooking(std::thread::id thread) const {
    const MutexLock lock(mutex_);
    return std::any_of(sessions_.begin(), sessions_.end(), [&](const Session* session) {
        return session->cookingThread.load(std::memory_order_acquire) == thread;
    });
}

void Statistics::addTo(Counts& sums, const Session& session) {
    for (std::size_t i = 0; i < sums.size(); ++i) {
        sums[i].cooks += session.counts[i].cooks.load(std::memory_order_relaxed);
        sums[i].hits += session.counts[i].hits.load(std::memory_order_relaxed);
        sums[i].nanoseconds += session.counts[i].nanoseconds.load(std::memory_order_relaxed);
    }
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
