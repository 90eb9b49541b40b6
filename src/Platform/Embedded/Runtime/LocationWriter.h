// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Attributes/Values/DataValue.h"
#include "Platform/Embedded/Attributes/Values/GroupValue.h"
#include "Platform/Embedded/Runtime/Location.h"
#include "Platform/Embedded/Runtime/LocationPage.h"
#include "Platform/Embedded/Runtime/Node.h"
#include "Platform/Embedded/Runtime/StorePage.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// What an op says of the location that it cooks. Values lie in a page of the store, or are kept by
/// it. A location is there, without attributes and children, unless the op says otherwise.
///
/// An op had better read all that it needs before it writes: then its location lies in one page.
///
/// All of it may throw `std::bad_alloc`. Belongs to one thread, for one cook.
class LocationWriter {
public:
    using Value = OvAttribute::Embedded::Value;
    using DataValue = OvAttribute::Embedded::DataValue;
    using GroupValue = OvAttribute::Embedded::GroupValue;
    using Shape = OvAttribute::Embedded::Shape;

    explicit LocationWriter(LocationPage& page) : page_(page) {}
    LocationWriter(const LocationWriter&) = delete;
    LocationWriter& operator=(const LocationWriter&) = delete;

    /// @name Values
    /// @{

    /// A data value whose values are still to be written.
    DataValue* addData(const OvAttribute::Embedded::DataShape& shape);
    Value* addInt(std::int32_t value);
    Value* addFloat(float value);
    Value* addDouble(double value);
    Value* addString(std::string_view text);
    Value* addStrings(const std::vector<std::string_view>& texts);

    /// A group with one child for each name of the shape, each of them null, made here, or kept.
    GroupValue* addGroup(const Shape& shape, Value* const* children, bool inherits);

    /// A value from elsewhere, kept for as long as the location is there.
    Value* keep(Value& value) { return page_.keep(value); }

    /// @}
    /// @name The location
    /// @{

    /// The location is that of an input, the very same group.
    void pass(const Location& location);

    void setAbsent() { isAbsent_ = true; }

    /// The attributes: a group that was made here, or kept.
    void setAttributes(GroupValue* attributes) { attributes_ = attributes; }

    /// The names of the potential children. Each must be a name that a path can have, and be there
    /// once.
    void setChildren(const std::vector<std::string_view>& names);

    /// The same with a value from elsewhere: strings of one sample, which are kept. Null: none.
    void keepChildren(DataValue* names);

    /// The potential children are those of another location.
    void setChildrenOf(const Location& location);

    /// @}

    /// The node of this location, in no slot yet; null for an absent one.
    Node* finish(std::uint32_t opType, const std::vector<ForeignRead>& reads);

private:
    GroupValue* makeGroup();
    Slot* makeSlots(std::uint32_t count);
    const ForeignRead* copyReads(const std::vector<ForeignRead>& reads);
    template <class T>
    T* room(std::size_t count);

    StorePage& page() const { return page_.get(); }

    LocationPage& page_;
    bool isAbsent_ = false;
    GroupValue* group_ = nullptr;
    GroupValue* attributes_ = nullptr;
    Value* children_ = nullptr;
    const ChildNames* names_ = nullptr;
};

}  // namespace Sylvar3::internal::OvSylvar::Embedded
