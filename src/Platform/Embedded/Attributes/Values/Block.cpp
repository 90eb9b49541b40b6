// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Attributes/Values/Block.h"

#include "Platform/Embedded/Attributes/Values/Lifetime.h"
#include "Platform/Embedded/Attributes/Values/Shape.h"

#include <algorithm>
#include <new>

namespace Sylvar3::internal::OvAttribute::Embedded {

namespace {

constexpr std::size_t kLargestPage = std::size_t{64} * 1024;

std::size_t roundedUp(std::size_t bytes) {
    return (bytes + 7) & ~std::size_t{7};
}

std::uint32_t distance(const Owner* owner, const char* value) {
    const std::ptrdiff_t bytes = value - reinterpret_cast<const char*>(owner);
    return static_cast<std::uint32_t>(bytes / 8);
}

}  // namespace

void* Block::allocate(std::size_t before, std::size_t bytes, std::uint32_t& toOwner) {
    const std::size_t wanted = roundedUp(before + bytes);
    if (wanted > kLargestPage / 4 && wanted > static_cast<std::size_t>(end_ - free_)) {
        Owner* const own = newPage(sizeof(Owner) + wanted);
        char* const value = reinterpret_cast<char*>(own + 1) + before;
        toOwner = distance(own, value);
        return value;
    }
    if (wanted > static_cast<std::size_t>(end_ - free_)) {
        openPage(wanted);
    }
    char* const value = free_ + before;
    free_ += wanted;
    toOwner = distance(page_, value);
    return value;
}

void Block::openPage(std::size_t atLeast) {
    const std::size_t bytes = std::max(nextPageBytes_, sizeof(Owner) + atLeast);
    page_ = newPage(bytes);
    free_ = reinterpret_cast<char*>(page_ + 1);
    end_ = reinterpret_cast<char*>(page_) + bytes;
    nextPageBytes_ =
        laterPageBytes_ != 0 ? laterPageBytes_ : std::min(nextPageBytes_ * 2, kLargestPage);
}

Owner* Block::newPage(std::size_t bytes) {
    pages_.reserve(pages_.size() < pages_.capacity() ? 0 : pages_.size() * 2 + 4);
    Owner* const page = new (::operator new(bytes)) Owner{{0}, {this}};
    pages_.push_back(page);
    pageBytes_ += bytes;
    return page;
}

void Block::hold(const Shape* shape) {
    try {
        heldShapes_.push_back(shape);
    } catch (...) {
        shape->release();
        throw;
    }
}

void Block::hold(Value* owned) {
    try {
        heldValues_.push_back(owned);
    } catch (...) {
        OvAttribute::Embedded::release(*owned);
        throw;
    }
}

std::int64_t Block::references() const {
    std::int64_t sum = 0;
    for (const Owner* const page : pages_) {
        sum += page->count.load(std::memory_order_relaxed);
    }
    return sum;
}

Block::~Block() {
    for (const Shape* const shape : heldShapes_) {
        shape->release();
    }
    for (Owner* const page : pages_) {
        ::operator delete(page);
    }
}

}  // namespace Sylvar3::internal::OvAttribute::Embedded
