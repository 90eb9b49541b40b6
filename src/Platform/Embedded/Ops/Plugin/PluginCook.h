// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/GroupAttribute.h>

#include "Platform/Embedded/Runtime/Cook.h"

#include <cstddef>
#include <exception>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// One cook of an op of a plug-in: what it asks for, and what it has said of the location, which is
/// put together at the end. The operations are those of `OvOpHost`; they throw what goes wrong,
/// `OpError` above all. Belongs to one thread.
class PluginCook {
public:
    using GroupAttribute = OvAttribute::GroupAttribute;
    using StringAttribute = OvAttribute::StringAttribute;
    using GroupValue = OvAttribute::Embedded::GroupValue;

    explicit PluginCook(Cook& cook) : cook_(cook) {}
    PluginCook(const PluginCook&) = delete;
    PluginCook& operator=(const PluginCook&) = delete;

    /// The path with a NUL behind it, as long as this.
    const std::string& path();

    std::string_view cookedPath() const { return cook_.path(); }
    std::size_t inputCount() const { return cook_.inputCount(); }

    /// Null when the location is not there; otherwise as long as this.
    GroupValue* input(std::size_t index, std::string_view path);

    void passInput(std::size_t index, std::string_view path);
    void setAbsent() { from_ = From::Nowhere; }
    void setAttributes(GroupAttribute attributes) { attributes_ = std::move(attributes); }
    void setChildren(StringAttribute names);
    bool enterScene(const std::string& top);
    void setStaticScene(GroupAttribute scene, const std::string& top);

    /// Keeps the first fault: what the cook comes to.
    void fail(std::exception_ptr fault);
    bool hasFailed() const { return fault_ != nullptr; }

    /// Writes the location, or throws the fault.
    void finish(LocationWriter& out) const;

private:
    enum class From { Nothing, Nowhere, Input, Scene };

    void writeInput(LocationWriter& out) const;

    Cook& cook_;
    std::optional<std::string> path_;
    std::vector<Location> borrowed_;
    std::exception_ptr fault_;

    From from_ = From::Nothing;
    Location input_;
    GroupAttribute scene_;
    std::string_view placeInScene_;
    std::optional<GroupAttribute> attributes_;
    std::optional<StringAttribute> children_;
};

}  // namespace Sylvar3::internal::OvSylvar::Embedded

/// What plug-ins know it as.
struct OvOpCookStruct {
    Sylvar3::internal::OvSylvar::Embedded::PluginCook cook;
};
