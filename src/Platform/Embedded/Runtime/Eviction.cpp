// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Runtime/Eviction.h"

#include "Platform/Embedded/Runtime/Interner.h"
#include "Platform/Embedded/Runtime/Node.h"
#include "Platform/Embedded/Runtime/Store.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace Sylvar3::internal::OvSylvar::Embedded {

namespace {

using Ops = std::vector<std::shared_ptr<InternedOp>>;

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
/// make it; each op's behind those of the ops that it reads from. So nobody can cook something new
/// from something old between two of them.
class Dependents {
public:
    /// The ops in that order.
    explicit Dependents(const Ops& ops) : ops_(ops) {
        for (std::size_t rank = 0; rank < ops.size(); ++rank) {
            ranks_.emplace(ops[rank].get(), rank);
        }
    }

    std::vector<Slot*> find(std::string_view path) {
        for (std::size_t rank = 0; rank < ops_.size(); ++rank) {
            add(rank, path);
        }
        while (!pending_.empty()) {
            const ForeignRead read = pending_.back();
            pending_.pop_back();
            const auto rank = ranks_.find(read.op);
            if (rank != ranks_.end()) {
                add(rank->second, read.pathView());
            }
        }
        std::stable_sort(found_.begin(), found_.end(), [](const Found& a, const Found& b) {
            return a.first < b.first;
        });
        std::vector<Slot*> slots;
        for (const Found& found : found_) {
            slots.push_back(found.second);
        }
        return slots;
    }

private:
    using Found = std::pair<std::size_t, Slot*>;

    void add(std::size_t rank, std::string_view path) {
        const Node* node = nullptr;
        Slot* const slot = slotOf(*ops_[rank], path, node);
        if (slot && known_.insert(slot).second) {
            found_.emplace_back(rank, slot);
            if (node) {
                pending_.insert(pending_.end(), node->reads, node->reads + node->readCount);
            }
        }
    }

    const Ops& ops_;
    std::unordered_map<const InternedOp*, std::size_t> ranks_;
    std::unordered_set<Slot*> known_;
    std::vector<Found> found_;
    std::vector<ForeignRead> pending_;
};

/// Those of the ops that have read something that is another now.
Ops changedOf(const Ops& ops) {
    Ops changed;
    std::copy_if(ops.begin(), ops.end(), std::back_inserter(changed), [](const auto& op) {
        return op->body().hasChanged();
    });
    return changed;
}

/// These ops, and all ops of the process that read from them, by way of others too; in order.
Ops withAllThatReadFrom(Ops found) {
    std::unordered_map<const InternedOp*, Ops> readers;
    for (const std::shared_ptr<InternedOp>& op : Interner::instance().all()) {
        Ops sources = op->inputs();
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
    Ops ordered = reachableOps(std::move(found));
    const auto isOther = [&](const auto& op) { return known.count(op.get()) == 0; };
    ordered.erase(std::remove_if(ordered.begin(), ordered.end(), isOther), ordered.end());
    return ordered;
}

std::vector<Slot*> topsOf(const Ops& ops) {
    std::vector<Slot*> tops;
    for (const std::shared_ptr<InternedOp>& op : ops) {
        tops.push_back(&op->top);
    }
    return tops;
}

}  // namespace

void dropLocation(const Ops& ops, std::string_view path) {
    if (path.size() > 1 && path.front() == '/') {
        Dependents dependents(ops);
        Store::instance().dropFound([&] { return dependents.find(path); });
    }
}

void dropAll(const Ops& ops) {
    Store::instance().drop(topsOf(ops));
}

void dropWhatChanged(const Ops& ops) {
    if (changedOf(ops).empty()) {
        return;
    }
    // Other ops may read the same files.
    const Ops changed = changedOf(Interner::instance().all());
    const Ops affected = withAllThatReadFrom(changed);
    std::vector<std::shared_ptr<const void>> forgotten(changed.size());
    Store::instance().dropAround(topsOf(affected), [&] {
        std::transform(changed.begin(), changed.end(), forgotten.begin(), [](const auto& op) {
            return op->body().forget();
        });
    });
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
