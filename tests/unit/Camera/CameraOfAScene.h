// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/ClientFactory.h>
#include <OvSylvarProducers/SyncGeometryProducer.h>
#include <OvSylvarProducers/ThreadAwareGeometryProducer.h>

#include "support/OpTree.h"
#include "unit/Camera/CameraWords.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace ovtest {

enum class SceneKind { Static, ThreadAware, Sync };

/// What holds for the cameras of every kind of scene. No camera is known when a test begins.
class CameraOfAScene : public testing::TestWithParam<SceneKind> {
public:
    CameraOfAScene() { SYLVAR::ClearCameraInfoCache(); }
    ~CameraOfAScene() override { SYLVAR::ClearCameraInfoCache(); }

protected:
    /// The top of the scene, as the test's kind of producer gives it.
    static SYLVAR::GeometryProducerPtr open(const StaticScene& scene) {
        if (GetParam() == SceneKind::Static) {
            return scene.open();
        }
        const auto tree = OpTree().op("scene", "scene", Args().set("tree", scene.group())).group();
        if (GetParam() == SceneKind::ThreadAware) {
            return SYLVAR::CreateThreadAwareGeometryProducer(tree, "/root");
        }
        return SYLVAR::CreateSyncGeometryProducer(
            SYLVAR::ClientCreateWithOpTree(SYLVAR::OpTreeSource::createFromGroupAttribute(tree)),
            "/root");
    }

    /// The scene's camera, read anew.
    static std::shared_ptr<SYLVAR::CameraInfo> cameraOf(const StaticScene& scene) {
        SYLVAR::ClearCameraInfoCache();
        return rememberedCameraOf(scene);
    }

    /// The same, or what is remembered.
    static std::shared_ptr<SYLVAR::CameraInfo> rememberedCameraOf(const StaticScene& scene) {
        return SYLVAR::GetCameraInfo(open(scene), kCamera);
    }
};

inline std::string nameOfScene(const testing::TestParamInfo<SceneKind>& info) {
    const char* const names[] = {"Static", "ThreadAware", "Sync"};
    return names[static_cast<int>(info.param)];
}

inline auto everyScene() {
    return testing::Values(SceneKind::Static, SceneKind::ThreadAware, SceneKind::Sync);
}

}  // namespace ovtest
