// SPDX-License-Identifier: Apache-2.0
#include "Platform/Support/Mutex.h"

#include "support/Threads.h"

#include <gtest/gtest.h>

#include <type_traits>

using Sylvar3::internal::Support::Mutex;
using Sylvar3::internal::Support::MutexLock;

namespace {

static_assert(std::is_trivially_destructible_v<Mutex>, "a static one outlives its process");

struct Account {
    Mutex mutex;
    int balance OV_GUARDED_BY(mutex) = 0;

    void add(int amount) OV_EXCLUDES(mutex) {
        const MutexLock lock(mutex);
        balance += amount;
    }

    int read() OV_EXCLUDES(mutex) {
        const MutexLock lock(mutex);
        return balance;
    }
};

TEST(Mutex, LetsOneThreadInAtATime) {
    Account account;
    ovtest::onThreads(8, [&](int) {
        for (int i = 0; i < 1000; ++i) {
            account.add(1);
        }
    });
    EXPECT_EQ(8000, account.read());
}

bool canBeTaken(Mutex& mutex) {
    if (mutex.tryLock()) {
        mutex.unlock();
        return true;
    }
    return false;
}

TEST(Mutex, IsNotTakenASecondTimeWhileHeld) {
    Mutex mutex;
    {
        const MutexLock lock(mutex);
        ovtest::onThreads(1, [&](int) { EXPECT_FALSE(canBeTaken(mutex)); });
    }
    EXPECT_TRUE(canBeTaken(mutex));
}

}  // namespace
