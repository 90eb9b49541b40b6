// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Support/ThreadAnnotations.h"

#include <mutex>

namespace Sylvar3::internal::Support {

/// A mutex whose rules the compiler checks. It is constant-initialised and needs no destructor, so
/// it may stand at namespace scope and be locked by a thread that outlives static destruction.
class OV_CAPABILITY("mutex") Mutex {
public:
    constexpr Mutex() = default;
    Mutex(const Mutex&) = delete;
    Mutex& operator=(const Mutex&) = delete;

    void lock() OV_ACQUIRE() { mutex_.lock(); }
    void unlock() OV_RELEASE() { mutex_.unlock(); }
    bool tryLock() OV_TRY_ACQUIRE(true) { return mutex_.try_lock(); }

private:
    std::mutex mutex_;
};

/// Holds a mutex for the scope it stands in.
class OV_SCOPED_CAPABILITY MutexLock {
public:
    explicit MutexLock(Mutex& mutex) OV_ACQUIRE(mutex) : mutex_(mutex) { mutex_.lock(); }
    ~MutexLock() OV_RELEASE() { mutex_.unlock(); }
    MutexLock(const MutexLock&) = delete;
    MutexLock& operator=(const MutexLock&) = delete;

private:
    Mutex& mutex_;
};

}  // namespace Sylvar3::internal::Support
