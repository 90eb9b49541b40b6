// SPDX-License-Identifier: Apache-2.0
#include "Utils/OvRenderOutputUtilsHost/CameraHandle.h"

#include <OvSylvarProducers/RenderOutputUtilsHost.h>
#include <OvSylvarProducers/ScenegraphIteratorHost.h>

#include "Utils/OvRenderOutputUtilsHost/CountedHandle.h"
#include "Utils/OvRenderOutputUtilsHost/LiveCameras.h"

#include <utility>

CameraInfoStruct::CameraInfoStruct(std::shared_ptr<SYLVAR::CameraInfo> itsInfo)
    : info(std::move(itsInfo)) {
    ++SYLVAR::liveCameras().count;
}

CameraInfoStruct::~CameraInfoStruct() {
    --SYLVAR::liveCameras().count;
}

namespace SYLVAR {
namespace RenderOutputUtilsHost {

std::shared_ptr<CameraInfo> OvHandleToCameraInfo(CameraInfoStruct* camera) {
    return camera ? camera->info : nullptr;
}

CameraInfoStruct* OvCameraInfoToHandle(std::shared_ptr<CameraInfo> camera) {
    return camera ? new CameraInfoStruct(std::move(camera)) : nullptr;
}

}  // namespace RenderOutputUtilsHost

namespace {

CameraInfoStruct* getCameraInfo(OvSgIteratorStruct* root, const char* cameraPath) {
    return RenderOutputUtilsHost::OvCameraInfoToHandle(
        GetCameraInfo(OvHandleToGeometryProducer(root), cameraPath));
}

template <float CameraInfo::*value>
float valueOf(CameraInfoStruct* camera) noexcept {
    return camera ? (*camera->info).*value : 0.0F;
}

bool isCameraOrthographic(CameraInfoStruct* camera) noexcept {
    return camera && camera->info->orthographic;
}

const double* getCameraXform(CameraInfoStruct* camera) noexcept {
    return camera ? camera->info->xform.getValue() : nullptr;
}

}  // namespace

void setCameraEntries(OvRenderOutputUtilsSuite& suite) {
    suite.getCameraInfo = getCameraInfo;
    suite.retainCameraInfo = retainHandle<CameraInfoStruct>;
    suite.releaseCameraInfo = releaseHandle<CameraInfoStruct>;
    suite.getCameraFov = valueOf<&CameraInfo::fov>;
    suite.getCameraNear = valueOf<&CameraInfo::near>;
    suite.getCameraFar = valueOf<&CameraInfo::far>;
    suite.getCameraLeft = valueOf<&CameraInfo::left>;
    suite.getCameraRight = valueOf<&CameraInfo::right>;
    suite.getCameraTop = valueOf<&CameraInfo::top>;
    suite.getCameraBottom = valueOf<&CameraInfo::bottom>;
    suite.isCameraOrthographic = isCameraOrthographic;
    suite.getCameraOrthographicWidth = valueOf<&CameraInfo::orthographicWidth>;
    suite.getCameraXform = getCameraXform;
}

}  // namespace SYLVAR
