// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Attributes/Values/NameList.h"
#include "Platform/Embedded/Runtime/Location.h"
#include "Platform/Embedded/Runtime/LocationWriter.h"

#include <boost/container/small_vector.hpp>

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// The attributes of a location while an op changes some: a later value of a name replaces the
/// earlier one in its place. Cheap while no name is new. Borrows all values, and the group that it
/// begins with. Belongs to one thread.
class AttributeEdit {
public:
    using Value = OvAttribute::Embedded::Value;
    using GroupValue = OvAttribute::Embedded::GroupValue;

    AttributeEdit() = default;

    /// Begins with the attributes of a location; with none when it is absent.
    explicit AttributeEdit(const Location& location);

    /// Begins with the children of a group.
    explicit AttributeEdit(GroupValue& group);

    void set(std::string_view name, Value* value);

    void remove(std::string_view name);

    /// Null when there is none of that name, or when it is null.
    Value* find(std::string_view name) const;
    bool has(std::string_view name) const;

    /// Group inherit is that of the group that it began with, or off.
    void setGroupInherit(bool inherits) { inherits_ = inherits; }

    /// The group of all of them; the very one that it began with when nothing was changed.
    GroupValue* write(LocationWriter& out) const;

private:
    std::int64_t placeOf(std::string_view name) const;
    std::string_view nameAt(std::size_t place) const;
    bool isGone(std::size_t place) const;
    void takeNames();
    bool isOfBase(std::size_t place) const;
    bool isBase() const;
    GroupValue* writeAll(LocationWriter& out) const;

    GroupValue* base_ = nullptr;
    const OvAttribute::Embedded::Shape* shape_ = nullptr;  ///< The base's, while no name is new.
    bool inherits_ = false;
    OvAttribute::Embedded::NameList names_;
    boost::container::small_vector<Value*, 24> values_;
    boost::container::small_vector<bool, 24> isGone_;  ///< Empty while nothing was removed.
};

}  // namespace Sylvar3::internal::OvSylvar::Embedded
