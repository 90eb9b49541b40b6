// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "AssetFormat.h"
#include "Scene/LocationMaker.h"

#include <assimp/camera.h>

namespace AssimpImport {

/// A location of the type "camera", which looks along its -z.
SuiteHandle makeCameraLocation(const LocationMaker& locations,
                               const aiCamera& camera,
                               const AssetFormat& format);

}  // namespace AssimpImport
