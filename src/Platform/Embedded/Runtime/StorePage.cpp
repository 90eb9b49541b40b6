// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Runtime/StorePage.h"

#include "Platform/Embedded/Attributes/Values/DataValue.h"
#include "Platform/Embedded/Attributes/Values/GroupValue.h"
#include "Platform/Embedded/Attributes/Values/Lifetime.h"
#include "Platform/Embedded/Attributes/Values/NameList.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace Sylvar3::internal::OvSylvar::Embedded {

namespace Values = OvAttribute::Embedded;

namespace {

/// How many values of a group by itself are looked at, to see what they keep.
constexpr std::size_t kMostLooks = 1000;

/// An order above those of all blocks that a value by itself keeps.
std::uint64_t orderAbove(const Values::Value& value) {
    std::uint64_t order = 0;
    std::vector<const Values::Value*> pending = {&value};
    for (std::size_t looks = 0; !pending.empty(); ++looks) {
        if (looks == kMostLooks) {
            return StorePage::kNewOrder;
        }
        const Values::Value& one = *pending.back();
        pending.pop_back();
        const Values::Owner& owner = Values::ownerOf(one);
        if (owner.block) {
            order = std::max(order, owner.block->order() == 0 ? 0 : owner.block->order() + 1);
        } else if (one.kind == OV_ATTRIBUTE_GROUP) {
            const auto& group = static_cast<const Values::GroupValue&>(one);
            std::copy_if(group.begin(),
                         group.end(),
                         std::back_inserter(pending),
                         [](const Values::Value* child) { return child != nullptr; });
        }
    }
    return order;
}

}  // namespace

StorePage::~StorePage() {
    if (isDetached) {
        detachedBytes_.fetch_sub(accountedBytes.load(std::memory_order_relaxed),
                                 std::memory_order_relaxed);
    }
}

bool StorePage::isKept(const void* thing) const {
    return std::find(kept_.begin(), kept_.end(), thing) != kept_.end();
}

std::uint64_t StorePage::orderToKeep(const Value& value) const {
    const Values::Owner& owner = Values::ownerOf(value);
    if (owner.block) {
        return owner.block->order();
    }
    return isKept(&owner) ? 0 : orderAbove(value);
}

StorePage::Value* StorePage::keep(Value& value) {
    const Values::Owner& owner = Values::ownerOf(value);
    if (owner.block == this) {
        return &value;
    }
    // Any value of a block keeps the whole block; a value by itself has an owner without one.
    const void* const piece = owner.block ? static_cast<const void*>(owner.block) : &owner;
    if (!isKept(piece)) {
        holdOf(value,
               owner.block && owner.block->order() != 0 ? static_cast<StorePage*>(owner.block)
                                                        : nullptr);
        remember(piece);
    }
    return &value;
}

void StorePage::holdOf(Value& value, StorePage* page) {
    if (page) {
        keptPages_.push_back(page);
        page->keptByPages_.fetch_add(1, std::memory_order_relaxed);
    }
    try {
        hold(Values::retained(&value));
    } catch (...) {
        if (page) {
            keptPages_.pop_back();
            page->keptByPages_.fetch_sub(1, std::memory_order_relaxed);
        }
        throw;
    }
}

void StorePage::beforeEnd() noexcept {
    for (StorePage* const page : keptPages_) {
        page->keptByPages_.fetch_sub(1, std::memory_order_relaxed);
    }
}

const Values::Shape& StorePage::keep(const Values::Shape& shape) {
    if (!isKept(&shape)) {
        hold(shape.retain());
        remember(&shape);
    }
    return shape;
}

StorePage::Value* StorePage::existsValue() {
    if (!exists_) {
        Values::DataValue* const value =
            Values::newDataValue(this, Values::DataShape{OV_ATTRIBUTE_INT});
        *static_cast<std::int32_t*>(value->values()) = 1;
        exists_ = value;
    }
    return exists_;
}

StorePage::Value* StorePage::noChildrenValue() {
    if (!noChildren_) {
        Values::DataShape shape{OV_ATTRIBUTE_STRING};
        shape.valueCount = 0;
        noChildren_ = Values::newDataValue(this, shape);
    }
    return noChildren_;
}

Values::GroupValue* StorePage::noAttributesValue() {
    if (!noAttributes_) {
        const Values::Shape* const shape = Values::Shape::of(Values::NameList());
        hold(shape);
        noAttributes_ = Values::newGroupValue(*this, *shape, false);
    }
    return noAttributes_;
}

const ChildNames* StorePage::noChildNames() {
    if (!noNames_) {
        noNames_ =
            ChildNames::make(*this, static_cast<const Values::DataValue&>(*noChildrenValue()));
    }
    return noNames_;
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
