// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Attributes/Values/GroupValue.h"

#include "Platform/Embedded/Attributes/Values/Block.h"
#include "Platform/Embedded/Attributes/Values/Lifetime.h"

#include <algorithm>
#include <new>

namespace Sylvar3::internal::OvAttribute::Embedded {

namespace {

std::size_t bytesOf(const Shape& shape) {
    return sizeof(GroupValue) + static_cast<std::size_t>(shape.size()) * sizeof(Value*);
}

GroupValue* writeHeader(void* memory, std::uint32_t toOwner, const Shape& shape, bool inherits) {
    auto* const group = new (memory) GroupValue{};
    group->kind = OV_ATTRIBUTE_GROUP;
    group->flags = inherits ? kGroupInherit : 0;
    group->toOwner = toOwner;
    group->shape = &shape;
    return group;
}

}  // namespace

Value* GroupValue::find(std::string_view dottedName) const {
    const GroupValue* group = this;
    while (true) {
        const std::size_t dot = dottedName.find('.');
        const std::int64_t place = group->shape->find(dottedName.substr(0, dot));
        Value* const child = place < 0 ? nullptr : (*group)[place];
        if (dot == std::string_view::npos) {
            return child;
        }
        group = asGroup(child);
        if (!group) {
            return nullptr;
        }
        dottedName.remove_prefix(dot + 1);
    }
}

GroupValue* newGroupValue(const Shape& shape, Value* const* children, bool inherits) {
    GroupValue* const group = newGroupValueTaking(shape, children, inherits);
    for (std::int64_t i = 0; i < shape.size(); ++i) {
        retained(children[i]);
    }
    return group;
}

GroupValue* newGroupValueTaking(const Shape& shape, Value* const* children, bool inherits) {
    std::uint32_t toOwner = 0;
    void* const memory = allocateStandalone(0, bytesOf(shape), toOwner);
    GroupValue* const group = writeHeader(memory, toOwner, *shape.retain(), inherits);
    std::copy_n(children, shape.size(), group->begin());
    return group;
}

GroupValue* newGroupValue(Block& block, const Shape& shape, bool inherits) {
    std::uint32_t toOwner = 0;
    void* const memory = block.allocate(0, bytesOf(shape), toOwner);
    return writeHeader(memory, toOwner, shape, inherits);
}

}  // namespace Sylvar3::internal::OvAttribute::Embedded
