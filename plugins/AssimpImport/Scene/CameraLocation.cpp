// SPDX-License-Identifier: Apache-2.0
#include "Scene/CameraLocation.h"

#include "Scene/CameraLens.h"

#include <cmath>

namespace AssimpImport {
namespace {

// The bank is told as y turned about the line of sight; here it is z that points up.
aiVector3D chunkUp(const aiCamera& camera) {
    const aiVector3D level = aiVector3D(0, 1, 0) - camera.mLookAt * camera.mLookAt.y;
    const aiVector3D banked = camera.mUp - camera.mLookAt * (camera.mUp * camera.mLookAt);
    const float angle = std::atan2((level ^ banked) * camera.mLookAt, level * banked);
    return aiQuaternion(camera.mLookAt, angle).Rotate(aiVector3D(0, 0, 1));
}

Matrix cameraFrame(const aiCamera& camera, const AssetFormat& format) {
    switch (format.fieldOfView) {
        case FieldOfView::VerticalTimesAspect:
            return kIdentity;  // the node is the camera's frame; its position would count twice
        case FieldOfView::LensLength:
            return frameAlong(camera.mPosition, camera.mLookAt, chunkUp(camera));
        case FieldOfView::Horizontal:
            break;
    }
    return frameAlong(camera.mPosition, camera.mLookAt, camera.mUp);
}

SuiteHandle makeGeometry(const AttributeMaker& make, const CameraLens& lens) {
    GroupEntries geometry;
    geometry.add("fov", make.number(lens.fov));
    geometry.add("near", make.number(lens.nearClip));
    geometry.add("far", make.number(lens.farClip));
    geometry.add("left", make.number(-1.0));
    geometry.add("right", make.number(1.0));
    geometry.add("top", make.number(1.0 / lens.aspect));
    geometry.add("bottom", make.number(-1.0 / lens.aspect));
    geometry.add("projection", make.string(lens.orthographic ? "orthographic" : "perspective"));
    if (lens.orthographic) {
        geometry.add("orthographicWidth", make.number(lens.orthographicWidth));
    }
    return make.group(geometry);
}

}  // namespace

SuiteHandle makeCameraLocation(const LocationMaker& locations,
                               const aiCamera& camera,
                               const AssetFormat& format) {
    GroupEntries attributes = locations.attributes("camera", textOf(camera.mName));
    locations.addXform(attributes, cameraFrame(camera, format));
    attributes.add("geometry", makeGeometry(locations.make(), readLens(camera, format)));
    return locations.location(attributes);
}

}  // namespace AssimpImport
