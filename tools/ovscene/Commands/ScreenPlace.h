// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Commands/CameraView.h"

#include <Imath/ImathBox.h>
#include <Imath/ImathMatrix.h>

#include <string>

namespace ovscene {

/// Where a location is in the picture.
struct ScreenPlace {
    Imath::M44d localToScreen;  ///< To pixels; a point is divided by its fourth coordinate.
    int pixelArea = 0;

    /// What the corners of "bound" take up: from 0 to 1 across the screen rectangle, and from the
    /// near to the far distance.
    Imath::Box3d normalised;
    Imath::Box3d pixels;    ///< The same in pixels, y upward; z is the distance from the camera.
    int cornersBehind = 0;  ///< Of the eight; their places in the picture mean nothing.
};

/// Throws NotFound when the location has no "bound" of six doubles. `path` is told of then.
ScreenPlace screenPlace(const SceneFile& file,
                        const SYLVAR::GeometryProducerPtr& location,
                        const std::string& path,
                        const CameraView& view);

}  // namespace ovscene
