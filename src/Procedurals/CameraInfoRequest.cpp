// SPDX-License-Identifier: Apache-2.0
#include "Procedurals/CameraInfoRequest.h"

#include "Camera/CameraPath.h"

namespace SYLVAR {
namespace {

using Sylvar3::internal::OvAttribute::getStringValue;

CameraInfoMode modeOf(const std::string& text) {
    if (text == "As Parameters") {
        return CameraInfoMode::AsParameters;
    }
    return text == "As Attributes" ? CameraInfoMode::AsAttributes : CameraInfoMode::None;
}

/// The path that the arguments name; null when they want the render's camera.
StringAttribute otherCamera(const GroupAttribute& attrs) {
    const auto cameraInfo = attrs.getChild<GroupAttribute>("cameraInfo");
    const auto which = cameraInfo.getChild<StringAttribute>("whichCamera");
    return getStringValue(which, "", false) == "Other Camera"
               ? cameraInfo.getChild<StringAttribute>("cameraPath")
               : StringAttribute();
}

}  // namespace

CameraInfoMode ReadCameraInfoRequest(GeometryProducerPtr producer,
                                     GroupAttribute attrs,
                                     std::string& cameraPath) {
    cameraPath.clear();
    const auto request = attrs.getChild<StringAttribute>("includeCameraInfo");
    const std::string text = getStringValue(request, "", false);
    if (!request || text == "None") {
        return CameraInfoMode::None;
    }
    if (const StringAttribute other = otherCamera(attrs)) {
        cameraPath = getStringValue(other, "", false);
    } else if (const GeometryProducerPtr root = producer->getRootProducer()) {
        cameraPath = GetRenderCameraPath(root);
    }
    return modeOf(text);
}

RequestedCamera requestedCamera(const GeometryProducerPtr& producer, const GroupAttribute& attrs) {
    RequestedCamera camera;
    const CameraInfoMode mode = ReadCameraInfoRequest(producer, attrs, camera.path);
    if (mode == CameraInfoMode::AsParameters && !camera.path.empty()) {
        camera.info = GetCameraInfo(producer->getRootProducer(), camera.path);
    }
    return camera;
}

}  // namespace SYLVAR
