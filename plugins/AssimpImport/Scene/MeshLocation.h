// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "AssetFormat.h"
#include "Scene/LocationMaker.h"

#include <assimp/mesh.h>

namespace AssimpImport {

/// A location of the type "mesh"; null when the mesh holds no polygon. `material` may be null.
SuiteHandle makeMeshLocation(const LocationMaker& locations,
                             const aiMesh& mesh,
                             const AssetFormat& format,
                             const SuiteHandle& material);

}  // namespace AssimpImport
