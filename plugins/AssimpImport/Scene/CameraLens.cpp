// SPDX-License-Identifier: Apache-2.0
#include "Scene/CameraLens.h"

#include <cmath>

namespace AssimpImport {
namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kDegrees = 180.0 / kPi;
constexpr double kApertureAngle = 2400.0;  // degrees times millimetres
constexpr double kFarOverNear = 10000.0;

bool isPositive(double value) {
    return std::isfinite(value) && value > 0.0;
}

double horizontalAngle(double angle, double aspect, FieldOfView meaning) {
    switch (meaning) {
        case FieldOfView::VerticalTimesAspect:
            return 2.0 * std::atan(aspect * std::tan(angle / aspect / 2.0)) * kDegrees;
        case FieldOfView::LensLength:
            return kApertureAngle / (angle * kDegrees);
        case FieldOfView::Horizontal:
            break;
    }
    return angle * kDegrees;
}

// Assimp converts its own default, 45 degrees, from degrees to radians twice where a COLLADA file
// gives the vertical angle alone.
bool isConvertedTwice(double degrees) {
    return std::abs(degrees - kPi / 4.0) < 1e-6;
}

double fieldOfView(const aiCamera& camera, double aspect, const AssetFormat& format) {
    const double angle = static_cast<double>(camera.mHorizontalFOV);
    const double degrees = horizontalAngle(angle, aspect, format.fieldOfView);
    const bool makesSense = isPositive(degrees) && degrees < 180.0 && !isConvertedTwice(degrees);
    return makesSense ? degrees : CameraLens().fov;
}

void readClipping(const aiCamera& camera, CameraLens& lens) {
    const auto nearClip = static_cast<double>(camera.mClipPlaneNear);
    const auto farClip = static_cast<double>(camera.mClipPlaneFar);
    lens.nearClip = isPositive(nearClip) ? nearClip : lens.nearClip;
    const bool makesSense = isPositive(farClip) && farClip > lens.nearClip;
    lens.farClip = makesSense ? farClip : lens.nearClip * kFarOverNear;
}

}  // namespace

CameraLens readLens(const aiCamera& camera, const AssetFormat& format) {
    CameraLens lens;
    const auto aspect = static_cast<double>(camera.mAspect);
    const auto halfWidth = static_cast<double>(camera.mOrthographicWidth);
    lens.aspect = isPositive(aspect) ? aspect : lens.aspect;
    lens.fov = fieldOfView(camera, lens.aspect, format);
    lens.orthographic = isPositive(halfWidth);
    lens.orthographicWidth = lens.orthographic ? 2.0 * halfWidth : 0.0;
    readClipping(camera, lens);
    return lens;
}

}  // namespace AssimpImport
