// SPDX-License-Identifier: Apache-2.0
#include "Materials/NetworkMerge.h"

#include <SylvarPlatform/GroupBuilder.h>

namespace SYLVAR {
namespace {

using Sylvar3::internal::OvAttribute::castAttribute;
using Sylvar3::internal::OvAttribute::GroupBuilder;

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
    GroupBuilder renamed;
    renamed.update(node);
    const ChildList connections = renamedConnections(node.getChild<GroupAttribute>("connections"));
    if (!connections.empty()) {
        renamed.set("connections", GroupAttribute(connections, true));
    }
    return renamed.set("name", StringAttribute(name)).build();
}

/// The source of a connection ends in the name of its node.
ChildList NetworkMerge::renamedConnections(const GroupAttribute& connections) const {
    ChildList renamed;
    connections.fillChildVector(&renamed);
    for (auto& [name, source] : renamed) {
        if (source.getType() == StringAttribute::kType) {
            source = StringAttribute(textOf(castAttribute<StringAttribute>(source)) + suffix_);
        }
    }
    return renamed;
}

void NetworkMerge::addInterface(const GroupAttribute& interface) {
    for (std::int64_t i = 0; i < interface.getNumberOfChildren(); ++i) {
        const auto entry = castAttribute<GroupAttribute>(interface.getChildByIndex(i));
        const auto source = entry.getChild<StringAttribute>("src");
        TextPair nodeAndParameter;
        if (source && splitInTwo(textOf(source), ".", nodeAndParameter)) {
            const auto& [node, parameter] = nodeAndParameter;
            interface_.emplace_back(
                interface.getChildName(i) + suffix_,
                GroupAttribute({{"src", StringAttribute(node + suffix_ + "." + parameter)}},
                               false));
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
