// SPDX-License-Identifier: Apache-2.0
#include "Materials/ClassicMaterial.h"

#include <unordered_set>

namespace SYLVAR {
namespace {

GroupAttribute nodeOf(const std::string& terminal,
                      const StringAttribute& shader,
                      const GroupAttribute& parameters) {
    ChildList node = {{"name", StringAttribute(terminal)}, {"type", shader}};
    if (parameters) {
        node.emplace_back("parameters", parameters);
    }
    return GroupAttribute(node, false);
}

}  // namespace

GroupAttribute mergeClassicMaterials(const std::vector<GroupAttribute>& materials) {
    std::unordered_set<std::string_view> seen;  // the names lie in the materials
    ChildList children;
    for (const GroupAttribute& material : materials) {
        for (std::int64_t i = 0; i < material.getNumberOfChildren(); ++i) {
            const std::string_view name = material.getChildNameView(i);
            if (seen.insert(name).second) {
                children.emplace_back(name, material.getChildByIndex(i));
            }
        }
    }
    return children.empty() ? GroupAttribute() : GroupAttribute(children, false);
}

GroupAttribute networkOfClassicMaterial(const GroupAttribute& material,
                                        const std::vector<std::string>& terminals) {
    ChildList nodes;
    ChildList driven;
    for (const std::string& terminal : terminals) {
        const auto shader = material.getChild<StringAttribute>(terminal + "Shader");
        if (!textOf(shader).empty()) {
            const auto parameters = material.getChild<GroupAttribute>(terminal + "Params");
            nodes.emplace_back(terminal, nodeOf(terminal, shader, parameters));
            driven.emplace_back(terminal, StringAttribute(terminal));
        }
    }
    return GroupAttribute({{"style", StringAttribute("network")},
                           {"nodes", GroupAttribute(nodes, false)},
                           {"terminals", GroupAttribute(driven, false)}},
                          false);
}

}  // namespace SYLVAR
