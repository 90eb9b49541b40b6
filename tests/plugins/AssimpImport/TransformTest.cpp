// SPDX-License-Identifier: Apache-2.0
#include "plugins/AssimpImport/Importing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace importing;

namespace {

using Matrix = std::vector<double>;

const Matrix kZUp = {1, 0, 0, 0, 0, 0, -1, 0, 0, 1, 0, 0, 0, 0, 0, 1};
const Matrix kXUp = {0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

Matrix scaled(Matrix matrix, double factor) {
    for (std::size_t i = 0; i < 12; ++i) {
        matrix[i] *= factor;
    }
    return matrix;
}

Matrix rootMatrix(const std::string& file, char upAxis, double unitScale) {
    OvAssetImportOptions options = defaultOptions();
    options.upAxis = upAxis;
    options.unitScale = unitScale;
    return doublesOf(importFile(dataFile(file), options).scene, "xform.matrix");
}

testing::Matcher<const Matrix&> near(const Matrix& matrix) {
    return testing::Pointwise(testing::DoubleNear(1e-6), matrix);
}

}  // namespace

TEST(ImportedTransform, HasRowsAndItsTranslationInTheLast) {
    const auto scene = importFile(dataFile("shared.gltf")).scene;
    const auto matrix = attributeOf<DoubleAttribute>(locationAt(scene, "top/left"), "xform.matrix");
    EXPECT_EQ(16, matrix.getTupleSize());
    EXPECT_EQ((Matrix{0, 2, 0, 0, -2, 0, 0, 0, 0, 0, 2, 0, 5, 6, 7, 1}),
              doublesOf(locationAt(scene, "top/left"), "xform.matrix"));
}

TEST(ImportedTransform, IsLeftOutWhenItDoesNothing) {
    const auto scene = importFile(dataFile("shared.gltf")).scene;
    EXPECT_FALSE(attributeOf<GroupAttribute>(scene, "xform"));
    EXPECT_FALSE(attributeOf<GroupAttribute>(locationAt(scene, "top/right"), "xform"));
}

TEST(ImportedTransform, TurnsTheNamedAxisUp) {
    EXPECT_EQ(kZUp, rootMatrix("cube.obj", 'z', 0.0));
    EXPECT_EQ(kXUp, rootMatrix("cube.obj", 'x', 0.0));
    EXPECT_EQ(Matrix(), rootMatrix("cube.obj", 'y', 0.0));
}

TEST(ImportedTransform, ScalesByTheNamedUnit) {
    EXPECT_EQ((Matrix{2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 1}),
              rootMatrix("cube.obj", 0, 2.0));
}

TEST(ImportedTransform, OfFbxIsAsTheFileSaysOrAsNamed) {
    EXPECT_THAT(rootMatrix("zup.fbx", 0, 0.0), near(scaled(kZUp, 0.5)));
    EXPECT_THAT(rootMatrix("zup.fbx", 'x', 3.0), near(scaled(kXUp, 3.0)));
    EXPECT_THAT(rootMatrix("zup.fbx", 'y', 1.0), near(Matrix()));
}

TEST(ImportedTransform, OfColladaIsTheFilesRootNode) {
    const auto scene = importFile(dataFile("zup.dae")).scene;
    EXPECT_FALSE(attributeOf<GroupAttribute>(scene, "xform"));
    EXPECT_THAT(doublesOf(locationAt(scene, "stage"), "xform.matrix"), near(scaled(kZUp, 0.01)));
}

TEST(ImportedTransform, OfColladaIsUndoneWhereAnotherIsNamed) {
    OvAssetImportOptions options = defaultOptions();
    options.upAxis = 'y';
    options.unitScale = 0.02;
    const auto scene = importFile(dataFile("zup.dae"), options).scene;
    const Matrix identity = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    EXPECT_THAT(doublesOf(locationAt(scene, "stage"), "xform.matrix"),
                near(scaled(identity, 0.01)));
    EXPECT_THAT(doublesOf(scene, "xform.matrix"), near(scaled(identity, 2.0)));
}

TEST(ImportedTransform, Of3dsIsUndoneWhereAnotherIsNamed) {
    EXPECT_EQ(Matrix(), rootMatrix("camera.3ds", 0, 0.0));
    EXPECT_EQ(Matrix(), rootMatrix("camera.3ds", 'z', 0.0));
    const Matrix back = {1, 0, 0, 0, 0, 0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1};
    EXPECT_THAT(rootMatrix("camera.3ds", 'y', 0.0), near(back));
}
