// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Runtime/Store.h"

#include "Platform/Support/OnceBuilt.h"

#include <algorithm>
#include <utility>

namespace Sylvar3::internal::OvSylvar::Embedded {

using Support::MutexLock;

namespace {

constexpr std::size_t kFirstPageBytes = std::size_t{4} * 1024;
constexpr std::size_t kLargestPageBytes = std::size_t{64} * 1024;

}  // namespace

Store& Store::instance() {
    static Support::OnceBuilt<Store> store;
    return store.get();
}

void Store::PageList::append(StorePage& page) {
    page.previous = last;
    page.next = nullptr;
    (last ? last->next : first) = &page;
    last = &page;
    ++size;
}

void Store::PageList::remove(StorePage& page) {
    (page.previous ? page.previous->next : first) = page.next;
    (page.next ? page.next->previous : last) = page.previous;
    --size;
}

void Store::add(Reader& reader) {
    const MutexLock lock(mutex_);
    readers_.push_back(&reader);
}

void Store::remove(Reader& reader) {
    StorePage* freed = nullptr;
    {
        const MutexLock lock(mutex_);
        readers_.erase(std::find(readers_.begin(), readers_.end(), &reader));
        close(reader);
        freed = settle();
    }
    release(freed);
}

StorePage& Store::beginLocation(Reader& reader, std::uint64_t order) {
    if (!reader.page || reader.page->order() < order) {
        openPage(reader, kFirstPageBytes);
    } else if (reader.page->isFull()) {
        openPage(reader, std::min(reader.nextPageBytes, kLargestPageBytes));
    }
    ++reader.page->writers;
    return *reader.page;
}

void Store::endLocation(Reader& reader, StorePage& page) {
    account(page);
    if (--page.writers != 0 || reader.page == &page) {
        return;
    }
    StorePage* freed = nullptr;
    {
        const MutexLock lock(mutex_);
        close(page);
        freed = settle();
    }
    release(freed);
}

void Store::openPage(Reader& reader, std::size_t bytes) {
    const std::uint64_t order = lastOrder_.fetch_add(1, std::memory_order_relaxed) + 1;
    auto* const page = new StorePage(bytes, order, detachedBytes_);
    StorePage* freed = nullptr;
    {
        const MutexLock lock(mutex_);
        close(reader);
        pages_.append(*page);
        freed = settle();
    }
    reader.page = page;
    reader.nextPageBytes = bytes * 2;
    release(freed);
}

void Store::close(Reader& reader) {
    StorePage* const page = std::exchange(reader.page, nullptr);
    if (page && page->writers == 0) {
        close(*page);
    }
}

void Store::close(StorePage& page) {
    page.isOpen = false;
    letGo(page);
}

void Store::account(StorePage& page) {
    const auto bytes = static_cast<std::int64_t>(page.pageBytes());
    const std::int64_t before = page.accountedBytes.load(std::memory_order_relaxed);
    if (bytes != before) {
        page.accountedBytes.store(bytes, std::memory_order_relaxed);
        bytes_.fetch_add(bytes - before, std::memory_order_relaxed);
        makeRoom();
    }
}

void Store::makeRoom() {
    if (!isOverBudget()) {
        return;
    }
    StorePage* freed = nullptr;
    {
        const MutexLock lock(mutex_);
        dropOldPages();
        if (isOverBudget()) {
            closeFreePages();
            dropOldPages();
        }
        freed = settle();
    }
    release(freed);
}

void Store::dropOldPages() {
    // Each page once with a second chance for those that were used, and once without.
    for (std::size_t looks = pages_.size * 2; looks != 0 && isOverBudget() && pages_.first;
         --looks) {
        StorePage& page = *pages_.first;
        pages_.remove(page);
        pages_.append(page);
        if (!page.isOpen && !page.isUsed.exchange(false, std::memory_order_relaxed)) {
            dropPage(page);
        }
    }
}

void Store::closePages() {
    StorePage* freed = nullptr;
    {
        const MutexLock lock(mutex_);
        closeFreePages();
        freed = settle();
    }
    release(freed);
}

void Store::closeFreePages() {
    for (Reader* const reader : readers_) {
        if (reader->tryTake(age_)) {
            close(*reader);
            reader->giveBack();
        }
    }
}

void Store::dropPage(StorePage& page) {
    for (Node* node = page.nodes; node; node = node->nextInPage) {
        if (node->slot) {
            unlink(*node->slot);
        }
    }
}

void Store::drop(const std::vector<Slot*>& slots) {
    dropFound([&]() -> const std::vector<Slot*>& { return slots; });
}

void Store::drop(Slot& slot) noexcept {
    StorePage* freed = nullptr;
    {
        const MutexLock lock(mutex_);
        unlink(slot);
        freed = settle();
    }
    release(freed);
}

StorePage* Store::dropLocked(const std::vector<Slot*>& slots) {
    for (Slot* const slot : slots) {
        unlink(*slot);
    }
    return settle();
}

void Store::unlink(Slot& slot, std::uintptr_t next) {
    std::uintptr_t value = slot.load(std::memory_order_acquire);
    do {
        if (value == SlotValue::kGone) {
            return;  // Of a node that was dropped just before.
        }
    } while (!slot.compare_exchange_weak(value, next, std::memory_order_acq_rel));
    hasDropped_ = true;
    if (Node* const node = SlotValue::nodeOf(value)) {
        kill(*node);
    }
}

void Store::kill(Node& top) {
    top.nextDead = nullptr;
    for (Node* dead = &top; dead;) {
        Node& node = *dead;
        dead = node.nextDead;
        for (std::uint32_t i = 0; i < node.names->count; ++i) {
            const std::uintptr_t value =
                node.slots[i].exchange(SlotValue::kGone, std::memory_order_acq_rel);
            if (Node* const child = SlotValue::nodeOf(value)) {
                child->nextDead = dead;
                dead = child;
            }
        }
        node.slot = nullptr;
        ++evictions_[node.opType];
        letGo(*node.page);
    }
}

void Store::letGo(StorePage& page) {
    if (page.live.fetch_sub(1, std::memory_order_acq_rel) != 1) {
        return;
    }
    pages_.remove(page);
    bytes_.fetch_sub(page.accountedBytes.load(std::memory_order_relaxed),
                     std::memory_order_relaxed);
    page.isDetached = true;
    detachedBytes_.fetch_add(page.accountedBytes.load(std::memory_order_relaxed),
                             std::memory_order_relaxed);
    page.next = retired_;
    page.retiredAt = age_.load(std::memory_order_relaxed);
    retired_ = &page;
    hasDropped_ = true;
}

StorePage* Store::settle() {
    if (hasDropped_) {
        age_.fetch_add(1, std::memory_order_seq_cst);
        hasDropped_ = false;
    }
    if (!retired_) {
        return nullptr;
    }
    std::uint64_t oldestLook = Reader::kNoAge;
    for (const Reader* const reader : readers_) {
        oldestLook = std::min(oldestLook, reader->looksSince());
    }
    StorePage* freed = nullptr;
    for (StorePage** link = &retired_; *link;) {
        StorePage* const page = *link;
        if (page->retiredAt < oldestLook) {
            *link = page->next;
            page->next = freed;
            freed = page;
        } else {
            link = &page->next;
        }
    }
    return freed;
}

void Store::release(StorePage* chain) {
    while (chain) {
        StorePage* const page = chain;
        chain = page->next;
        page->release();
    }
}

StoreTotals Store::totals() const {
    const MutexLock lock(mutex_);
    StoreTotals totals;
    totals.bytes = bytes_.load(std::memory_order_relaxed);
    totals.pinnedBytes = detachedBytes_.load(std::memory_order_relaxed);
    totals.evictions = evictions_;
    for (const StorePage* page = pages_.first; page; page = page->next) {
        totals.entries += page->live.load(std::memory_order_relaxed) - (page->isOpen ? 1 : 0);
        const bool isPinned = page->isOpen ? page->isShared() : page->isHeld();
        totals.pinnedBytes += isPinned ? page->accountedBytes.load(std::memory_order_relaxed) : 0;
    }
    return totals;
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
