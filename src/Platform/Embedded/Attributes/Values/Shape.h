// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/suites/AttributeSuite.h>

#include <atomic>
#include <cstdint>
#include <string_view>

namespace Sylvar3::internal::OvAttribute::Embedded {

class NameList;

/// The names of a group, in order, and how to find one. Groups with the same names share one shape
/// across the process, as long as the names are few; long lists rarely have an equal.
///
/// Immutable, with an atomic count of its own; one allocation. Any thread.
class Shape {
public:
    /// The shape of these names, with one reference for the caller. Throws `std::bad_alloc`.
    static const Shape* of(const NameList& names);

    const Shape* retain() const {
        count_.fetch_add(1, std::memory_order_relaxed);
        return this;
    }
    void release() const noexcept;

    std::int64_t size() const { return size_; }

    /// Ends in a NUL.
    std::string_view name(std::int64_t index) const;

    /// The place of a name, or -1.
    std::int64_t find(std::string_view name) const;

    /// The digest of all names in order, with their lengths.
    const OvAttributeHash& digest() const { return digest_; }

    /// The names as `TextRecord`s.
    std::string_view records() const { return {records_, recordBytes_}; }

private:
    friend class ShapeTable;

    Shape(const NameList& names, const OvAttributeHash& digest);
    ~Shape() = default;
    static Shape* make(const NameList& names, const OvAttributeHash& digest);
    void destroy() const noexcept;

    const std::uint32_t* hashes() const { return reinterpret_cast<const std::uint32_t*>(this + 1); }
    const std::uint32_t* offsets() const { return hashes() + size_; }
    const std::uint32_t* slots() const { return offsets() + size_; }

    // Behind this lie the hashes, the offsets into the records, the slots of a `NameIndex`, and the
    // records.
    mutable std::atomic<std::int64_t> count_{1};
    OvAttributeHash digest_;
    std::uint32_t size_;
    std::uint32_t slotCount_;
    std::uint32_t recordBytes_;
    bool inTable_ = false;  ///< Set before anybody else sees the shape.
    const char* records_;
};

}  // namespace Sylvar3::internal::OvAttribute::Embedded
