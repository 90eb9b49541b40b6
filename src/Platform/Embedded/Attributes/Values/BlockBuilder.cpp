// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Attributes/Values/BlockBuilder.h"

#include "Platform/Embedded/Attributes/Values/Block.h"
#include "Platform/Embedded/Attributes/Values/Lifetime.h"
#include "Platform/Embedded/Attributes/Values/NameList.h"
#include "Platform/Embedded/Attributes/Values/TextRecords.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace Sylvar3::internal::OvAttribute::Embedded {

namespace {

constexpr std::size_t kLargestCopy = 64;

/// About what a shape takes, with its places in the tables that find it, and each of its names.
constexpr std::size_t kShapeBytes = 160;
constexpr std::size_t kBytesOfName = 16;

DataShape shapeOf(const DataValue& value) {
    DataShape shape{
        value.kind, value.tupleSize, value.sampleCount, value.valueCount, value.times()};
    if (value.kind == OV_ATTRIBUTE_STRING) {
        for (std::int64_t i = 0; i < value.totalValues(); ++i) {
            shape.textBytes +=
                TextRecord::at(value.valuesAs<const char*>()[i]).size() + TextRecord::kExtraBytes;
        }
    }
    return shape;
}

void copyValues(const DataValue& from, DataValue& to) {
    if (from.kind != OV_ATTRIBUTE_STRING) {
        std::memcpy(to.values(), from.values(), from.valuesBytes());
        return;
    }
    StringWriter writer(to);
    for (std::int64_t i = 0; i < from.totalValues(); ++i) {
        writer.write(TextRecord::at(from.valuesAs<const char*>()[i]));
    }
}

}  // namespace

BlockBuilder::BlockBuilder() : block_(new Block) {}

BlockBuilder::~BlockBuilder() {
    if (block_) {
        block_->release();
    }
}

DataValue* BlockBuilder::addData(const DataShape& shape) {
    return newDataValue(block_, shape);
}

GroupValue* BlockBuilder::addGroup(const Shape& shape, Value* const* children, bool inherits) {
    GroupValue* const group = newGroupValue(*block_, shape, inherits);
    std::copy_n(children, shape.size(), group->begin());
    return group;
}

GroupValue* BlockBuilder::addGroup(const NameList& names, Value* const* children, bool inherits) {
    return addGroup(addShape(names), children, inherits);
}

const Shape& BlockBuilder::addShape(const NameList& names) {
    const Shape* const shape = Shape::of(names);
    if (shapes_.count(shape) != 0) {
        shape->release();
        return *shape;
    }
    block_->hold(shape);
    shapes_.insert(shape);
    shapeBytes_ += kShapeBytes + names.records().size() +
                   static_cast<std::size_t>(names.size()) * kBytesOfName;
    return *shape;
}

Value* BlockBuilder::nearby(Value* value) {
    if (value->kind == OV_ATTRIBUTE_GROUP || &ownerOf(*value) == block_->currentPage()) {
        return value;
    }
    const auto& data = static_cast<const DataValue&>(*value);
    const DataShape shape = shapeOf(data);
    const std::size_t bytes = sizeof(DataValue) + data.valuesBytes() + shape.textBytes;
    if (data.sampleCount != 1 || bytes > kLargestCopy || bytes > copyAllowance_) {
        return value;
    }
    copyAllowance_ -= bytes;
    DataValue* const copy = addData(shape);
    copyValues(data, *copy);
    return copy;
}

Value* BlockBuilder::finish(Value* root) {
    shapes_.clear();
    Value* const held = retained(root);
    std::exchange(block_, nullptr)->release();
    return held;
}

}  // namespace Sylvar3::internal::OvAttribute::Embedded
