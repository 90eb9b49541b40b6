// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Attributes/Values/GroupValue.h"
#include "Platform/Embedded/Attributes/Values/Lifetime.h"
#include "Platform/Embedded/Runtime/ChildNames.h"

#include <cstdint>
#include <string_view>
#include <utility>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// A cooked location, or an absent one. Keeps what it shows alive.
class Location {
public:
    using Value = OvAttribute::Embedded::Value;
    using GroupValue = OvAttribute::Embedded::GroupValue;

    /// An absent one.
    Location() = default;

    /// Adds a reference to the location's group; the names lie with its "pc".
    Location(GroupValue* group, const ChildNames* names) : group_(group), names_(names) {
        OvAttribute::Embedded::retained(group_);
    }
    Location(Location&& other) noexcept
        : group_(std::exchange(other.group_, nullptr)), names_(other.names_) {}
    Location(const Location& other) : Location(other.group_, other.names_) {}
    Location& operator=(Location other) noexcept {
        std::swap(group_, other.group_);
        std::swap(names_, other.names_);
        return *this;
    }
    ~Location() {
        if (group_) {
            OvAttribute::Embedded::release(*group_);
        }
    }

    bool exists() const { return group_ != nullptr; }

    /// The rest is for a location that is there. Everything is borrowed.
    GroupValue* group() const { return group_; }
    GroupValue* attributes() const { return static_cast<GroupValue*>((*group_)[kAttributes]); }
    Value* children() const { return (*group_)[kChildren]; }
    const ChildNames& names() const { return *names_; }

    /// Hands the reference over; null for an absent one.
    GroupValue* detach() { return std::exchange(group_, nullptr); }

    /// The places of "exists", "pc" and "attrs" in a location's group.
    static constexpr std::int64_t kExists = 0;
    static constexpr std::int64_t kChildren = 1;
    static constexpr std::int64_t kAttributes = 2;

private:
    GroupValue* group_ = nullptr;
    const ChildNames* names_ = nullptr;
};

}  // namespace Sylvar3::internal::OvSylvar::Embedded
