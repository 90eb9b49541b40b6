// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/GroupAttribute.h>

#include <string_view>

namespace Sylvar3::internal::OvAttribute {

/// Makes a group child by child. Belongs to one thread at a time.
///
///     auto mesh = GroupBuilder(GroupBuilder::Mode::Flat)
///                     .set("type", StringAttribute("mesh"))
///                     .set("geometry", geometry)
///                     .build();
class SYLVAR_PLATFORM_API GroupBuilder {
public:
    enum class Mode {
        Nested = 0,  ///< A dotted name makes nested groups.
        Flat = 1     ///< Names stand as they are.
    };

    /// An empty builder with group inherit off.
    explicit GroupBuilder(Mode mode = Mode::Nested);
    ~GroupBuilder();
    GroupBuilder(GroupBuilder&& other) noexcept;
    GroupBuilder& operator=(GroupBuilder&& other) noexcept;

    /// Sets one child, in its old place when the name is there already. A null child keeps its
    /// name and its place.
    GroupBuilder& set(std::string_view name, const Attribute& child);

    /// Sets all children of `group`, names as they stand; its inherit flag is not taken.
    GroupBuilder& update(const GroupAttribute& group);

    /// Takes the child of that name out; nothing when it is not there.
    GroupBuilder& remove(std::string_view name);

    GroupBuilder& setGroupInherit(bool groupInherit);

    /// The finished group; the builder is empty afterwards.
    GroupAttribute build();

    /// The same table as `Attribute::_attrSuite`.
    static const OvAttributeSuite* _attrSuite;

private:
    OvGroupBuilderStruct* builder_;
};

}  // namespace Sylvar3::internal::OvAttribute
