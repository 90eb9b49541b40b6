// SPDX-License-Identifier: Apache-2.0
#include "Camera/CameraPath.h"

#include <OvSylvarProducers/CameraInfo.h>

#include <stdexcept>

namespace SYLVAR {
namespace {

using Sylvar3::internal::OvAttribute::castAttribute;
using Sylvar3::internal::OvAttribute::getStringValue;

constexpr char kDefaultPath[] = "/root/world/cam/camera";

StringAttribute cameraName(GeometryProducer& root) {
    return castAttribute<StringAttribute>(root.getAttribute("renderSettings.cameraName"));
}

}  // namespace

std::string GetCameraPath(GeometryProducerPtr root) {
    if (!root) {
        return "";
    }
    const StringAttribute name = cameraName(*root);
    return name ? getStringValue(name, "", false) : kDefaultPath;
}

std::string GetRenderCameraPath(GeometryProducerPtr root) {
    if (!root) {
        throw std::runtime_error("No root producer given for determining render camera path.");
    }
    return getStringValue(cameraName(*root), kDefaultPath, false);
}

}  // namespace SYLVAR
