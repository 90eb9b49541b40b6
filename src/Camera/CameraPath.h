// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/GeometryProducer.h>

#include <string>

namespace SYLVAR {

/// The path of the render's camera, for those who cannot do without: "/root/world/cam/camera" when
/// the root's "renderSettings.cameraName" has no text, an attribute without values among them.
///
/// Throws `std::runtime_error`, "No root producer given for determining render camera path.", for a
/// null root. Any thread.
std::string GetRenderCameraPath(GeometryProducerPtr root);

}  // namespace SYLVAR
