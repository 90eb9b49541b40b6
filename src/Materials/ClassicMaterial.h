// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Materials/MaterialStyle.h"

/// Classic materials: flat groups, with "<T>Shader" and "<T>Params" for a terminal T. Pure; any
/// thread.
namespace SYLVAR {

/// The children of all, of one name the nearest; null when there are none.
GroupAttribute mergeClassicMaterials(const std::vector<GroupAttribute>& materials);

/// What a network can say of it: a node for each terminal that has a shader.
GroupAttribute networkOfClassicMaterial(const GroupAttribute& material,
                                        const std::vector<std::string>& terminals);

}  // namespace SYLVAR
