// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Attributes/AttributeMaker.h"

#include <assimp/material.h>

namespace AssimpImport {

/// The parameters of a "standard_surface" node that a material gives: floats, and colours of three.
/// A material of an older kind is turned into the nearest look.
GroupEntries makeSurfaceParameters(const AttributeMaker& make, const aiMaterial& material);

/// The colour of the surface under even light, within 0 to 1.
std::vector<float> baseColorOf(const aiMaterial& material);

}  // namespace AssimpImport
