// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <assimp/camera.h>

#include "AssetFormat.h"
#include "Scene/LocationMaker.h"

namespace AssimpImport {

/// A location of the type "camera", which looks along its -z.
SuiteHandle makeCameraLocation(const LocationMaker& locations,
                               const aiCamera& camera,
                               const AssetFormat& format);

}  // namespace AssimpImport
