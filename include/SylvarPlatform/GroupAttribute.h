// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/Attribute.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Sylvar3::internal::OvAttribute {

/// An ordered list of named children, which are attributes of any kind, or null. Names are unique.
/// The null group has no children.
class SYLVAR_PLATFORM_API GroupAttribute : public Attribute {
public:
    using Child = std::pair<std::string, Attribute>;
    static constexpr std::int32_t kType = OV_ATTRIBUTE_GROUP;

    GroupAttribute() noexcept = default;

    /// The children in their order; names stand as they are. A later value of a name replaces the
    /// earlier one in its place.
    GroupAttribute(const std::vector<Child>& children, bool groupInherit);

    static GroupAttribute adopt(OvAttributeStruct* owned) noexcept {
        return GroupAttribute(Owned{}, owned);
    }

    std::int64_t getNumberOfChildren() const {
        return isValid() ? _attrSuite->getNumberOfChildren(handle()) : 0;
    }

    /// The name of child `index`; empty when out of range.
    std::string getChildName(std::int64_t index) const {
        return std::string(getChildNameView(index));
    }

    /// The same without a copy, as long as the group is held.
    std::string_view getChildNameView(std::int64_t index) const;

    /// Child `index`; null when it is the null attribute or out of range.
    Attribute getChildByIndex(std::int64_t index) const {
        return adoptAny(isValid() ? _attrSuite->getChildByIndex(handle(), index) : nullptr);
    }

    /// The child of that name; a dot steps into the named child group. Null when not there.
    Attribute getChildByName(std::string_view name) const {
        return adoptAny(_attrSuite->getChildByName(
            handle(), name.data(), static_cast<std::int32_t>(name.size())));
    }

    /// The same as a typed view: a child of another kind reads as null.
    template <class Wanted>
    Wanted getChild(std::string_view name) const {
        return castAttribute<Wanted>(getChildByName(name));
    }

    bool getGroupInherit() const { return isValid() && _attrSuite->getGroupInherit(handle()) != 0; }

    /// Appends all children in their order.
    void fillChildVector(std::vector<Child>* children) const;

private:
    GroupAttribute(Owned tag, OvAttributeStruct* owned) noexcept : Attribute(tag, owned) {}
    static Attribute adoptAny(OvAttributeStruct* owned) noexcept { return Attribute::adopt(owned); }
};

}  // namespace Sylvar3::internal::OvAttribute
