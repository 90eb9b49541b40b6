// SPDX-License-Identifier: Apache-2.0
#include "Scene/MaterialNetwork.h"

#include "Scene/AttributeWalk.h"
#include "Scene/MaterialChain.h"

#include <cstdint>
#include <set>
#include <utility>

namespace ovscene {
namespace {

using SYLVAR::ShadingNodeDescription;

/// Nodes may share one large group of parameters, and each description has it for itself.
void requireWithin(VisitLimit& limit, const GroupAttribute& nodes) {
    for (AttributeWalk walk(nodes, limit); !walk.atEnd(); walk.next()) {
    }
}

/// By the keys of the nodes.
std::map<std::string, OverriddenParameters> overriddenParameters(const GroupAttribute& network) {
    std::map<std::string, OverriddenParameters> overridden;
    const auto parameters = network.getChild<GroupAttribute>("parameters");
    const auto interface = network.getChild<GroupAttribute>("interface");
    for (std::int64_t i = 0; i < parameters.getNumberOfChildren(); ++i) {
        const std::string entry = parameters.getChildName(i);
        const std::string source =
            textOf(interface.getChild<GroupAttribute>(entry).getChild<StringAttribute>("src"));
        const std::size_t dot = source.find('.');
        const bool isOneParameter = dot != std::string::npos && dot == source.rfind('.');
        if (isOneParameter && parameters.getChildByIndex(i)) {
            overridden[source.substr(0, dot)][source.substr(dot + 1)] = entry;
        }
    }
    return overridden;
}

/// A child of "nodes" as it is read to be described.
struct NodeEntry {
    std::string key;
    std::string name;
    std::string fault;  ///< Empty for a node.
};

std::vector<NodeEntry> entriesOf(const GroupAttribute& nodes) {
    std::vector<NodeEntry> entries;
    for (std::int64_t i = 0; i < nodes.getNumberOfChildren(); ++i) {
        const auto node =
            Sylvar3::internal::OvAttribute::castAttribute<GroupAttribute>(nodes.getChildByIndex(i));
        NodeEntry entry{nodes.getChildName(i), textOf(node.getChild<StringAttribute>("name")), ""};
        if (!node) {
            entry.fault = "it is no group";
        } else if (entry.name.empty()) {
            entry.fault = "it has no string \"name\"";
        } else if (textOf(node.getChild<StringAttribute>("type")).empty()) {
            entry.fault = "it has no string \"type\"";
        }
        entries.push_back(std::move(entry));
    }
    return entries;
}

/// Of nodes with one name the last one is described.
void excludeReplaced(std::vector<NodeEntry>& entries) {
    std::set<std::string> taken;
    for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) {
        if (entry->fault.empty() && !taken.insert(entry->name).second) {
            entry->fault = "a later node has its name, " + entry->name;
        }
    }
}

}  // namespace

const NetworkNode* MaterialNetwork::find(const std::string& name) const {
    const auto found = places.find(name);
    return found == places.end() ? nullptr : &nodes[found->second];
}

MaterialNetwork materialNetwork(const GroupAttribute& material, VisitLimit& limit) {
    const auto children = material.getChild<GroupAttribute>("nodes");
    requireWithin(limit, children);
    ShadingNodeDescription::Nodes described;
    ShadingNodeDescription::GetShadingNetworkNodes(material, described);
    auto overridden = overriddenParameters(material);
    std::vector<NodeEntry> entries = entriesOf(children);
    excludeReplaced(entries);
    MaterialNetwork network;
    for (const NodeEntry& entry : entries) {
        if (entry.fault.empty()) {
            network.places[entry.name] = network.nodes.size();
            network.nodes.push_back(
                {entry.key, described.at(entry.name), std::move(overridden[entry.key])});
        } else {
            network.leftOut.push_back({entry.key, entry.fault});
        }
    }
    return network;
}

}  // namespace ovscene
