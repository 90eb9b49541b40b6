// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/FlattenedMaterial.h>

#include "Materials/MaterialStyle.h"

namespace SYLVAR {
namespace {

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
        const std::string name = parameters.getChildName(i);
        const auto source =
            interface.getChild<GroupAttribute>(name).getChild<StringAttribute>("src");
        if (source) {
            used.emplace_back(name, GroupAttribute({{"src", source}}, false));
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
        minimized.emplace_back("interface", GroupAttribute(used, false));
    }
}

}  // namespace

GroupAttribute MinimizeResolvedMaterialAttr(const GroupAttribute& material) {
    if (!isNetworkMaterial(material)) {
        return material;
    }
    ChildList minimized = {{"style", material.getChildByName("style")}};
    addGroup(minimized, material, "nodes");
    addParameters(minimized, material);
    addGroup(minimized, material, "terminals");
    return GroupAttribute(minimized, false);
}

}  // namespace SYLVAR
