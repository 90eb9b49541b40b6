// SPDX-License-Identifier: Apache-2.0
#include "plugins/AssimpImport/Importing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace importing;

TEST(ImportedMesh, KeepsItsPolygonsAndPoints) {
    const auto mesh = locationAt(importFile(dataFile("cube.obj")).scene, "cube_obj/cube/cube");
    EXPECT_EQ("mesh", stringOf(mesh, "type"));
    EXPECT_EQ(std::vector<int>(6, 4), intsOf(mesh, "geometry.faceVertexCounts"));
    EXPECT_EQ(24U, intsOf(mesh, "geometry.faceVertexIndices").size());
    EXPECT_EQ(8U * 3U, floatsOf(mesh, "geometry.points").size());
    EXPECT_EQ(3, attributeOf<FloatAttribute>(mesh, "geometry.points").getTupleSize());
    EXPECT_EQ(1, attributeOf<FloatAttribute>(mesh, "geometry.points").getNumberOfTimeSamples());
}

TEST(ImportedMesh, HasItsBound) {
    const auto mesh = locationAt(importFile(dataFile("cube.obj")).scene, "cube_obj/cube/cube");
    EXPECT_EQ((std::vector<double>{-1, 1, -1, 1, -1, 3}), doublesOf(mesh, "bound"));
}

TEST(ImportedMesh, SaysWhereItComesFrom) {
    const auto mesh = locationAt(importFile(dataFile("cube.obj")).scene, "cube_obj/cube/cube");
    EXPECT_EQ(dataFile("cube.obj"), stringOf(mesh, "source.file"));
    EXPECT_EQ("cube", stringOf(mesh, "source.name"));
}

TEST(ImportedMesh, HasTextureCoordinatesForEveryPoint) {
    const auto mesh = locationAt(importFile(dataFile("shared.gltf")).scene, "top/left/triangle");
    EXPECT_EQ(6U, floatsOf(mesh, "geometry.st").size());
    EXPECT_EQ(2, attributeOf<FloatAttribute>(mesh, "geometry.st").getTupleSize());
}

TEST(ImportedMesh, IsOneHandleWhereNodesShareIt) {
    const auto scene = importFile(dataFile("shared.gltf")).scene;
    const auto left = locationAt(scene, "top/left/triangle");
    const auto right = locationAt(scene, "top/right/triangle");
    EXPECT_TRUE(left);
    EXPECT_EQ(left.handle(), right.handle());
}

TEST(ImportedMesh, LeavesOutPointsAndLines) {
    const auto scene = importFile(dataFile("mixed.obj")).scene;
    int meshes = 0;
    for (const auto& location : allLocations(scene)) {
        if (stringOf(location, "type") == "mesh") {
            ++meshes;
            EXPECT_EQ(std::vector<int>{3}, intsOf(location, "geometry.faceVertexCounts"));
        }
    }
    EXPECT_EQ(1, meshes);
}

TEST(ImportedMesh, LeavesOutFacesWithoutAFinitePoint) {
    const auto mesh = locationAt(importFile(dataFile("triangle.ply")).scene, "unnamed/mesh");
    EXPECT_EQ((std::vector<int>{0, 1, 2}), intsOf(mesh, "geometry.faceVertexIndices"));
    EXPECT_EQ((std::vector<float>{0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 0}),
              floatsOf(mesh, "geometry.points"));
}

TEST(ImportedMesh, HasNoIndexBeyondItsPoints) {
    const auto scene = importFile(dataFile("triangle.off")).scene;
    for (const auto& location : allLocations(scene)) {
        const auto points = static_cast<int>(floatsOf(location, "geometry.points").size() / 3);
        EXPECT_THAT(intsOf(location, "geometry.faceVertexIndices"),
                    testing::Each(testing::AllOf(testing::Ge(0), testing::Lt(points))));
    }
}
