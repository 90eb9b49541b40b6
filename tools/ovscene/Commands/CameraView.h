// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/CameraInfo.h>

#include "Commands/RenderPicture.h"
#include "Scene/SceneFile.h"

#include <Imath/ImathMatrix.h>

#include <memory>
#include <optional>
#include <string>

namespace ovscene {

/// What a render of a scene is seen through.
struct CameraView {
    std::string path;
    std::shared_ptr<const SYLVAR::CameraInfo> info;  ///< Never empty.
    bool isRenders = true;  ///< The render's own camera, and no other that was asked for.
    Picture picture;
    Imath::M44d projection;  ///< For the aspect of the picture.
};

/// The camera at `cameraPath`, or without one the render's, and the render's picture. Throws
/// NotFound, with the reason, when there is no such camera, and when the resolution table does not
/// know the render's resolution. `top` is that of `topProducer`.
CameraView cameraView(const SceneFile& file,
                      const SYLVAR::GeometryProducerPtr& top,
                      const std::optional<std::string>& cameraPath);

}  // namespace ovscene
