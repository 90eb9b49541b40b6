// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/CameraInfo.h>

#include "support/StaticScene.h"

#include <array>
#include <string>

/// Cameras in words: `withCamera(StaticScene(), kCamera).set(kCamera, "geometry.fov", ...)`.
namespace ovtest {

constexpr char kCamera[] = "/root/world/cam/camera";

/// What every camera must tell of its lens.
constexpr std::array<const char*, 7>
    kLensNames{"fov", "near", "far", "left", "right", "top", "bottom"};

/// The value of a lens that a test says nothing else of: no two alike, and none that a float holds.
inline double lensValue(const std::string& name) {
    double value = 0.1;
    for (const char* const known : kLensNames) {
        value += 1;
        if (name == known) {
            return value;
        }
    }
    return 0;
}

/// A "geometry" with the seven values, a projection and nothing else.
inline SYLVAR::GroupAttribute lens(const char* projection = "perspective") {
    using namespace Sylvar3::internal::OvAttribute;
    GroupBuilder builder;
    for (const char* const name : kLensNames) {
        builder.set(name, DoubleAttribute(lensValue(name)));
    }
    return builder.set("projection", StringAttribute(projection)).build();
}

/// The scene with such a camera, of which single values may be set afterwards.
inline StaticScene withCamera(StaticScene scene, const std::string& path = kCamera) {
    using Sylvar3::internal::OvAttribute::DoubleAttribute;
    scene.set("/root", "type", "group").set(path, "type", "camera");
    for (const char* const name : kLensNames) {
        scene.set(path, std::string("geometry.") + name, DoubleAttribute(lensValue(name)));
    }
    return scene;
}

/// The seven floats, in their order.
template <class Record>
std::array<float, 7> lensOf(const Record& record) {
    return {
        record.fov, record.near, record.far, record.left, record.right, record.top, record.bottom};
}

}  // namespace ovtest
