// SPDX-License-Identifier: Apache-2.0
#include "unit/Materials/MergeModel.h"

#include <SylvarPlatform/DataAttribute.h>

#include <algorithm>
#include <cstddef>

using namespace Sylvar3::internal::OvAttribute;

namespace {

using Children = std::vector<GroupAttribute::Child>;
using Names = std::vector<std::string>;

Children childrenOf(const GroupAttribute& group) {
    Children children;
    for (std::int64_t i = 0; i < group.getNumberOfChildren(); ++i) {
        children.emplace_back(group.getChildName(i), group.getChildByIndex(i));
    }
    return children;
}

bool contains(const Names& names, const std::string& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

/// The child of exactly that name.
Attribute childOf(const GroupAttribute& group, const std::string& name) {
    for (const auto& [childName, child] : childrenOf(group)) {
        if (childName == name) {
            return child;
        }
    }
    return {};
}

GroupAttribute groupOf(const GroupAttribute& group, const std::string& name) {
    return castAttribute<GroupAttribute>(childOf(group, name));
}

/// The same for a name in which each dot leads into a group.
Attribute atPath(const GroupAttribute& group, const std::string& path) {
    const std::size_t dot = path.find('.');
    if (dot == std::string::npos) {
        return childOf(group, path);
    }
    return atPath(groupOf(group, path.substr(0, dot)), path.substr(dot + 1));
}

bool isString(const Attribute& attribute) {
    return attribute && attribute.getType() == StringAttribute::kType;
}

bool isGroup(const Attribute& attribute) {
    return attribute && attribute.getType() == GroupAttribute::kType;
}

std::string textOf(const Attribute& attribute) {
    return isString(attribute) ? castAttribute<StringAttribute>(attribute).getValue("") : "";
}

bool isNetwork(const GroupAttribute& material) {
    return textOf(childOf(material, "style")) == "network";
}

GroupAttribute asNetwork(const GroupAttribute& classic, const Names& terminals) {
    Children nodes;
    Children driven;
    for (const std::string& terminal : terminals) {
        const Attribute shader = atPath(classic, terminal + "Shader");
        if (textOf(shader).empty()) {
            continue;
        }
        Children node = {{"name", StringAttribute(terminal)}, {"type", shader}};
        const Attribute parameters = atPath(classic, terminal + "Params");
        if (isGroup(parameters)) {
            node.emplace_back("parameters", parameters);
        }
        nodes.emplace_back(terminal, GroupAttribute(node, false));
        driven.emplace_back(terminal, StringAttribute(terminal));
    }
    return GroupAttribute({{"style", StringAttribute("network")},
                           {"nodes", GroupAttribute(nodes, false)},
                           {"terminals", GroupAttribute(driven, false)}},
                          false);
}

GroupAttribute renamedNode(const GroupAttribute& node,
                           const std::string& newName,
                           const std::string& suffix) {
    Children keys = childrenOf(node);
    bool hasName = false;
    for (auto& [key, value] : keys) {
        if (key == "connections" && isGroup(value)) {
            Children connections = childrenOf(castAttribute<GroupAttribute>(value));
            for (auto& [input, source] : connections) {
                if (isString(source)) {
                    source = StringAttribute(textOf(source) + suffix);
                }
            }
            if (!connections.empty()) {
                value = GroupAttribute(connections, true);
            }
        }
        if (key == "name") {
            value = StringAttribute(newName);
            hasName = true;
        }
    }
    if (!hasName) {
        keys.emplace_back("name", StringAttribute(newName));
    }
    return GroupAttribute(keys, false);
}

std::string renamedSource(const std::string& source, const std::string& suffix) {
    const std::size_t dot = source.find('.');
    return source.substr(0, dot) + suffix + source.substr(dot);
}

GroupAttribute mergeClassic(const std::vector<GroupAttribute>& materials) {
    Names seen;
    Children result;
    for (const GroupAttribute& material : materials) {
        for (const auto& [name, child] : childrenOf(material)) {
            if (!contains(seen, name)) {
                seen.push_back(name);
                result.emplace_back(name, child);
            }
        }
    }
    return result.empty() ? GroupAttribute() : GroupAttribute(result, false);
}

GroupAttribute mergeNetworks(const std::vector<GroupAttribute>& materials, const Names& terminals) {
    Names taken;
    Children nodes;
    Children interface;
    Children parameters;
    Children driven;
    for (std::size_t i = 0; i < materials.size(); ++i) {
        const GroupAttribute& material = materials[i];
        const std::string suffix = ":" + std::to_string(i);
        bool contributes = false;
        for (const std::string& terminal : terminals) {
            const std::string node = textOf(atPath(material, "terminals." + terminal));
            if (contains(taken, terminal) || node.empty()) {
                continue;
            }
            taken.push_back(terminal);
            driven.emplace_back(terminal, StringAttribute(node + suffix));
            contributes = true;
        }
        if (!contributes) {
            continue;
        }
        for (const auto& [name, node] : childrenOf(groupOf(material, "nodes"))) {
            if (isGroup(node)) {
                nodes.emplace_back(
                    name + suffix,
                    renamedNode(castAttribute<GroupAttribute>(node), name + suffix, suffix));
            }
        }
        for (const auto& [name, entry] : childrenOf(groupOf(material, "interface"))) {
            const Attribute source =
                isGroup(entry) ? childOf(castAttribute<GroupAttribute>(entry), "src") : Attribute();
            const std::string text = textOf(source);
            if (isString(source) && std::count(text.begin(), text.end(), '.') == 1) {
                interface.emplace_back(
                    name + suffix,
                    GroupAttribute({{"src", StringAttribute(renamedSource(text, suffix))}}, false));
            }
        }
        for (const auto& [name, value] : childrenOf(groupOf(material, "parameters"))) {
            parameters.emplace_back(name + suffix, value);
        }
    }
    Children result = {{"style", StringAttribute("network")}};
    const auto addUnlessEmpty = [&](const char* name, const Children& list) {
        if (!list.empty()) {
            result.emplace_back(name, GroupAttribute(list, false));
        }
    };
    addUnlessEmpty("nodes", nodes);
    addUnlessEmpty("interface", interface);
    addUnlessEmpty("parameters", parameters);
    addUnlessEmpty("terminals", driven);
    return GroupAttribute(result, false);
}

}  // namespace

GroupAttribute ovtest::mergeByTheRules(const std::vector<GroupAttribute>& materials,
                                       const Names& terminals) {
    if (materials.size() < 2) {
        return materials.empty() ? GroupAttribute() : materials.front();
    }
    if (std::none_of(materials.begin(), materials.end(), isNetwork)) {
        return mergeClassic(materials);
    }
    std::vector<GroupAttribute> networks = materials;
    for (GroupAttribute& material : networks) {
        if (!isNetwork(material)) {
            material = asNetwork(material, terminals);
        }
    }
    return mergeNetworks(networks, terminals);
}
