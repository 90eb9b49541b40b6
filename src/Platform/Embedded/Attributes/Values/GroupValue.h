// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Attributes/Values/Shape.h"
#include "Platform/Embedded/Attributes/Values/Value.h"

#include <cstdint>
#include <string_view>

namespace Sylvar3::internal::OvAttribute::Embedded {

class Block;

/// A group: this header, then a pointer to each child, in the order of the shape's names. A
/// standalone group holds a reference on its shape and on each child; the groups of a block leave
/// that to their block.
struct GroupValue : Value {
    const Shape* shape;
    HashSlot hash;

    std::int64_t size() const { return shape->size(); }
    bool inherits() const { return (flags & kGroupInherit) != 0; }

    Value* const* begin() const { return reinterpret_cast<Value* const*>(this + 1); }
    Value* const* end() const { return begin() + size(); }
    Value** begin() { return reinterpret_cast<Value**>(this + 1); }
    Value* operator[](std::int64_t index) const { return begin()[index]; }

    /// The child of that name, a dot stepping into the named child group; null when not there.
    Value* find(std::string_view dottedName) const;
};

inline GroupValue* asGroup(Value* value) {
    return value && value->kind == OV_ATTRIBUTE_GROUP ? static_cast<GroupValue*>(value) : nullptr;
}

/// A new standalone group with one reference. `children` has one entry for each name, which may be
/// null; they and the shape are retained. Throws `std::bad_alloc`.
GroupValue* newGroupValue(const Shape& shape, Value* const* children, bool inherits);

/// The same, but the caller's references on the children go over to it, unless it throws.
GroupValue* newGroupValueTaking(const Shape& shape, Value* const* children, bool inherits);

/// A new group in a block, whose children are already held by the block or lie in it, as does its
/// shape. Its children are still to be written, before anybody else sees it.
GroupValue* newGroupValue(Block& block, const Shape& shape, bool inherits);

}  // namespace Sylvar3::internal::OvAttribute::Embedded
