// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Attributes/Values/Value.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace Sylvar3::internal::OvAttribute::Embedded {

class Shape;

/// Memory for many values that are made together and end together: those of one file, say.
///
/// Values lie in pages. Each page counts the references on its own values, and the block counts
/// the pages that have any: threads that read different pages write to different cache lines, and
/// the block's own count moves only when the first reference on a page comes or the last one goes.
/// A value of a block refers to values of the same block, and to those that the block holds. Blocks
/// that hold values of one another are ordered, each holding such of lower order alone: a round of
/// them would never end.
///
/// Filled by one thread; then, and what is filled already at any time, any thread may retain and
/// release.
class Block {
public:
    /// Born with one reference, the maker's. Its pages grow.
    Block() = default;

    /// With a first page and further pages of these sizes, in bytes.
    Block(std::size_t firstPage, std::size_t laterPages, std::uint64_t order)
        : order_(order), nextPageBytes_(firstPage), laterPageBytes_(laterPages) {}
    Block(const Block&) = delete;
    Block& operator=(const Block&) = delete;

    /// Room for a value of `bytes` with `before` bytes in front of it; throws `std::bad_alloc`.
    void* allocate(std::size_t before, std::size_t bytes, std::uint32_t& toOwner);

    /// Keeps a shape; takes the caller's reference.
    void hold(const Shape* shape);

    /// Keeps a value that lies elsewhere; takes the caller's reference, also when it throws
    /// `std::bad_alloc`.
    void hold(Value* owned);

    void retain() { count_.fetch_add(1, std::memory_order_relaxed); }

    /// The last reference ends the block with all its values.
    void release() noexcept {
        if (dropIsLast()) {
            end(*this);
        }
    }

    /// The page that is being filled, to tell whether two values share one.
    const Owner* currentPage() const { return page_; }

    /// The memory that the pages take so far.
    std::size_t pageBytes() const { return pageBytes_; }

    /// What is left of the page that is being filled.
    std::size_t bytesLeft() const { return static_cast<std::size_t>(end_ - free_); }

    /// 0 for a block that holds no values of others.
    std::uint64_t order() const { return order_; }

    /// Whether anybody but the maker has a reference.
    bool isShared() const { return count_.load(std::memory_order_relaxed) > 1; }

    /// The references on its values, as they are one after the other; while nobody fills it.
    std::int64_t references() const;

protected:
    virtual ~Block();

    /// When the last reference is gone, and all that it holds is still there.
    virtual void beforeEnd() noexcept {}

private:
    friend class Graveyard;

    bool dropIsLast() { return count_.fetch_sub(1, std::memory_order_acq_rel) == 1; }

    /// For a block that has lost its last reference. A loop, however long the chain of blocks that
    /// hold values of one another.
    static void end(Block& block) noexcept;

    void openPage(std::size_t atLeast);
    Owner* newPage(std::size_t bytes);

    std::atomic<std::int64_t> count_{1};
    const std::uint64_t order_ = 0;
    Owner* page_ = nullptr;
    char* free_ = nullptr;
    char* end_ = nullptr;
    std::size_t nextPageBytes_ = 512;
    std::size_t laterPageBytes_ = 0;  ///< 0: each page is twice the one before, up to a limit.
    std::size_t pageBytes_ = 0;
    std::vector<Owner*> pages_;
    std::vector<const Shape*> heldShapes_;
    std::vector<Value*> heldValues_;
    Block* nextDead_ = nullptr;  ///< The next in line, while a dead block waits for its end.
};

}  // namespace Sylvar3::internal::OvAttribute::Embedded
