// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Attributes/Values/Block.h"
#include "Platform/Embedded/Attributes/Values/DataValue.h"
#include "Platform/Embedded/Attributes/Values/GroupValue.h"

#include <cstddef>
#include <unordered_set>

namespace Sylvar3::internal::OvAttribute::Embedded {

class NameList;

/// Makes many values that live together in one block, from the leaves up. What was made ends with
/// the builder, unless `finish` hands it out. All of it may throw `std::bad_alloc`. Belongs to one
/// thread.
class BlockBuilder {
public:
    BlockBuilder();
    ~BlockBuilder();
    BlockBuilder(const BlockBuilder&) = delete;
    BlockBuilder& operator=(const BlockBuilder&) = delete;

    /// A data value whose values are still to be written, numbers in place and strings by a
    /// `StringWriter`.
    DataValue* addData(const DataShape& shape);

    /// A group; `children` has one entry for each name, null or a value of this builder.
    GroupValue* addGroup(const Shape& shape, Value* const* children, bool inherits);
    GroupValue* addGroup(const NameList& names, Value* const* children, bool inherits);

    /// The shape of these names, held by the block.
    const Shape& addShape(const NameList& names);

    /// The value itself, or a copy of it that lies where the next value will: one small value that
    /// very many refer to (a type name, say) would make one contended count of theirs. Copies
    /// while they take no more than the allowance.
    Value* nearby(Value* value);
    void allowCopies(std::size_t bytes) { copyAllowance_ = bytes; }

    /// About how much memory the values and their shapes take so far.
    std::size_t bytes() const { return block_->pageBytes() + shapeBytes_; }

    /// Hands out a value of this builder, with one reference; the block lives on for as long as any
    /// of its values is held. Null stays null. The builder is not to be used any more.
    Value* finish(Value* root);

private:
    Block* block_;
    std::unordered_set<const Shape*> shapes_;
    std::size_t shapeBytes_ = 0;
    std::size_t copyAllowance_ = 0;
};

}  // namespace Sylvar3::internal::OvAttribute::Embedded
