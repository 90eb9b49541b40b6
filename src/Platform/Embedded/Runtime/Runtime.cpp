// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Runtime/Runtime.h"

#include "Platform/Embedded/Runtime/Client.h"
#include "Platform/Embedded/Runtime/Interner.h"
#include "Platform/Embedded/Runtime/Node.h"
#include "Platform/Embedded/Runtime/Store.h"
#include "Platform/Embedded/Runtime/WaitingRoom.h"
#include "Platform/Support/OnceBuilt.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <map>
#include <string>
#include <thread>
#include <unordered_map>
#include <unordered_set>
#include <utility>

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

/// Whether the calling thread has to wait for the end of what the session cooks.
bool isToBeAwaited(const Session& session) {
    const std::thread::id thread = session.cookingThread.load(std::memory_order_acquire);
    const std::thread::id own = std::this_thread::get_id();
    return thread != std::thread::id() && thread != own &&
           !FinalizingThreads::instance().has(thread) &&
           !WaitingRoom::instance().isWaitingFor(session, own);
}

/// The slot of a location in what an op has cooked; null when the one above it is not known. Under
/// the store's lock.
Slot* slotOf(InternedOp& op, std::string_view path, const Node*& node) {
    Slot* slot = &op.top;
    node = SlotValue::nodeOf(slot->load(std::memory_order_acquire));
    for (std::size_t begin = 1; begin <= path.size(); ++begin) {
        if (!node) {
            return nullptr;
        }
        const std::size_t end = std::min(path.find('/', begin), path.size());
        const std::int64_t place = node->names->find(path.substr(begin, end - begin), 0);
        if (place < 0) {
            return nullptr;
        }
        slot = &node->slots[place];
        node = SlotValue::nodeOf(slot->load(std::memory_order_acquire));
        begin = end;
    }
    return slot;
}

/// The slots of a location in what some ops have cooked, and those of what was read elsewhere to
/// make it.
class Dependents {
public:
    explicit Dependents(const std::vector<std::shared_ptr<InternedOp>>& ops) {
        for (const std::shared_ptr<InternedOp>& op : ops) {
            ops_.insert(op.get());
        }
    }

    std::vector<Slot*> find(std::string_view path) {
        for (InternedOp* const op : ops_) {
            add(*op, path);
        }
        while (!pending_.empty()) {
            const ForeignRead read = pending_.back();
            pending_.pop_back();
            if (ops_.count(read.op) != 0) {
                add(*read.op, read.pathView());
            }
        }
        return std::move(slots_);
    }

private:
    void add(InternedOp& op, std::string_view path) {
        const Node* node = nullptr;
        Slot* const slot = slotOf(op, path, node);
        if (slot && known_.insert(slot).second) {
            slots_.push_back(slot);
            if (node) {
                pending_.insert(pending_.end(), node->reads, node->reads + node->readCount);
            }
        }
    }

    std::unordered_set<InternedOp*> ops_;
    std::unordered_set<Slot*> known_;
    std::vector<Slot*> slots_;
    std::vector<ForeignRead> pending_;
};

/// Those of the ops that found something else outside than they had read.
std::vector<std::shared_ptr<InternedOp>> refreshed(
    const std::vector<std::shared_ptr<InternedOp>>& ops) {
    std::vector<std::shared_ptr<InternedOp>> changed;
    std::copy_if(ops.begin(), ops.end(), std::back_inserter(changed), [](const auto& op) {
        return op->body().refresh();
    });
    return changed;
}

/// These ops, and all ops of the process that read from them, by way of others too.
std::vector<std::shared_ptr<InternedOp>> withAllThatReadFrom(
    std::vector<std::shared_ptr<InternedOp>> found) {
    std::unordered_map<const InternedOp*, std::vector<std::shared_ptr<InternedOp>>> readers;
    for (const std::shared_ptr<InternedOp>& op : Interner::instance().all()) {
        std::vector<std::shared_ptr<InternedOp>> sources = op->inputs();
        op->body().collectOwnOps(sources);
        for (const std::shared_ptr<InternedOp>& source : sources) {
            readers[source.get()].push_back(op);
        }
    }
    std::unordered_set<const InternedOp*> known;
    for (const std::shared_ptr<InternedOp>& op : found) {
        known.insert(op.get());
    }
    for (std::size_t i = 0; i < found.size(); ++i) {
        for (const std::shared_ptr<InternedOp>& reader : readers[found[i].get()]) {
            if (known.insert(reader.get()).second) {
                found.push_back(reader);
            }
        }
    }
    return found;
}

void dropAll(const std::vector<std::shared_ptr<InternedOp>>& ops) {
    std::vector<Slot*> tops;
    for (const std::shared_ptr<InternedOp>& op : ops) {
        tops.push_back(&op->top);
    }
    Store::instance().drop(tops);
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
    std::vector<std::shared_ptr<InternedOp>> changed = refreshed(reached);
    if (!changed.empty()) {
        // Other ops may read the same files.
        const std::vector<std::shared_ptr<InternedOp>> others =
            refreshed(Interner::instance().all());
        changed.insert(changed.end(), others.begin(), others.end());
        dropAll(withAllThatReadFrom(std::move(changed)));
    }
    if (path.size() > 1 && path.front() == '/') {
        Dependents dependents(reached);
        Store::instance().dropFound([&] { return dependents.find(path); });
    }
}

void Runtime::finalize() {
    waitForCooks();
    dropAll(ops());
}

void Runtime::waitForCooks() const {
    const FinalizingThread marked;
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
            isWaiting |=
                since != cooking.end() && since->second == finished && isToBeAwaited(session);
        });
        if (isWaiting) {
            std::this_thread::sleep_for(std::chrono::microseconds(200));
        }
    }
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
