// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Runtime/Runtime.h"

#include "Platform/Embedded/Runtime/Client.h"
#include "Platform/Embedded/Runtime/Eviction.h"
#include "Platform/Embedded/Runtime/Statistics.h"
#include "Platform/Embedded/Runtime/Store.h"
#include "Platform/Embedded/Runtime/WaitingRoom.h"
#include "Platform/Support/OnceBuilt.h"

#include <chrono>
#include <map>
#include <thread>

namespace Sylvar3::internal::OvSylvar::Embedded {

using Support::MutexLock;

namespace {

/// The threads that wait in `Runtime::finalize`: two that are cooking do not wait for each other.
class FinalizingThreads {
public:
    static FinalizingThreads& instance() {
        static Support::OnceBuilt<FinalizingThreads> threads;
        return threads.get();
    }

    void add(std::thread::id thread) OV_EXCLUDES(mutex_) {
        const MutexLock lock(mutex_);
        threads_.insert(thread);
    }
    void remove(std::thread::id thread) OV_EXCLUDES(mutex_) {
        const MutexLock lock(mutex_);
        threads_.erase(threads_.find(thread));
    }
    bool has(std::thread::id thread) const OV_EXCLUDES(mutex_) {
        const MutexLock lock(mutex_);
        return threads_.count(thread) != 0;
    }

private:
    mutable Support::Mutex mutex_;
    std::multiset<std::thread::id> threads_ OV_GUARDED_BY(mutex_);
};

class FinalizingThread {
public:
    FinalizingThread() { FinalizingThreads::instance().add(std::this_thread::get_id()); }
    ~FinalizingThread() { FinalizingThreads::instance().remove(std::this_thread::get_id()); }
    FinalizingThread(const FinalizingThread&) = delete;
    FinalizingThread& operator=(const FinalizingThread&) = delete;
};

/// Whether the calling thread has to wait for the end of what the session cooks. Nobody waits for a
/// thread that is not within a cook itself: it can wait for all.
bool isToBeAwaited(const Session& session, bool isWithinACook) {
    const std::thread::id thread = session.cookingThread.load(std::memory_order_acquire);
    if (thread == std::thread::id() || !isWithinACook) {
        return thread != std::thread::id();
    }
    const std::thread::id own = std::this_thread::get_id();
    return thread != own && !FinalizingThreads::instance().has(thread) &&
           !WaitingRoom::instance().isWaitingFor(session, own);
}

}  // namespace

void Runtime::add(Client& client) {
    const MutexLock lock(mutex_);
    clients_.insert(&client);
}

void Runtime::remove(Client& client) {
    const MutexLock lock(mutex_);
    clients_.erase(&client);
}

std::vector<std::shared_ptr<InternedOp>> Runtime::clientOps() const {
    const MutexLock lock(mutex_);
    std::vector<std::shared_ptr<InternedOp>> ops;
    ops.reserve(clients_.size());
    for (const Client* const client : clients_) {
        ops.push_back(client->op());
    }
    return ops;
}

std::vector<std::shared_ptr<InternedOp>> Runtime::ops() const {
    return reachableOps(clientOps());
}

void Runtime::evict(std::string_view path) {
    const std::vector<std::shared_ptr<InternedOp>> reached = ops();
    dropWhatChanged(reached);
    dropLocation(reached, path);
}

void Runtime::finalize() {
    waitForCooks();
    dropAll(ops());
    Store::instance().closePages();
}

void Runtime::waitForCooks() const {
    const FinalizingThread marked;
    const bool isWithinACook = Statistics::instance().isCooking(std::this_thread::get_id());
    std::map<const Session*, std::uint64_t> cooking;
    const auto look = [&](auto use) {
        const MutexLock lock(mutex_);
        for (const Client* const client : clients_) {
            for (const Session* const session : client->sessions()) {
                use(*session, session->finishedCooks.load(std::memory_order_acquire));
            }
        }
    };
    look([&](const Session& session, std::uint64_t finished) { cooking[&session] = finished; });
    bool isWaiting = true;
    while (isWaiting) {
        isWaiting = false;
        look([&](const Session& session, std::uint64_t finished) {
            const auto since = cooking.find(&session);
            isWaiting |= since != cooking.end() && since->second == finished &&
                         isToBeAwaited(session, isWithinACook);
        });
        if (isWaiting) {
            std::this_thread::sleep_for(std::chrono::microseconds(200));
        }
    }
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
