// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Attributes/Values/GroupValue.h"
#include "Platform/Embedded/Attributes/Values/NameList.h"

#include <boost/container/small_vector.hpp>

#include <cstdint>
#include <string_view>
#include <utility>

namespace Sylvar3::internal::OvAttribute::Embedded {

/// Named children that come one by one, and the group that they make: a later value of a name
/// replaces the earlier one in its place. Holds a reference on each child. Belongs to one thread.
class GroupAssembly {
public:
    GroupAssembly() = default;
    ~GroupAssembly();
    GroupAssembly(const GroupAssembly&) = delete;
    GroupAssembly& operator=(const GroupAssembly&) = delete;

    /// Sets one child, which may be null, and takes over the caller's reference; returns its place.
    std::int64_t set(std::string_view name, Value* owned);

    /// The place of the name, or `NameList::kNone`.
    std::int64_t find(std::string_view name) const { return names_.find(name); }

    Value* operator[](std::int64_t place) const {
        return children_[static_cast<std::size_t>(place)];
    }

    /// Sets the child at a place; takes over the caller's reference.
    void replace(std::int64_t place, Value* owned);

    /// Sets all children of a group.
    void update(const GroupValue& group);

    void remove(std::int64_t place);
    void clear();

    bool inherits = false;

    /// A new group with one reference.
    GroupValue* make() const { return makeBy(newGroupValue); }

    /// The same, with the references that are held here; empty afterwards.
    GroupValue* take();

private:
    using NewGroup = GroupValue* (*)(const Shape& shape, Value* const* children, bool inherits);
    GroupValue* makeBy(NewGroup newGroup) const;

    NameList names_;
    boost::container::small_vector<Value*, 24> children_;
};

}  // namespace Sylvar3::internal::OvAttribute::Embedded
