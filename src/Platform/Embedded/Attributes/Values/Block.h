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
/// A value of a block refers to values of the same block alone.
///
/// Filled by one thread; then any thread may retain and release.
class Block {
public:
    /// Born with one reference, the maker's.
    Block() = default;
    Block(const Block&) = delete;
    Block& operator=(const Block&) = delete;

    /// Room for a value of `bytes` with `before` bytes in front of it; throws `std::bad_alloc`.
    void* allocate(std::size_t before, std::size_t bytes, std::uint32_t& toOwner);

    /// Keeps a shape; takes the caller's reference.
    void hold(const Shape* shape);

    void retain() { count_.fetch_add(1, std::memory_order_relaxed); }

    /// The last reference ends the block with all its values.
    void release() noexcept {
        if (count_.fetch_sub(1, std::memory_order_acq_rel) == 1) {
            delete this;
        }
    }

    /// The page that is being filled, to tell whether two values share one.
    const Owner* currentPage() const { return page_; }

    /// The memory that the pages take so far.
    std::size_t pageBytes() const { return pageBytes_; }

private:
    ~Block();

    void openPage(std::size_t atLeast);
    Owner* newPage(std::size_t bytes);

    std::atomic<std::int64_t> count_{1};
    Owner* page_ = nullptr;
    char* free_ = nullptr;
    char* end_ = nullptr;
    std::size_t nextPageBytes_ = 512;
    std::size_t pageBytes_ = 0;
    std::vector<Owner*> pages_;
    std::vector<const Shape*> heldShapes_;
};

}  // namespace Sylvar3::internal::OvAttribute::Embedded
