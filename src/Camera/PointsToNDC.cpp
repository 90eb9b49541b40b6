// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/Projection.h>

#include "Camera/CameraBasis.h"
#include "Camera/GlobalMatrix.h"

#include <cmath>

namespace SYLVAR {
namespace {

using Vector = Imath::Vec3<double>;

/// The screen rectangle and the depths of a camera, in the units of its screen coordinates.
class Screen {
public:
    explicit Screen(const CameraInfo& info)
        : isOrthographic_(info.orthographic),
          tangent_(halfViewTangent(info)),
          left_(scaled(info, info.left)),
          right_(scaled(info, info.right)),
          top_(scaled(info, info.top)),
          bottom_(scaled(info, info.bottom)),
          near_(info.near),
          depth_(info.far - info.near) {}

    Vector normalised(const CameraCoordinates& at) const {
        const double x = isOrthographic_ ? at.x : std::tan(at.angleX) / tangent_;
        const double y = isOrthographic_ ? at.y : std::tan(at.angleY) / tangent_;
        return {(x - left_) / (right_ - left_),
                (y - bottom_) / (top_ - bottom_),
                (at.depth - near_) / depth_};
    }

private:
    static double scaled(const CameraInfo& info, float edge) {
        const double halfWidth = static_cast<double>(info.orthographicWidth) * 0.5;
        return info.orthographic ? edge * halfWidth : edge;
    }

    bool isOrthographic_;
    double tangent_;
    double left_;
    double right_;
    double top_;
    double bottom_;
    double near_;
    double depth_;
};

}  // namespace

void ConvertPointListToNDC(GeometryProducerPtr producer,
                           const std::string& cameraPath,
                           std::vector<Vector>& points) {
    const auto info = GetCameraInfo(producer->getRootProducer(), cameraPath);
    if (!info) {
        return;
    }
    const CameraBasis camera(*info);
    const Screen screen(*info);
    const auto local = GetGlobalMatrixAtTimeZero(producer->getGlobalXFormGroup());
    for (Vector& point : points) {
        Vector world;
        local.multVecMatrix(point, world);
        point = screen.normalised(camera.coordinatesOf(world));
    }
}

}  // namespace SYLVAR
