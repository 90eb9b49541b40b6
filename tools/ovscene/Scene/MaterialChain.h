// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/GeometryProducer.h>

#include "Scene/VisitLimit.h"

#include <cstddef>
#include <string>
#include <vector>

namespace ovscene {

using SYLVAR::Attribute;
using SYLVAR::GroupAttribute;
using SYLVAR::StringAttribute;

/// One of the materials that a location is shaded with: its own, or one of those above it.
struct ChainMaterial {
    GroupAttribute group;        ///< As it is merged: minimised. Never null.
    std::size_t pathLength = 0;  ///< Of its location's path, which begins the path asked for.
};

/// The nearest first.
using MaterialChain = std::vector<ChainMaterial>;

/// The materials of a location and those above it. `path` has a step for each. Throws NotFound when
/// there are none.
MaterialChain materialChain(SYLVAR::GeometryProducerPtr location,
                            const std::string& path,
                            const std::string& filename);

/// The value at time 0; empty when there is none.
std::string textOf(const StringAttribute& attribute);

/// Whether a material is a network, by its "style".
bool isNetworkMaterial(const GroupAttribute& material);

/// The terminals that a material has a node or a shader for, in its order.
std::vector<std::string> terminalsOf(const GroupAttribute& material, VisitLimit& limit);

/// The terminals of all of them, each once, in the order in which they are come to.
std::vector<std::string> terminalsOf(const MaterialChain& chain, VisitLimit& limit);

}  // namespace ovscene
