// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/CameraInfo.h>
#include <OvSylvarProducers/ThreadAwareGeometryProducer.h>
#include <ResolutionTableOv/ResolutionTable.h>

#include "ReferenceProjection.h"
#include "support/OpTree.h"
#include "support/StaticScene.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

namespace ovtest {

/// What stands behind the producers of a scene.
enum class Behind { Group, Runtime };

inline std::string nameOf(const testing::TestParamInfo<Behind>& info) {
    return info.param == Behind::Group ? "Group" : "Runtime";
}

/// The top of the scene. Forgets all cameras: over a runtime scenes whose tops are equal share
/// them.
inline SYLVAR::GeometryProducerPtr openScene(const StaticScene& scene, Behind behind) {
    SYLVAR::ClearCameraInfoCache();
    if (behind == Behind::Group) {
        return scene.open();
    }
    const OpTree tree = OpTree().op("scene", "scene", Args().set("tree", scene.group()));
    return SYLVAR::CreateThreadAwareGeometryProducer(tree.group(), "/root");
}

inline Sylvar3::internal::OvAttribute::DoubleAttribute attributeOf(
    const reference::Matrix& matrix) {
    std::vector<double> values;
    for (const auto& row : matrix) {
        values.insert(values.end(), row.begin(), row.end());
    }
    return Sylvar3::internal::OvAttribute::DoubleAttribute(values, 16);
}

inline Sylvar3::internal::OvAttribute::DoubleAttribute attributeOf(
    const std::array<double, 6>& bound) {
    return Sylvar3::internal::OvAttribute::DoubleAttribute(bound.data(), 6, 2);
}

inline Sylvar3::internal::OvAttribute::GroupAttribute geometryOf(const reference::Camera& camera) {
    const auto number = [](float value) {
        return Sylvar3::internal::OvAttribute::DoubleAttribute(static_cast<double>(value));
    };
    return Sylvar3::internal::OvAttribute::GroupBuilder()
        .set("fov", number(camera.fov))
        .set("near", number(camera.near))
        .set("far", number(camera.far))
        .set("left", number(camera.left))
        .set("right", number(camera.right))
        .set("top", number(camera.top))
        .set("bottom", number(camera.bottom))
        .set("projection",
             Sylvar3::internal::OvAttribute::StringAttribute(camera.orthographic ? "orthographic"
                                                                                 : "perspective"))
        .set("orthographicWidth", number(camera.orthographicWidth))
        .build();
}

inline void putCamera(StaticScene& scene,
                      const std::string& path,
                      const reference::Camera& camera) {
    scene.set(path, "geometry", geometryOf(camera))
        .set(path, "xform.matrix", attributeOf(camera.xform));
}

/// The scene of a single camera, where a render looks for one, and of the location "/root/a".
inline StaticScene sceneOf(const reference::Camera& camera,
                           const reference::Matrix& local = reference::identity()) {
    StaticScene scene;
    putCamera(scene, "/root/world/cam/camera", camera);
    scene.set("/root/a", "xform.matrix", attributeOf(local));
    return scene;
}

/// A test that begins without remembered cameras, and may put tables of resolutions in place.
class CameraTest : public testing::Test {
protected:
    static constexpr const char* kCamera = "/root/world/cam/camera";

    CameraTest() { SYLVAR::ClearCameraInfoCache(); }
    ~CameraTest() override {
        ORM_OV::ResolutionTable::v4::SetResolutionTable(nullptr, table_);
        SYLVAR::ClearCameraInfoCache();
    }

    /// Puts a table of one resolution in place of the default one.
    static void setTable(const std::string& name, int xres, int yres) {
        using namespace ORM_OV::ResolutionTable::v4;
        SetResolutionTable(nullptr,
                           std::make_shared<ResolutionTable>(
                               std::vector<Resolution>{{xres, yres, 1.0, name, "", ""}}));
    }
    static void takeTableAway() {
        ORM_OV::ResolutionTable::v4::SetResolutionTable(nullptr, nullptr);
    }

private:
    const std::shared_ptr<ORM_OV::ResolutionTable::v4::ResolutionTable> table_ =
        ORM_OV::ResolutionTable::v4::GetResolutionTable(nullptr);
};

/// A test of scenes of every kind.
class CameraScene : public CameraTest, public testing::WithParamInterface<Behind> {};

}  // namespace ovtest
