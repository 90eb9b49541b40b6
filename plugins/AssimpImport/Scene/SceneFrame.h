// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/suites/AssetImporter.h>

#include "AssetFormat.h"
#include "Scene/Matrix.h"

#include <assimp/scene.h>

namespace AssimpImport {

/// From the space of the file's root node to the scene's: turned to y up, and scaled. What the
/// reader has done already is not done again, and undone where the options say otherwise.
Matrix sceneFrame(const aiScene& scene,
                  const AssetFormat& format,
                  const OvAssetImportOptions& options);

}  // namespace AssimpImport
