// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "AssetFormat.h"

#include <assimp/camera.h>

namespace AssimpImport {

/// A camera's lens; every value is fit for use.
struct CameraLens {
    double fov = 45.0;  ///< The full horizontal angle, in degrees.
    double nearClip = 0.1;
    double farClip = 1000.0;
    double aspect = 1.0;  ///< Width divided by height.
    bool orthographic = false;
    double orthographicWidth = 0.0;  ///< Full width; 0 for a perspective camera.
};

/// The lens of an Assimp camera. What the file leaves out or gives without sense has the default.
CameraLens readLens(const aiCamera& camera, const AssetFormat& format);

}  // namespace AssimpImport
