// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/Projection.h>
#include <OvSylvarProducers/RenderResolution.h>

#include "Camera/CameraPath.h"
#include "Camera/GlobalMatrix.h"

#include <stdexcept>

namespace SYLVAR {
namespace {

using Matrix = Imath::Matrix44<double>;
using Vector = Imath::Vec3<double>;

/// From clip space to pixels, y upward.
Matrix multipliedToPixels(const Matrix& clip, int xres, int yres) {
    const Matrix half = Matrix().setScale(Vector(0.5, 0.5, 0.5));
    const Matrix middle = Matrix().setTranslation(Vector(0.5, 0.5, 0.5));
    const Matrix picture = Matrix().setScale(Vector(xres, yres, 1));
    return clip * half * middle * picture;
}

std::shared_ptr<CameraInfo> renderCamera(const GeometryProducerPtr& root) {
    std::shared_ptr<CameraInfo> info = GetCameraInfo(root, GetRenderCameraPath(root));
    if (!info) {
        throw std::runtime_error("Could not get camera info.");
    }
    return info;
}

}  // namespace

Matrix GetLocalToScreenMatrix(GeometryProducerPtr target) {
    if (!target) {
        throw std::runtime_error("Invalid target producer provided.");
    }
    const Matrix local = GetGlobalMatrixAtTimeZero(target->getGlobalXFormGroup());
    const GeometryProducerPtr root = target->getRootProducer();
    if (!root) {
        throw std::runtime_error("Could not get root producer from target producer.");
    }
    const std::shared_ptr<CameraInfo> info = renderCamera(root);
    std::string name;
    int xres = 0;
    int yres = 0;
    GetRenderResolution(&name, &xres, &yres, root);
    const float aspect = static_cast<float>(xres) / static_cast<float>(yres);
    const Matrix projection = GetProjectionMatrix(*info, aspect);
    return multipliedToPixels(local * info->xform.inverse(false) * projection, xres, yres);
}

}  // namespace SYLVAR
