// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Attributes/Values/Block.h"
#include "Platform/Embedded/Attributes/Values/Value.h"
#include "Platform/Embedded/Runtime/ChildNames.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace Sylvar3::internal::OvAttribute::Embedded {
struct GroupValue;
}

namespace Sylvar3::internal::OvSylvar::Embedded {

struct Node;

/// Memory of the store in which one session after the other puts the locations that it cooks, and
/// which is dropped as a whole. Large values have pieces of their own, which belong to it.
class StorePage final : public OvAttribute::Embedded::Block {
public:
    using Value = OvAttribute::Embedded::Value;

    /// With room for `bytes`; pages are ordered as they were opened. `detachedBytes` gives up what
    /// it was told of this page when the page ends.
    StorePage(std::size_t bytes, std::uint64_t order, std::atomic<std::int64_t>& detachedBytes)
        : Block(bytes, kOverflowBytes, order), firstBytes_(bytes), detachedBytes_(detachedBytes) {}

    /// The order of the page in which a value lies; 0 when it lies elsewhere.
    static std::uint64_t orderOf(const Value& value) {
        const Block* const block = OvAttribute::Embedded::ownerOf(value).block;
        return block ? block->order() : 0;
    }

    /// The least order of a page that can keep a value.
    std::uint64_t orderToKeep(const Value& value) const;

    /// Higher than that of any page.
    static constexpr std::uint64_t kNewOrder = ~std::uint64_t{0};

    /// Whether the next location had better go to another page. One in which nothing lies yet has
    /// no memory either.
    bool isFull() const {
        return pageBytes() != 0 && (bytesLeft() < kFullWhenLeft || pageBytes() > firstBytes_);
    }

    /// Keeps a value that a location of this page refers to, and that its order allows it to keep;
    /// returns it. Throws `std::bad_alloc`.
    Value* keep(Value& value);
    const OvAttribute::Embedded::Shape& keep(const OvAttribute::Embedded::Shape& shape);

    /// @name Values that very many locations have, once for each page
    /// @{
    Value* existsValue();
    Value* noChildrenValue();
    OvAttribute::Embedded::GroupValue* noAttributesValue();
    const ChildNames* noChildNames();
    /// @}

    /// Marks it as used of late, for the store to see; written once between two looks.
    void touch() {
        if (!isUsed.load(std::memory_order_relaxed)) {
            isUsed.store(true, std::memory_order_relaxed);
        }
    }

    /// Whether anybody holds a value of it, other pages not counted; once it is closed.
    bool isHeld() const { return references() > keptByPages_.load(std::memory_order_relaxed); }

    std::atomic<bool> isUsed{true};

    /// The nodes of this page that are in a slot, and one while it is open.
    std::atomic<std::int64_t> live{1};

    /// What the store knows of its size; written by its session alone.
    std::atomic<std::int64_t> accountedBytes{0};

    std::int32_t writers = 0;  ///< Locations that are being made in it; its session's.

    Node* nodes = nullptr;  ///< All of them, by `nextInPage`; the session's while it is open.

    /// @name Under the store's lock
    /// @{
    bool isOpen = true;
    bool isDetached = false;
    StorePage* previous = nullptr;
    StorePage* next = nullptr;  ///< In the list of pages, then in that of retired ones.
    std::uint64_t retiredAt = 0;
    /// @}

private:
    static constexpr std::size_t kOverflowBytes = 4096;
    static constexpr std::size_t kFullWhenLeft = 768;
    static constexpr std::size_t kRemembered = 8;

    ~StorePage() override;
    void beforeEnd() noexcept override;
    void holdOf(Value& value, StorePage* page);

    bool isKept(const void* thing) const;
    void remember(const void* thing) { kept_[nextKept_++ % kRemembered] = thing; }

    const std::size_t firstBytes_;
    std::atomic<std::int64_t>& detachedBytes_;
    std::array<const void*, kRemembered> kept_{};  ///< Some of what is kept already.
    std::size_t nextKept_ = 0;
    std::vector<StorePage*> keptPages_;         ///< One for each value of a page that it keeps.
    std::atomic<std::int64_t> keptByPages_{0};  ///< How many values of this one pages keep.
    Value* exists_ = nullptr;
    Value* noChildren_ = nullptr;
    OvAttribute::Embedded::GroupValue* noAttributes_ = nullptr;
    const ChildNames* noNames_ = nullptr;
};

}  // namespace Sylvar3::internal::OvSylvar::Embedded
