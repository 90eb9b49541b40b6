// SPDX-License-Identifier: Apache-2.0
#include "Camera/CameraBasis.h"

#include <cmath>

namespace SYLVAR {
namespace {

using Vector = Imath::Vec3<double>;

Vector turned(const Imath::Matrix44<double>& matrix, const Vector& direction) {
    Vector result;
    matrix.multDirMatrix(direction, result);
    return result.normalize();
}

}  // namespace

CameraBasis::CameraBasis(const CameraInfo& info)
    : eye_(info.xform[3][0], info.xform[3][1], info.xform[3][2]) {
    const Imath::Matrix44<double> turning = info.xform.inverse(false).transposed();
    forward_ = turned(turning, Vector(0, 0, -1));
    up_ = turned(turning, Vector(0, 1, 0));
    right_ = turned(turning, Vector(1, 0, 0));
}

CameraCoordinates CameraBasis::coordinatesOf(const Vector& world) const {
    const Vector fromEye = world - eye_;
    const double depth = forward_.dot(fromEye);
    const Vector inPlane = fromEye - forward_ * depth;
    const double x = right_.dot(inPlane);
    const double y = up_.dot(inPlane);
    return {depth, x, y, std::atan2(x, depth), std::atan2(y, depth)};
}

double halfViewTangent(const CameraInfo& info) {
    return std::tan((static_cast<double>(info.fov) / 180.0) * 3.141592653589793 * 0.5);
}

}  // namespace SYLVAR
