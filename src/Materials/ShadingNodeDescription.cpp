// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/ShadingNodeDescription.h>

#include "Materials/MaterialStyle.h"

#include <boost/smart_ptr/make_shared.hpp>

namespace SYLVAR {

namespace {

using Sylvar3::internal::OvAttribute::castAttribute;

/// Groups that repeat their own paths could be entered for ever.
constexpr std::int64_t kMostConnectionEntries = 1 << 20;

}  // namespace

ShadingNodeDescription::ShadingNodeDescription(const GroupAttribute& node,
                                               const Parameters* overrides) {
    const auto name = node.getChild<StringAttribute>("name");
    const auto type = node.getChild<StringAttribute>("type");
    if (!name || !type) {
        return;
    }
    name_ = textOf(name);
    type_ = textOf(type);
    readParameters(node, overrides);
    recursiveGetConnectionNames(node.getChild<GroupAttribute>("connections"), "");
}

void ShadingNodeDescription::readParameters(const GroupAttribute& node,
                                            const Parameters* overrides) {
    const auto parameters = node.getChild<GroupAttribute>("parameters");
    parameterNames_.reserve(static_cast<std::size_t>(parameters.getNumberOfChildren()));
    for (std::int64_t i = 0; i < parameters.getNumberOfChildren(); ++i) {
        parameterNames_.push_back(parameters.getChildName(i));
        parameters_[parameterNames_.back()] = parameters.getChildByIndex(i);
    }
    if (!overrides) {
        return;
    }
    for (const auto& [name, value] : *overrides) {
        if (parameters_.insert_or_assign(name, value).second) {
            parameterNames_.push_back(name);
        }
    }
}

void ShadingNodeDescription::addConnection(const std::string& fullName,
                                           const StringAttribute& source) {
    const auto connection = boost::make_shared<ShadingNodeConnectionDescription>(fullName, source);
    if (connection->isValid()) {
        connectionNames_.push_back(fullName);
        connections_[fullName] = connection;
    }
}

/// Looks for inner groups by their full names within the group they stand in, where dots step into
/// groups: so those of the first level are entered, and no deeper ones, unless a group repeats its
/// own path.
void ShadingNodeDescription::recursiveGetConnectionNames(const GroupAttribute& group,
                                                         const std::string& prefix) {
    struct Level {
        GroupAttribute group;
        std::string prefix;
        std::int64_t next;
    };
    std::vector<Level> levels = {{group, prefix, 0}};
    for (std::int64_t entries = 0; !levels.empty() && entries < kMostConnectionEntries;) {
        Level& here = levels.back();
        if (here.next == here.group.getNumberOfChildren()) {
            levels.pop_back();
            continue;
        }
        const std::string name = here.group.getChildName(here.next);
        const std::string fullName = here.prefix.empty() ? name : here.prefix + "." + name;
        addConnection(fullName,
                      castAttribute<StringAttribute>(here.group.getChildByIndex(here.next)));
        ++here.next;
        ++entries;
        auto inner = here.group.getChild<GroupAttribute>(fullName);
        if (inner) {
            levels.push_back({std::move(inner), fullName, 0});
        }
    }
}

Attribute ShadingNodeDescription::getParameter(const std::string& name) const {
    const auto found = parameters_.find(name);
    return found == parameters_.end() ? Attribute() : found->second;
}

ShadingNodeDescription::ConnectionPtr ShadingNodeDescription::getConnection(
    const std::string& fullName) const {
    const auto found = connections_.find(fullName);
    return found == connections_.end() ? ConnectionPtr() : found->second;
}

}  // namespace SYLVAR
