// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/CameraInfo.h>

#include <Imath/ImathVec.h>

namespace SYLVAR {

/// Where a point of the world lies as a camera sees it.
struct CameraCoordinates {
    double depth;   ///< Along the camera's axis.
    double x;       ///< In the picture plane, to the right.
    double y;       ///< In the picture plane, upward.
    double angleX;  ///< From the axis, to the right, in radians.
    double angleY;  ///< From the axis, upward, in radians.
};

/// Where a camera stands and how it is turned, in the world. Pure; any thread.
class CameraBasis {
public:
    explicit CameraBasis(const CameraInfo& info);

    CameraCoordinates coordinatesOf(const Imath::Vec3<double>& world) const;

private:
    Imath::Vec3<double> eye_;
    Imath::Vec3<double> forward_;
    Imath::Vec3<double> up_;
    Imath::Vec3<double> right_;
};

/// The tangent of half the field of view, with a pi of full precision.
double halfViewTangent(const CameraInfo& info);

}  // namespace SYLVAR
