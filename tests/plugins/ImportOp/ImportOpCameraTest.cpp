// SPDX-License-Identifier: Apache-2.0
// Cameras of real files, as a renderer sees them.
#include <OvSylvarProducers/CameraInfo.h>
#include <OvSylvarProducers/ThreadAwareGeometryProducer.h>

#include "plugins/ImportOp/ImportOp.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <string>

using namespace ovtest;

namespace {

constexpr char kModel[] = "/usr/share/assimp/models/glTF2/cameras/Cameras.gltf";
constexpr char kLenses[] = OV_TEST_SOURCE_DIR "/tests/plugins/AssimpImport/data/lenses.gltf";

std::string textOf(const std::string& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

/// The first number of that name in a JSON text.
double numberIn(const std::string& json, const std::string& name) {
    std::smatch found;
    const std::regex pattern("\"" + name + "\"\\s*:\\s*([-+.0-9eE]+)");
    return std::regex_search(json, found, pattern) ? std::stod(found[1]) : std::nan("");
}

/// The full angle across in degrees, of what a glTF file says of the angle up and down.
double horizontalDegrees(double yfov, double aspectRatio) {
    constexpr double kDegrees = 180.0 / 3.14159265358979323846;
    return 2 * std::atan(aspectRatio * std::tan(yfov / 2)) * kDegrees;
}

SYLVAR::GeometryProducerPtr rootOf(const std::string& file) {
    SYLVAR::ClearCameraInfoCache();
    return SYLVAR::CreateThreadAwareGeometryProducer(
        OpTree().op("i", "import", Args().set("file", file)).group(), "/root");
}

/// The paths of all cameras, in their order.
std::vector<std::string> camerasBelow(const SYLVAR::GeometryProducerPtr& root) {
    std::vector<std::string> cameras;
    std::vector<SYLVAR::GeometryProducerPtr> waiting{root};
    while (!waiting.empty()) {
        const SYLVAR::GeometryProducerPtr here = waiting.back();
        waiting.pop_back();
        if (here->getType() == "camera") {
            cameras.push_back(here->getFullName());
        }
        if (auto next = here == root ? nullptr : here->getNextSibling(false)) {
            waiting.push_back(next);
        }
        if (auto child = here->getFirstChild(false)) {
            waiting.push_back(child);
        }
    }
    return cameras;
}

class ImportedCameraInfo : public ImportOp {};

}  // namespace

TEST_F(ImportedCameraInfo, OfARealGltfFileHasItsFieldOfViewAcrossAndStandsInItsPlace) {
    if (!std::filesystem::exists(kModel)) {
        GTEST_SKIP() << "the Debian package assimp-testmodels is not there: no model was tried";
    }
    const std::string json = textOf(kModel);
    const double fov = horizontalDegrees(numberIn(json, "yfov"), numberIn(json, "aspectRatio"));
    const SYLVAR::GeometryProducerPtr root = rootOf(kModel);
    ASSERT_TRUE(root);
    const std::vector<std::string> cameras = camerasBelow(root);
    ASSERT_EQ(2U, cameras.size());
    const auto info = SYLVAR::GetCameraInfo(root, cameras[0]);
    ASSERT_TRUE(info);
    EXPECT_NEAR(fov, info->fov, fov * 1e-6);
    EXPECT_FALSE(info->orthographic);
    EXPECT_EQ(static_cast<float>(numberIn(json, "znear")), info->near);
    EXPECT_EQ(static_cast<float>(numberIn(json, "zfar")), info->far);
    EXPECT_EQ(Imath::V3d(0.5, 0.5, 3), info->xform.translation());
    EXPECT_EQ(0.5F, info->xformAttr.getValue(0, 12));
}

TEST_F(ImportedCameraInfo, OfARealGltfFileCanBeOrthographic) {
    if (!std::filesystem::exists(kModel)) {
        GTEST_SKIP() << "the Debian package assimp-testmodels is not there: no model was tried";
    }
    const SYLVAR::GeometryProducerPtr root = rootOf(kModel);
    ASSERT_TRUE(root);
    const std::vector<std::string> cameras = camerasBelow(root);
    ASSERT_EQ(2U, cameras.size());
    const auto info = SYLVAR::GetCameraInfo(root, cameras[1]);
    ASSERT_TRUE(info);
    EXPECT_TRUE(info->orthographic);
    EXPECT_EQ(static_cast<float>(2 * numberIn(textOf(kModel), "xmag")), info->orthographicWidth);
}

TEST_F(ImportedCameraInfo, HasTheFieldOfViewAcrossOfAPictureThatIsNotSquare) {
    const std::string json = textOf(kLenses);
    const double aspect = numberIn(json, "aspectRatio");
    const double fov = horizontalDegrees(numberIn(json, "yfov"), aspect);
    ASSERT_NE(1, aspect);
    const auto info = SYLVAR::GetCameraInfo(rootOf(kLenses), "/root/ROOT/wide/wide");
    ASSERT_TRUE(info);
    EXPECT_NEAR(fov, info->fov, fov * 1e-6);
    EXPECT_NEAR(1 / aspect, info->top, 1e-6);
    EXPECT_EQ(Imath::V3d(1, 2, 3), info->xform.translation());
}
