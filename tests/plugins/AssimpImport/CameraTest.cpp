// SPDX-License-Identifier: Apache-2.0
#include "plugins/AssimpImport/Importing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

using namespace importing;

namespace {

constexpr double kDegrees = 180.0 / 3.14159265358979323846;

}  // namespace

TEST(ImportedCamera, OfGltfHasTheHorizontalFieldOfView) {
    const auto camera = locationAt(importFile(dataFile("lenses.gltf")).scene, "ROOT/wide/wide");
    EXPECT_EQ("camera", stringOf(camera, "type"));
    const double fov = 2.0 * std::atan(1.5 * std::tan(0.8 / 2.0)) * kDegrees;
    EXPECT_NEAR(fov, doubleOf(camera, "geometry.fov"), fov * 1e-6);
}

TEST(ImportedCamera, HasEveryLensValue) {
    const auto camera = locationAt(importFile(dataFile("lenses.gltf")).scene, "ROOT/wide/wide");
    EXPECT_EQ("perspective", stringOf(camera, "geometry.projection"));
    EXPECT_DOUBLE_EQ(0.25, doubleOf(camera, "geometry.near"));
    EXPECT_DOUBLE_EQ(50.0, doubleOf(camera, "geometry.far"));
    EXPECT_DOUBLE_EQ(-1.0, doubleOf(camera, "geometry.left"));
    EXPECT_DOUBLE_EQ(1.0, doubleOf(camera, "geometry.right"));
    EXPECT_DOUBLE_EQ(1.0 / 1.5, doubleOf(camera, "geometry.top"));
    EXPECT_DOUBLE_EQ(-1.0 / 1.5, doubleOf(camera, "geometry.bottom"));
}

TEST(ImportedCamera, OfGltfStandsWhereItsNodeStands) {
    const auto scene = importFile(dataFile("lenses.gltf")).scene;
    const auto node = locationAt(scene, "ROOT/wide");
    EXPECT_EQ((std::vector<double>{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 1, 2, 3, 1}),
              doublesOf(node, "xform.matrix"));
    EXPECT_FALSE(attributeOf<GroupAttribute>(locationAt(scene, "ROOT/wide/wide"), "xform"));
}

TEST(ImportedCamera, CanBeOrthographic) {
    const auto camera = locationAt(importFile(dataFile("lenses.gltf")).scene, "ROOT/flat/flat");
    EXPECT_EQ("orthographic", stringOf(camera, "geometry.projection"));
    EXPECT_DOUBLE_EQ(6.0, doubleOf(camera, "geometry.orthographicWidth"));
    EXPECT_DOUBLE_EQ(1.0, doubleOf(camera, "geometry.right"));
    EXPECT_DOUBLE_EQ(1.0 / 1.5, doubleOf(camera, "geometry.top"));
}

TEST(ImportedCamera, OfColladaHasTheFullAngle) {
    const auto scene = importFile(dataFile("zup.dae")).scene;
    EXPECT_NEAR(60.0, doubleOf(locationAt(scene, "stage/wide/wide"), "geometry.fov"), 1e-5);
    EXPECT_NEAR(0.5, doubleOf(locationAt(scene, "stage/wide/wide"), "geometry.top"), 1e-6);
}

TEST(ImportedCamera, OfColladaWithTheVerticalAngleAloneHasTheDefaultLens) {
    const auto scene = importFile(dataFile("zup.dae")).scene;
    EXPECT_DOUBLE_EQ(45.0, doubleOf(locationAt(scene, "stage/tall/tall"), "geometry.fov"));
}

TEST(ImportedCamera, OfFbxLooksAlongXOfItsNode) {
    const auto scene = importFile(dataFile("zup.fbx")).scene;
    const auto camera = locationAt(scene, "RootNode/view/view");
    EXPECT_EQ((std::vector<double>{0, 0, 1, 0, 0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 0, 1}),
              doublesOf(camera, "xform.matrix"));
    EXPECT_NEAR(30.0, doubleOf(camera, "geometry.fov"), 1e-5);
    EXPECT_NEAR(0.25, doubleOf(camera, "geometry.top"), 1e-6);
    EXPECT_DOUBLE_EQ(2.0, doubleOf(camera, "geometry.near"));
}

TEST(ImportedCamera, Of3dsHasTheAngleOfItsLensAndStandsInTheRootsSpace) {
    const auto scene = importFile(dataFile("camera.3ds")).scene;
    const auto camera = locationAt(scene, "<3DSDummyRoot>/view");
    EXPECT_NEAR(48.0, doubleOf(camera, "geometry.fov"), 1e-4);
    const std::vector<double> frame = {1, 0, 0, 0, 0, 0, 1, 0, 0, -1, 0, 0, 1, 2, 3, 1};
    EXPECT_THAT(doublesOf(camera, "xform.matrix"),
                testing::Pointwise(testing::DoubleNear(1e-6), frame));
}

TEST(ImportedCamera, IsLeftOutWhenNotWanted) {
    OvAssetImportOptions options = defaultOptions();
    options.cameras = 0;
    const auto scene = importFile(dataFile("lenses.gltf"), options).scene;
    EXPECT_TRUE(locationAt(scene, "ROOT/wide"));
    EXPECT_FALSE(locationAt(scene, "ROOT/wide/wide"));
    EXPECT_TRUE(locationAt(scene, "ROOT/sun/sun"));
}
