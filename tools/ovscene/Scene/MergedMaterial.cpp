// SPDX-License-Identifier: Apache-2.0
#include "Scene/MergedMaterial.h"

#include <OvSylvarProducers/FlattenedMaterial.h>

#include "Print/JoinedText.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace ovscene {
namespace {

namespace OvAttribute = Sylvar3::internal::OvAttribute;

using Names = std::vector<std::string>;

/// The number behind the last ":", which a merge of networks puts behind every name.
std::size_t numberBehind(std::string_view name) {
    std::size_t number = 0;
    const std::string_view digits = name.substr(name.rfind(':') + 1);
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number;
}

void readTerminals(MergedMaterial& merged) {
    const auto terminals = merged.group.getChild<GroupAttribute>("terminals");
    for (std::int64_t i = 0; i < terminals.getNumberOfChildren(); ++i) {
        const std::string node =
            textOf(OvAttribute::castAttribute<StringAttribute>(terminals.getChildByIndex(i)));
        if (!node.empty()) {
            const std::size_t number = merged.isMerged() ? numberBehind(node) : 0;
            merged.terminals.push_back({terminals.getChildName(i), node, number});
            merged.shares[number].gives.push_back(terminals.getChildName(i));
        }
    }
}

void countNodes(MergedMaterial& merged) {
    const auto nodes = merged.group.getChild<GroupAttribute>("nodes");
    for (std::int64_t i = 0; i < nodes.getNumberOfChildren(); ++i) {
        ++merged.shares[merged.isMerged() ? numberBehind(nodes.getChildNameView(i)) : 0].nodes;
    }
}

/// The number of the nearest material that has a child, by the child's name.
std::unordered_map<std::string_view, std::size_t> childOrigins(const MaterialChain& chain,
                                                               VisitLimit& limit) {
    std::unordered_map<std::string_view, std::size_t> origins;  // the names lie in the chain
    for (std::size_t number = 0; number < chain.size(); ++number) {
        const GroupAttribute& group = chain[number].group;
        for (std::int64_t i = 0; i < group.getNumberOfChildren(); ++i) {
            limit.count();
            origins.emplace(group.getChildNameView(i), number);
        }
    }
    return origins;
}

void readClassic(MergedMaterial& merged, VisitLimit& limit) {
    const auto origins = childOrigins(merged.chain, limit);
    for (std::int64_t i = 0; i < merged.group.getNumberOfChildren(); ++i) {
        const std::string name = merged.group.getChildName(i);
        const std::size_t number = origins.at(name);
        merged.childOrigins.push_back(number);
        merged.shares[number].gives.push_back(name);
    }
    for (const std::string& name : terminalsOf(merged.group, limit)) {
        const std::string shader = name + "Shader";
        merged.terminals.push_back(
            {name, textOf(merged.group.getChild<StringAttribute>(shader)), origins.at(shader)});
    }
}

/// Why a network merge has nothing of a material that has these terminals of its own.
std::string whyNetworkDropped(const Names& own, const std::unordered_set<std::string>& driven) {
    Names taken;
    std::copy_if(own.begin(), own.end(), std::back_inserter(taken), [&](const std::string& name) {
        return driven.count(name) != 0;
    });
    if (!taken.empty()) {
        return "nearer materials drive " + joined(taken);
    }
    return own.empty() ? "it drives no terminal" : "it only drives " + joined(own);
}

std::string whyClassicDropped(const GroupAttribute& material) {
    return material.getNumberOfChildren() == 0 ? "it is empty"
                                               : "nearer materials have all that it has";
}

void explainDropped(MergedMaterial& merged, VisitLimit& limit) {
    std::unordered_set<std::string> driven;
    for (const DrivenTerminal& terminal : merged.terminals) {
        driven.insert(terminal.name);
    }
    for (std::size_t i = 0; merged.isMerged() && i < merged.chain.size(); ++i) {
        const GroupAttribute& material = merged.chain[i].group;
        if (merged.shares[i].gives.empty()) {
            merged.shares[i].whyDropped =
                merged.isNetwork ? whyNetworkDropped(terminalsOf(material, limit), driven)
                                 : whyClassicDropped(material);
        }
    }
}

Names undrivenOf(const Names& wanted, const std::vector<DrivenTerminal>& terminals) {
    std::unordered_set<std::string> seen;
    for (const DrivenTerminal& terminal : terminals) {
        seen.insert(terminal.name);
    }
    Names undriven;
    std::copy_if(
        wanted.begin(), wanted.end(), std::back_inserter(undriven), [&](const std::string& name) {
            return seen.insert(name).second;
        });
    return undriven;
}

}  // namespace

MergedMaterial mergedMaterial(const SYLVAR::GeometryProducerPtr& location,
                              const std::string& path,
                              const std::optional<std::vector<std::string>>& terminals,
                              const std::string& filename) {
    VisitLimit limit(filename);
    MergedMaterial merged;
    merged.chain = materialChain(location, path, filename);
    merged.shares.resize(merged.chain.size());
    const Names all = terminalsOf(merged.chain, limit);
    merged.group = SYLVAR::GetFlattenedMaterialAttr(location, terminals ? *terminals : all);
    merged.isNetwork = isNetworkMaterial(merged.group);
    if (merged.isNetwork) {
        readTerminals(merged);
        countNodes(merged);
    } else {
        readClassic(merged, limit);
    }
    explainDropped(merged, limit);
    merged.undriven = undrivenOf(terminals ? *terminals : Names(), merged.terminals);
    return merged;
}

}  // namespace ovscene
