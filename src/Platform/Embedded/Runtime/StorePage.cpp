// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Runtime/StorePage.h"

#include "Platform/Embedded/Attributes/Values/DataValue.h"
#include "Platform/Embedded/Attributes/Values/GroupValue.h"
#include "Platform/Embedded/Attributes/Values/Lifetime.h"
#include "Platform/Embedded/Attributes/Values/NameList.h"

#include <algorithm>

namespace Sylvar3::internal::OvSylvar::Embedded {

namespace Values = OvAttribute::Embedded;

StorePage::~StorePage() {
    if (isDetached) {
        detachedBytes_.fetch_sub(accountedBytes.load(std::memory_order_relaxed),
                                 std::memory_order_relaxed);
    }
}

bool StorePage::isKept(const void* thing) const {
    return std::find(kept_.begin(), kept_.end(), thing) != kept_.end();
}

StorePage::Value* StorePage::keep(Value& value) {
    const Values::Owner& owner = Values::ownerOf(value);
    if (owner.block == this) {
        return &value;
    }
    // Any value of a block keeps the whole block; a value by itself has an owner without one.
    if (orderOf(value) > order()) {
        throw TooOld{orderOf(value)};
    }
    const void* const piece = owner.block ? static_cast<const void*>(owner.block) : &owner;
    if (!isKept(piece)) {
        hold(Values::retained(&value));
        remember(piece);
    }
    return &value;
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
