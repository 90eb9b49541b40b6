// SPDX-License-Identifier: Apache-2.0
#include "support/RenderOutputTest.h"

using ovtest::Camera;
using ovtest::StaticScene;
using ovtest::written;
using testing::ElementsAreArray;

namespace {

class CameraEntries : public ovtest::RenderOutputTest {
protected:
    Camera camera(Handle root, const char* path = kCamera) const {
        return Camera(table.getCameraInfo(root, path));
    }

    std::vector<double> xformOf(const Camera& camera) const {
        const double* const values = table.getCameraXform(camera.get());
        return values ? std::vector<double>(values, values + 16) : std::vector<double>();
    }
};

}  // namespace

TEST_F(CameraEntries, TellOfEveryValueOfTheLens) {
    const Camera one = camera(at(cameraScene()));
    ASSERT_NE(nullptr, one);
    EXPECT_EQ(40.5F, table.getCameraFov(one.get()));
    EXPECT_EQ(0.5F, table.getCameraNear(one.get()));
    EXPECT_EQ(1000.0F, table.getCameraFar(one.get()));
    EXPECT_EQ(-1.5F, table.getCameraLeft(one.get()));
    EXPECT_EQ(1.25F, table.getCameraRight(one.get()));
    EXPECT_EQ(0.75F, table.getCameraTop(one.get()));
    EXPECT_EQ(-0.625F, table.getCameraBottom(one.get()));
    EXPECT_EQ(8.0F, table.getCameraOrthographicWidth(one.get()));
    EXPECT_FALSE(table.isCameraOrthographic(one.get()));
}

TEST_F(CameraEntries, TellWhetherItIsOrthographic) {
    StaticScene scene = cameraScene();
    scene.set(kCamera, "geometry.projection", "orthographic");
    EXPECT_TRUE(table.isCameraOrthographic(camera(at(scene)).get()));
}

TEST_F(CameraEntries, TellOfTheWayFromTheCameraToTheWorldForRowVectors) {
    StaticScene scene = cameraScene();
    scene.set(kCamera, "xform.translate", written("[3.0, 4.0, 5.0]"));
    EXPECT_THAT(xformOf(camera(at(scene))),
                ElementsAreArray({1.0,
                                  0.0,
                                  0.0,
                                  0.0,
                                  0.0,
                                  1.0,
                                  0.0,
                                  0.0,  //
                                  0.0,
                                  0.0,
                                  1.0,
                                  0.0,
                                  3.0,
                                  4.0,
                                  5.0,
                                  1.0}));
}

TEST_F(CameraEntries, FindTheCameraBelowTheRootFromAnyLocation) {
    StaticScene scene = cameraScene();
    EXPECT_NE(nullptr, camera(at(scene), "root/world/cam/camera"));
    EXPECT_EQ(nullptr, camera(at(scene), "/world/cam/camera"));
    EXPECT_NE(nullptr, camera(at(scene, "/root/world"), "/world/cam/camera"));
}

TEST_F(CameraEntries, GiveTheNullHandleWhereThereIsNoCamera) {
    StaticScene scene = cameraScene();
    scene.set("/root/text", "geometry", "lens").at("/root/bare");
    const Handle root = at(scene);
    for (const char* const path : {"/root/none", "/root/bare", "/root/text", "/root", "/", ""}) {
        EXPECT_EQ(nullptr, table.getCameraInfo(root, path)) << path;
    }
}

TEST_F(CameraEntries, OfALocationWithoutACameraReadAsZero) {
    CameraInfoStruct* const none = table.getCameraInfo(at(cameraScene()), "/root/none");
    ASSERT_EQ(nullptr, none);
    EXPECT_EQ(0.0F, table.getCameraFov(none));
    EXPECT_EQ(0.0F, table.getCameraNear(none));
    EXPECT_EQ(0.0F, table.getCameraFar(none));
    EXPECT_EQ(0.0F, table.getCameraLeft(none));
    EXPECT_EQ(0.0F, table.getCameraRight(none));
    EXPECT_EQ(0.0F, table.getCameraTop(none));
    EXPECT_EQ(0.0F, table.getCameraBottom(none));
}

TEST_F(CameraEntries, MakeANewHandleOfOneReferenceEachTime) {
    const Handle root = at(cameraScene());
    const Camera one = camera(root);
    const Camera other = camera(root);
    ASSERT_NE(nullptr, one);
    ASSERT_NE(nullptr, other);
    EXPECT_NE(one, other);
    EXPECT_EQ(1, ovtest::countIn(one.get()));
    EXPECT_EQ(1, ovtest::countIn(other.get()));
}

TEST_F(CameraEntries, CountTheReferencesOfEachHandleAlone) {
    const Handle root = at(cameraScene());
    const Camera one = camera(root);
    const Camera other = camera(root);
    table.retainCameraInfo(one.get());
    table.retainCameraInfo(one.get());
    EXPECT_EQ(3, ovtest::countIn(one.get()));
    EXPECT_EQ(1, ovtest::countIn(other.get()));
    table.releaseCameraInfo(one.get());
    table.releaseCameraInfo(one.get());
    EXPECT_EQ(1, ovtest::countIn(one.get()));
    EXPECT_EQ(40.5F, table.getCameraFov(one.get()));
}

TEST_F(CameraEntries, PointIntoTheCameraItselfFromEveryHandle) {
    const Handle root = at(cameraScene());
    const Camera one = camera(root);
    const Camera other = camera(root);
    ASSERT_NE(nullptr, table.getCameraXform(one.get()));
    EXPECT_EQ(table.getCameraXform(one.get()), table.getCameraXform(one.get()));
    EXPECT_EQ(table.getCameraXform(one.get()), table.getCameraXform(other.get()));
}

TEST_F(CameraEntries, ReadOneHandleAfterTheOtherAndTheSceneHaveGone) {
    Camera other;
    const double* xform = nullptr;
    {
        ovtest::Iterators gone;
        const Handle root =
            gone.step(SYLVAR::OvGeometryProducerToHandle(cameraScene().open("/root")));
        const Camera one = camera(root);
        other = camera(root);
        xform = table.getCameraXform(one.get());
    }
    SYLVAR::ClearCameraInfoCache();
    EXPECT_EQ(40.5F, table.getCameraFov(other.get()));
    EXPECT_EQ(1.0, xform[15]);
}
