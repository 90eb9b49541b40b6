// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/FlattenedMaterial.h>

#include "Materials/MaterialStyle.h"

#include <algorithm>

namespace SYLVAR {
namespace {

bool hasExactly(const GroupAttribute& group, const ChildList& children) {
    if (group.getGroupInherit() ||
        group.getNumberOfChildren() != static_cast<std::int64_t>(children.size())) {
        return false;
    }
    std::int64_t i = 0;
    return std::all_of(children.begin(), children.end(), [&](const GroupAttribute::Child& child) {
        const bool isSame = group.getChildNameView(i) == child.first &&
                            group.getChildByIndex(i).handle() == child.second.handle();
        ++i;
        return isSame;
    });
}

/// The group of these children: the one that they come from, when there is nothing to cut.
GroupAttribute groupOf(const ChildList& children, const GroupAttribute& original) {
    return hasExactly(original, children) ? original : GroupAttribute(children, false);
}

void addGroup(ChildList& minimized, const GroupAttribute& material, const char* name) {
    const auto group = material.getChild<GroupAttribute>(name);
    if (group) {
        minimized.emplace_back(name, group);
    }
}

/// The entries that have a parameter of their name and a source, with that alone.
ChildList usedInterface(const GroupAttribute& parameters, const GroupAttribute& interface) {
    ChildList used;
    for (std::int64_t i = 0; i < parameters.getNumberOfChildren(); ++i) {
        const std::string_view name = parameters.getChildNameView(i);
        const auto entry = interface.getChild<GroupAttribute>(name);
        const auto source = entry.getChild<StringAttribute>("src");
        if (source) {
            used.emplace_back(name, groupOf({{"src", source}}, entry));
        }
    }
    return used;
}

void addParameters(ChildList& minimized, const GroupAttribute& material) {
    const auto parameters = material.getChild<GroupAttribute>("parameters");
    if (!parameters) {
        return;
    }
    minimized.emplace_back("parameters", parameters);
    const auto interface = material.getChild<GroupAttribute>("interface");
    const ChildList used = usedInterface(parameters, interface);
    if (!used.empty()) {
        minimized.emplace_back("interface", groupOf(used, interface));
    }
}

}  // namespace

GroupAttribute MinimizeResolvedMaterialAttr(const GroupAttribute& material) {
    if (!isNetworkMaterial(material)) {
        return material;
    }
    ChildList minimized;
    minimized.reserve(5);
    minimized.emplace_back("style", material.getChildByName("style"));
    addGroup(minimized, material, "nodes");
    addParameters(minimized, material);
    addGroup(minimized, material, "terminals");
    return groupOf(minimized, material);
}

}  // namespace SYLVAR
