// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/CameraInfo.h>

#include <memory>
#include <string>

namespace SYLVAR {

/// What `GetCameraInfo` remembers, read from the scene. Any thread.
std::shared_ptr<CameraInfo> readCameraInfo(GeometryProducer& root, const std::string& cameraPath);

}  // namespace SYLVAR
