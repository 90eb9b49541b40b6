// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/ShadingNodeDescription.h>

#include "Scene/VisitLimit.h"

#include <boost/smart_ptr/shared_ptr.hpp>

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace ovscene {

/// A parameter, and the entry of the network's interface that gave its value, when one did.
using OverriddenParameters = std::map<std::string, std::string>;

struct NetworkNode {
    std::string key;                                                ///< In the network's "nodes".
    boost::shared_ptr<SYLVAR::ShadingNodeDescription> description;  ///< Never empty.
    OverriddenParameters overridden;
};

/// A child of "nodes" that is no node, and why.
struct LeftOutNode {
    std::string key;
    std::string reason;
};

/// The nodes of a shading network, in the order of the network.
struct MaterialNetwork {
    std::vector<NetworkNode> nodes;
    std::vector<LeftOutNode> leftOut;
    std::map<std::string, std::size_t> places;  ///< Of the nodes, by their names.

    /// By its name; null when there is none.
    const NetworkNode* find(const std::string& name) const;
};

/// Reads a network material. Throws InputMalformed when it passes the limit.
MaterialNetwork materialNetwork(const SYLVAR::GroupAttribute& material, VisitLimit& limit);

}  // namespace ovscene
