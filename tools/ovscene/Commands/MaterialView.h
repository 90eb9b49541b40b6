// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Scene/MaterialNetwork.h"
#include "Scene/MergedMaterial.h"
#include "Scene/SceneErrors.h"
#include "Scene/SceneFile.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace ovscene {

/// A location, and what shades it.
struct MaterialView {
    std::string file;
    std::string path;
    std::string type;
    MergedMaterial material;
    MaterialNetwork network;  ///< Without nodes for a classic material.
    SceneErrors errors;       ///< The location's own.

    /// The path of the location that a material of the chain is at.
    std::string pathOf(std::size_t number) const {
        return path.substr(0, material.chain[number].pathLength);
    }
};

/// Looks at the location at `path`, for the terminals asked for, or without any for all that there
/// are. Throws NotFound when there is no such location, and when it has no material.
MaterialView materialView(const SceneFile& file,
                          const std::string& path,
                          const std::optional<std::vector<std::string>>& terminals);

/// Throws NotFound for a classic material.
void requireNetwork(const MaterialView& view);

}  // namespace ovscene
