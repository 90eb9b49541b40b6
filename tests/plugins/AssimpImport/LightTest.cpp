// SPDX-License-Identifier: Apache-2.0
#include "plugins/AssimpImport/Importing.h"

#include <gtest/gtest.h>

using namespace importing;

TEST(ImportedLight, OfGltfSplitsItsBrightness) {
    const auto light = locationAt(importFile(dataFile("lenses.gltf")).scene, "ROOT/spot/spot");
    EXPECT_EQ("light", stringOf(light, "type"));
    EXPECT_EQ("spot", stringOf(light, "light.type"));
    EXPECT_EQ((std::vector<double>{1, 0.5, 0.25}), doublesOf(light, "light.color"));
    EXPECT_DOUBLE_EQ(8.0, doubleOf(light, "light.intensity"));
    EXPECT_DOUBLE_EQ(0.0, doubleOf(light, "light.exposure"));
}

TEST(ImportedLight, OfGltfHasItsConeFromEdgeToEdge) {
    const auto light = locationAt(importFile(dataFile("lenses.gltf")).scene, "ROOT/spot/spot");
    EXPECT_NEAR(57.29577951, doubleOf(light, "light.coneAngle"), 1e-5);
    EXPECT_NEAR(28.64788976, doubleOf(light, "light.coneInnerAngle"), 1e-5);
}

TEST(ImportedLight, KnowsItsKind) {
    const auto scene = importFile(dataFile("lenses.gltf")).scene;
    EXPECT_EQ("distant", stringOf(locationAt(scene, "ROOT/sun/sun"), "light.type"));
    EXPECT_EQ("point", stringOf(locationAt(scene, "ROOT/bulb/bulb"), "light.type"));
}

TEST(ImportedLight, ShinesAlongItsDirection) {
    const auto scene = importFile(dataFile("light.x3d")).scene;
    const auto beam = locationAt(scene, "light_x3d/unnamed/unnamed/beam/beam");
    EXPECT_EQ((std::vector<double>{0, 0, 1, 0, 0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 2, 1}),
              doublesOf(beam, "xform.matrix"));
    const auto lamp = locationAt(scene, "light_x3d/unnamed/unnamed/lamp/lamp");
    EXPECT_EQ((std::vector<double>{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 1, 1}),
              doublesOf(lamp, "xform.matrix"));
}

TEST(ImportedLight, OfColladaHasItsFalloffAngleAsCone) {
    const auto light = locationAt(importFile(dataFile("zup.dae")).scene, "stage/lamp/lamp");
    EXPECT_NEAR(50.0, doubleOf(light, "light.coneAngle"), 1e-5);
}

TEST(ImportedLight, IsLeftOutWhenNotWanted) {
    OvAssetImportOptions options = defaultOptions();
    options.lights = 0;
    const auto scene = importFile(dataFile("lenses.gltf"), options).scene;
    EXPECT_FALSE(locationAt(scene, "ROOT/sun/sun"));
    EXPECT_TRUE(locationAt(scene, "ROOT/wide/wide"));
}
