// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Scene/MaterialChain.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace ovscene {

/// A terminal, what drives it, and which material of the chain that comes from.
struct DrivenTerminal {
    std::string name;
    std::string driver;  ///< A node of a network, or the shader of a classic material.
    std::size_t number = 0;
};

/// What a merge has of one material of the chain.
struct MaterialShare {
    std::vector<std::string> gives;  ///< Terminals; of a classic merge, children.
    std::int64_t nodes = 0;
    std::string whyDropped;  ///< Empty when it is not.
};

/// What shades a location, and where each part came from.
struct MergedMaterial {
    GroupAttribute group;  ///< Null when the chain has classic materials without children alone.
    bool isNetwork = false;
    MaterialChain chain;
    std::vector<MaterialShare> shares;      ///< One for each of the chain.
    std::vector<DrivenTerminal> terminals;  ///< In the order of the merged material.
    std::vector<std::string> undriven;      ///< The terminals asked for that nothing drives.
    std::vector<std::size_t> childOrigins;  ///< Of a classic material: whose each child is.

    bool isMerged() const { return chain.size() > 1; }
};

/// Merges the materials of a location as `GetFlattenedMaterialAttr` does, for the terminals asked
/// for, or without any for all that a material of the chain has. `path` is the location's. Throws
/// NotFound when there is no material, InputMalformed when the chain passes the limit.
MergedMaterial mergedMaterial(const SYLVAR::GeometryProducerPtr& location,
                              const std::string& path,
                              const std::optional<std::vector<std::string>>& terminals,
                              const std::string& filename);

}  // namespace ovscene
