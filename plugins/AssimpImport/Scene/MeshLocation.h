// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <assimp/mesh.h>

#include "AssetFormat.h"
#include "Scene/LocationMaker.h"

namespace AssimpImport {

/// A location of the type "mesh"; null when the mesh holds no polygon. `material` may be null.
SuiteHandle makeMeshLocation(const LocationMaker& locations,
                             const aiMesh& mesh,
                             const AssetFormat& format,
                             const SuiteHandle& material);

}  // namespace AssimpImport
