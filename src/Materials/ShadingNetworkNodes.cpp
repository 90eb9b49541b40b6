// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/ShadingNodeDescription.h>

#include "Materials/MaterialStyle.h"

#include <boost/smart_ptr/make_shared.hpp>

#include <utility>

namespace SYLVAR {
namespace {

using Sylvar3::internal::OvAttribute::castAttribute;

/// The values that the interface of a network gives to parameters, by the keys of its nodes.
using Overrides = std::map<std::string, ShadingNodeDescription::Parameters>;

Overrides overridesOf(const GroupAttribute& network) {
    Overrides overrides;
    const auto parameters = network.getChild<GroupAttribute>("parameters");
    const auto interface = network.getChild<GroupAttribute>("interface");
    for (std::int64_t i = 0; i < parameters.getNumberOfChildren(); ++i) {
        const Attribute value = parameters.getChildByIndex(i);
        const auto source = interface.getChild<GroupAttribute>(parameters.getChildNameView(i))
                                .getChild<StringAttribute>("src");
        TextPair nodeAndParameter;
        if (value && source && splitInTwo(textOf(source), ".", nodeAndParameter)) {
            overrides[nodeAndParameter.first][nodeAndParameter.second] = value;
        }
    }
    return overrides;
}

}  // namespace

void ShadingNodeDescription::GetShadingNetworkNodes(const GroupAttribute& network, Nodes& nodes) {
    nodes.clear();
    if (!network) {
        return;
    }
    const Overrides overrides = overridesOf(network);
    const auto children = network.getChild<GroupAttribute>("nodes");
    for (std::int64_t i = 0; i < children.getNumberOfChildren(); ++i) {
        const auto found = overrides.find(children.getChildName(i));
        const auto node = boost::make_shared<ShadingNodeDescription>(
            castAttribute<GroupAttribute>(children.getChildByIndex(i)),
            found == overrides.end() ? nullptr : &found->second);
        if (node->isValid()) {
            nodes[node->getName()] = node;
        }
    }
}

void ShadingNodeDescription::GetShadingNetworkNodes(GeometryProducerPtr producer, Nodes& nodes) {
    const GeometryProducerPtr location = std::move(producer);
    GetShadingNetworkNodes(castAttribute<GroupAttribute>(location->getAttribute("material")),
                           nodes);
}

}  // namespace SYLVAR
