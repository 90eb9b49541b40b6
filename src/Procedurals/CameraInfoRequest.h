// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/CameraInfo.h>

#include <memory>
#include <string>

namespace SYLVAR {

/// How a procedural wants the camera. Nobody acts on `AsAttributes`.
enum class CameraInfoMode { None = 0, AsParameters = 1, AsAttributes = 2 };

/// Reads which camera is wanted, and how. `cameraPath` is empty when none is looked for, and also
/// when that is what the arguments say. Throws what `GetRenderCameraPath` throws.
CameraInfoMode ReadCameraInfoRequest(GeometryProducerPtr producer,
                                     GroupAttribute attrs,
                                     std::string& cameraPath);

/// The camera that goes with the arguments.
struct RequestedCamera {
    std::string path;
    std::shared_ptr<CameraInfo> info;  ///< Empty when none is wanted, or none can be read.
};
RequestedCamera requestedCamera(const GeometryProducerPtr& producer, const GroupAttribute& attrs);

}  // namespace SYLVAR
