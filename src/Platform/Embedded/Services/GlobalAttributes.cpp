// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/GlobalAttributes.h>

#include "Platform/Embedded/Services/GroupMerge.h"

#include <limits>
#include <utility>
#include <vector>

namespace Sylvar3::internal::OvSylvarServices {

using OvAttribute::Attribute;
using OvAttribute::castAttribute;
using OvAttribute::GroupAttribute;

namespace {

/// The levels of a chain, asked for from the starting location up.
class Levels {
public:
    Levels(BaseGlobalAttributeProviderLegacy& provider,
           const std::string& name,
           const std::string& locationPath)
        : provider_(provider), name_(name), locationPath_(locationPath) {}

    /// The attribute of the next level that has it; null when no further one does.
    Attribute next() {
        Attribute found;
        while (!found && askNextLevel(&found)) {
        }
        return found;
    }

private:
    bool askNextLevel(Attribute* output) {
        return depth_ < std::numeric_limits<std::int32_t>::max() &&
               provider_.getGlobalAttrAtDepth(name_, locationPath_, depth_++, output) == 0;
    }

    BaseGlobalAttributeProviderLegacy& provider_;
    const std::string& name_;
    const std::string& locationPath_;
    std::int32_t depth_ = 0;
};

}  // namespace

BaseGlobalAttributeProviderLegacy::~BaseGlobalAttributeProviderLegacy() = default;

Attribute OvSylvarCookInterfaceUtils::getGlobalAttrGeneric(
    BaseGlobalAttributeProviderLegacy* provider,
    const std::string& name,
    const std::string& locationPath,
    void*) {
    Levels levels(*provider, name, locationPath);
    Attribute nearest = levels.next();
    auto group = castAttribute<GroupAttribute>(nearest);
    if (!group.getGroupInherit()) {
        return nearest;
    }
    std::vector<GroupAttribute> groups;
    while (group) {
        groups.push_back(group);
        group = group.getGroupInherit() ? castAttribute<GroupAttribute>(levels.next())
                                        : GroupAttribute();
    }
    return Embedded::mergeGroups(std::move(groups));
}

}  // namespace Sylvar3::internal::OvSylvarServices
