// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Attributes/Values/NameList.h"
#include "Platform/Embedded/Attributes/Values/Value.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace Sylvar3::internal::OvAttribute::Embedded {

class BlockBuilder;

/// The groups that a reader is inside of: their names and children so far, all in one place, so
/// that a level costs few bytes. Belongs to one thread. Throws `std::bad_alloc`, and for over 2 GiB
/// of names in one group `std::length_error`.
class GroupStack {
public:
    GroupStack(BlockBuilder& builder, std::size_t allowance)
        : builder_(builder), allowance_(allowance) {}

    /// Begins a group inside the innermost one, whose next child it will be.
    void open();

    /// Of the innermost group.
    void setInherits(bool inherits) { inner_.inherits = inherits; }

    /// The name of the next child, and the child; a later child of a name replaces the earlier one
    /// in its place.
    void name(std::string_view name);
    void add(Value* child);

    /// Ends the innermost group and makes it.
    Value* close();

    bool isEmpty() const { return outer_.empty(); }

private:
    /// What a group has so far.
    struct Extent {
        std::uint32_t children = 0;
        std::uint32_t nameBytes : 31;
        std::uint32_t inherits : 1;
    };

    std::string_view takeName(std::size_t& at) const;
    void gather(Value** children);
    void dropNames();
    void checkAllowance() const;

    BlockBuilder& builder_;
    const std::size_t allowance_;
    Extent inner_{0, 0, 0};
    std::vector<Extent> outer_;
    std::vector<Value*> children_;
    std::vector<char> names_;  ///< Each with its length in front.
    NameList list_;
};

}  // namespace Sylvar3::internal::OvAttribute::Embedded
