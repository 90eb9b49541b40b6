// SPDX-License-Identifier: Apache-2.0
#include "Materials/NetworkMerge.h"

namespace SYLVAR {
namespace {

using Sylvar3::internal::OvAttribute::castAttribute;

void addUnlessEmpty(ChildList& material, const char* name, const ChildList& children) {
    if (!children.empty()) {
        material.emplace_back(name, GroupAttribute(children, false));
    }
}

}  // namespace

void NetworkMerge::add(const GroupAttribute& network) {
    suffix_ = ":" + std::to_string(count_++);
    if (takeTerminals(network)) {
        addNodes(network.getChild<GroupAttribute>("nodes"));
        addInterface(network.getChild<GroupAttribute>("interface"));
        addParameters(network.getChild<GroupAttribute>("parameters"));
    }
}

GroupAttribute NetworkMerge::result() const {
    ChildList material = {{"style", StringAttribute("network")}};
    addUnlessEmpty(material, "nodes", nodes_);
    addUnlessEmpty(material, "interface", interface_);
    addUnlessEmpty(material, "parameters", parameters_);
    addUnlessEmpty(material, "terminals", driven_);
    return GroupAttribute(material, false);
}

/// Whether the network drives one that no nearer network drives.
bool NetworkMerge::takeTerminals(const GroupAttribute& network) {
    bool isContributing = false;
    for (const std::string& terminal : terminals_) {
        if (taken_.count(terminal) != 0) {
            continue;
        }
        const std::string node = textOf(network.getChild<StringAttribute>("terminals." + terminal));
        if (!node.empty()) {
            taken_.insert(terminal);
            driven_.emplace_back(terminal, StringAttribute(node + suffix_));
            isContributing = true;
        }
    }
    return isContributing;
}

void NetworkMerge::addNodes(const GroupAttribute& nodes) {
    nodes_.reserve(nodes_.size() + static_cast<std::size_t>(nodes.getNumberOfChildren()));
    for (std::int64_t i = 0; i < nodes.getNumberOfChildren(); ++i) {
        const auto node = castAttribute<GroupAttribute>(nodes.getChildByIndex(i));
        if (node) {
            const std::string name = nodes.getChildName(i) + suffix_;
            nodes_.emplace_back(name, renamedNode(node, name));
        }
    }
}

GroupAttribute NetworkMerge::renamedNode(const GroupAttribute& node,
                                         const std::string& name) const {
    ChildList keys;
    node.fillChildVector(&keys);
    bool isNamed = false;
    for (auto& [key, value] : keys) {
        if (key == "name") {
            value = StringAttribute(name);
            isNamed = true;
        } else if (key == "connections") {
            value = renamedConnections(value);
        }
    }
    if (!isNamed) {
        keys.emplace_back("name", StringAttribute(name));
    }
    return GroupAttribute(keys, false);
}

/// The source of a connection ends in the name of its node. What is no group, or an empty one, is
/// given as it stands.
Attribute NetworkMerge::renamedConnections(const Attribute& connections) const {
    ChildList renamed;
    castAttribute<GroupAttribute>(connections).fillChildVector(&renamed);
    for (auto& [name, source] : renamed) {
        if (source.getType() == StringAttribute::kType) {
            source = StringAttribute(textOf(castAttribute<StringAttribute>(source)) + suffix_);
        }
    }
    return renamed.empty() ? connections : GroupAttribute(renamed, true);
}

void NetworkMerge::addInterface(const GroupAttribute& interface) {
    for (std::int64_t i = 0; i < interface.getNumberOfChildren(); ++i) {
        const auto entry = castAttribute<GroupAttribute>(interface.getChildByIndex(i));
        const auto source = entry.getChild<StringAttribute>("src");
        TextPair nodeAndParameter;
        if (source && splitInTwo(textOf(source), ".", nodeAndParameter)) {
            std::string renamed = nodeAndParameter.first + suffix_;
            renamed.append(".").append(nodeAndParameter.second);
            interface_.emplace_back(interface.getChildName(i) + suffix_,
                                    GroupAttribute({{"src", StringAttribute(renamed)}}, false));
        }
    }
}

void NetworkMerge::addParameters(const GroupAttribute& parameters) {
    for (std::int64_t i = 0; i < parameters.getNumberOfChildren(); ++i) {
        parameters_.emplace_back(parameters.getChildName(i) + suffix_,
                                 parameters.getChildByIndex(i));
    }
}

}  // namespace SYLVAR
