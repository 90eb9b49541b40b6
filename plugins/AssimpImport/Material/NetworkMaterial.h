// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "AssetFormat.h"
#include "Material/ImageNode.h"

#include <assimp/material.h>

namespace AssimpImport {

/// A material as a network: one "standard_surface" node with the nodes of its images, and the
/// terminal "surface".
SuiteHandle makeNetworkMaterial(const AttributeMaker& make,
                                const ImageNodes& images,
                                const aiMaterial& material);

}  // namespace AssimpImport
