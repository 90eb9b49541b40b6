// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Runtime/Node.h"
#include "Platform/Embedded/Runtime/OpTypeTable.h"
#include "Platform/Embedded/Runtime/Reader.h"
#include "Platform/Embedded/Runtime/Slot.h"
#include "Platform/Embedded/Runtime/StorePage.h"
#include "Platform/Support/Mutex.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// What the store holds, in bytes and in numbers.
struct StoreTotals {
    std::int64_t entries = 0;      ///< Locations that are there.
    std::int64_t bytes = 0;        ///< Of the pages of the store.
    std::int64_t pinnedBytes = 0;  ///< Of pages of which somebody holds a value, dropped ones too.
    std::array<std::uint64_t, kMostOpTypes> evictions{};  ///< By op type.
};

/// All that was cooked by all runtimes of the process: pages of nodes, which hang in the slots of
/// the ops that cooked them.
///
/// Nodes are found without a lock (`Reader`) and dropped under one. When the pages pass the budget,
/// those that nobody has used of late are dropped as a whole, with what hangs below their nodes.
///
/// Any thread may call anything.
class Store {
public:
    static Store& instance();

    Store() = default;
    Store(const Store&) = delete;
    Store& operator=(const Store&) = delete;

    void add(Reader& reader) OV_EXCLUDES(mutex_);

    /// Closes the reader's page too.
    void remove(Reader& reader) OV_EXCLUDES(mutex_);

    /// Rises with every drop.
    const std::atomic<std::uint64_t>& age() const { return age_; }

    /// The page for the reader's next location, a new one when the last one is full, or was opened
    /// before the page of that order; it stays open until `endLocation`, however many locations are
    /// begun and ended meanwhile. Throws `std::bad_alloc`.
    StorePage& beginLocation(Reader& reader, std::uint64_t order) OV_EXCLUDES(mutex_);

    /// Takes what was added to the page into account, and drops what passes the budget.
    void endLocation(Reader& reader, StorePage& page) OV_EXCLUDES(mutex_);

    /// Drops what hangs in these slots, one after the other: they are unknown afterwards. A cook
    /// under way is not kept.
    void drop(const std::vector<Slot*>& slots) OV_EXCLUDES(mutex_);
    void drop(Slot& slot) noexcept OV_EXCLUDES(mutex_);

    /// Runs `find` under the lock, in which nodes stay where they are, and drops the slots that it
    /// returns.
    template <class Find>
    void dropFound(Find find) OV_EXCLUDES(mutex_) {
        StorePage* freed = nullptr;
        {
            const Support::MutexLock lock(mutex_);
            freed = dropLocked(find());
        }
        release(freed);
    }

    /// Drops what hangs in these slots of ops and runs `change`, before anybody cooks anything of
    /// them again.
    template <class Change>
    void dropAround(const std::vector<Slot*>& tops, Change change) OV_EXCLUDES(mutex_) {
        StorePage* freed = nullptr;
        {
            const Support::MutexLock lock(mutex_);
            for (Slot* const top : tops) {
                unlink(*top, SlotValue::kGone);
            }
            change();
            for (Slot* const top : tops) {
                top->store(SlotValue::kUnknown, std::memory_order_release);
            }
            freed = settle();
        }
        release(freed);
    }

    /// Closes the pages of readers that are free: what they keep can go.
    void closePages() OV_EXCLUDES(mutex_);

    /// The budget for what could be dropped, in bytes; unlimited at first.
    void setBudget(std::int64_t bytes) { budget_.store(bytes, std::memory_order_relaxed); }
    bool hasBudget() const { return budget_.load(std::memory_order_relaxed) != kUnlimited; }
    static constexpr std::int64_t kUnlimited = std::numeric_limits<std::int64_t>::max();

    StoreTotals totals() const OV_EXCLUDES(mutex_);

private:
    /// Pages in the order in which they are looked at when room is needed.
    struct PageList {
        StorePage* first = nullptr;
        StorePage* last = nullptr;
        std::size_t size = 0;

        void append(StorePage& page);
        void remove(StorePage& page);
    };

    void openPage(Reader& reader, std::size_t bytes) OV_EXCLUDES(mutex_);
    void close(Reader& reader) OV_REQUIRES(mutex_);
    void close(StorePage& page) OV_REQUIRES(mutex_);
    void account(StorePage& page) OV_EXCLUDES(mutex_);
    bool isOverBudget() const {
        return bytes_.load(std::memory_order_relaxed) > budget_.load(std::memory_order_relaxed);
    }
    void makeRoom() OV_EXCLUDES(mutex_);
    void dropOldPages() OV_REQUIRES(mutex_);
    void closeFreePages() OV_REQUIRES(mutex_);
    void dropPage(StorePage& page) OV_REQUIRES(mutex_);
    StorePage* dropLocked(const std::vector<Slot*>& slots) OV_REQUIRES(mutex_);
    void unlink(Slot& slot, std::uintptr_t next = SlotValue::kUnknown) OV_REQUIRES(mutex_);
    void kill(Node& top) OV_REQUIRES(mutex_);
    void letGo(StorePage& page) OV_REQUIRES(mutex_);

    /// Makes what was dropped so far a thing of the past, and returns the chain of pages that
    /// nobody looks at any more, for `release` outside the lock.
    StorePage* settle() OV_REQUIRES(mutex_);
    static void release(StorePage* chain);

    mutable Support::Mutex mutex_;
    std::atomic<std::uint64_t> age_{Reader::kFirstAge};
    std::atomic<std::int64_t> bytes_{0};
    std::atomic<std::int64_t> detachedBytes_{0};
    std::atomic<std::int64_t> budget_{kUnlimited};
    std::vector<Reader*> readers_ OV_GUARDED_BY(mutex_);
    PageList pages_ OV_GUARDED_BY(mutex_);
    StorePage* retired_ OV_GUARDED_BY(mutex_) = nullptr;
    bool hasDropped_ OV_GUARDED_BY(mutex_) = false;
    std::atomic<std::uint64_t> lastOrder_{0};
    std::array<std::uint64_t, kMostOpTypes> evictions_ OV_GUARDED_BY(mutex_){};
};

}  // namespace Sylvar3::internal::OvSylvar::Embedded
