// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Attributes/Values/Shape.h"

#include "Platform/Embedded/Attributes/Values/Hashing.h"
#include "Platform/Embedded/Attributes/Values/NameIndex.h"
#include "Platform/Embedded/Attributes/Values/NameList.h"
#include "Platform/Embedded/Attributes/Values/ShapeTable.h"
#include "Platform/Embedded/Attributes/Values/TextRecords.h"

#include <algorithm>
#include <new>

namespace Sylvar3::internal::OvAttribute::Embedded {

namespace {

constexpr std::int64_t kLongestSharedList = 64;

}  // namespace

const Shape* Shape::of(const NameList& names) {
    const OvAttributeHash digest = digestOf(names.records().data(), names.records().size());
    return names.size() <= kLongestSharedList ? ShapeTable::instance().find(names, digest)
                                              : make(names, digest);
}

Shape* Shape::make(const NameList& names, const OvAttributeHash& digest) {
    const auto count = static_cast<std::size_t>(names.size());
    const std::size_t words = count * 2 + NameIndex::slotsFor(count);
    return new (::operator new(sizeof(Shape) + words * sizeof(std::uint32_t) +
                               names.records().size())) Shape(names, digest);
}

Shape::Shape(const NameList& names, const OvAttributeHash& digest)
    : digest_(digest),
      size_(static_cast<std::uint32_t>(names.size())),
      slotCount_(static_cast<std::uint32_t>(NameIndex::slotsFor(size_))),
      recordBytes_(static_cast<std::uint32_t>(names.records().size())) {
    auto* const table = reinterpret_cast<std::uint32_t*>(this + 1);
    std::copy_n(names.hashes(), size_, table);
    std::copy_n(names.offsets(), size_, table + size_);
    std::uint32_t* const slotsBegin = table + std::size_t{size_} * 2;
    std::fill_n(slotsBegin, slotCount_, 0U);
    for (std::uint32_t place = 0; slotCount_ != 0 && place < size_; ++place) {
        NameIndex::insert(slotsBegin, slotCount_, hashes()[place], place);
    }
    char* const recordsBegin = reinterpret_cast<char*>(slotsBegin + slotCount_);
    std::copy_n(names.records().data(), recordBytes_, recordsBegin);
    records_ = recordsBegin;
}

void Shape::release() const noexcept {
    if (inTable_) {
        ShapeTable::instance().release(*this);
    } else if (count_.fetch_sub(1, std::memory_order_acq_rel) == 1) {
        destroy();
    }
}

void Shape::destroy() const noexcept {
    this->~Shape();
    ::operator delete(const_cast<Shape*>(this));
}

std::string_view Shape::name(std::int64_t index) const {
    return TextRecord::at(records_ + offsets()[index]);
}

std::int64_t Shape::find(std::string_view name) const {
    const std::uint32_t hash = nameHashOf(name);
    const auto matches = [&](std::uint32_t place) {
        return hashes()[place] == hash && this->name(place) == name;
    };
    if (slotCount_ != 0) {
        return NameIndex::find(slots(), slotCount_, hash, matches);
    }
    for (std::uint32_t place = 0; place < size_; ++place) {
        if (matches(place)) {
            return place;
        }
    }
    return -1;
}

}  // namespace Sylvar3::internal::OvAttribute::Embedded
