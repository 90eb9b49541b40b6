// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/Projection.h>

#include "CameraScenes.h"
#include "RandomCameras.h"
#include "SameBits.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

using namespace ovtest;
using Imath::Vec3;
using SYLVAR::ConvertPointListToNDC;
using SYLVAR::GeometryProducerPtr;
using Points = std::vector<Vec3<double>>;

namespace {

constexpr unsigned kCameras = 4096;
constexpr unsigned kPoints = 5;

std::string numbered(const char* prefix, unsigned number) {
    return "/root/b" + std::to_string(number / 64) + '/' + prefix + std::to_string(number);
}

}  // namespace

class PointsToNDC : public CameraScene {
protected:
    /// Takes a point of "/root/a" through the one camera of the scene.
    Vec3<double> convert(const StaticScene& scene, const Vec3<double>& point) const {
        Points points = {point};
        const auto root = openScene(scene, GetParam());
        ConvertPointListToNDC(root->getProducerByPath("/root/a", false), kCamera, points);
        return points.at(0);
    }
};

INSTANTIATE_TEST_SUITE_P(, PointsToNDC, testing::Values(Behind::Group, Behind::Runtime), nameOf);

TEST_P(PointsToNDC, AreTheSameToTheBitForRandomCamerasAndPoints) {
    RandomCameras random(4);
    std::vector<reference::Camera> cameras;
    std::vector<reference::Matrix> locals;
    StaticScene scene;
    for (unsigned i = 0; i < kCameras; ++i) {
        cameras.push_back(random.camera());
        locals.push_back(random.matrix());
        putCamera(scene, numbered("c", i), cameras[i]);
        scene.set(numbered("t", i), "xform.matrix", attributeOf(locals[i]));
    }
    const GeometryProducerPtr root = openScene(scene, GetParam());
    for (unsigned i = 0; i < kCameras; ++i) {
        Points points;
        std::vector<reference::Point> expected;
        for (unsigned k = 0; k < kPoints; ++k) {
            const reference::Point point = random.point();
            points.emplace_back(point[0], point[1], point[2]);
            expected.push_back(reference::pointToNDC(point, locals[i], cameras[i]));
        }
        ConvertPointListToNDC(
            root->getProducerByPath(numbered("t", i), false), numbered("c", i), points);
        ASSERT_EQ(kPoints, points.size());
        for (unsigned k = 0; k < kPoints; ++k) {
            ASSERT_TRUE(sameBits(expected[k], points[k])) << i << ' ' << k;
        }
    }
}

TEST_P(PointsToNDC, StayAsTheyWereWhenThereIsNoSuchCamera) {
    const auto root = openScene(sceneOf({}), GetParam());
    Points points = {{1, 2, 3}, {4, 5, 6}};
    const Points before = points;
    for (const char* const path : {"/root/no", "/root/a", ""}) {
        ConvertPointListToNDC(root->getProducerByPath("/root/a", false), path, points);
        EXPECT_EQ(before, points) << path;
    }
}

TEST_P(PointsToNDC, OnTheAxisAtTheNearDistanceAreInTheMiddleAndOfDepthZero) {
    reference::Camera camera;
    camera.xform[3] = {1, 2, 3, 1};
    EXPECT_EQ(Vec3<double>(0.5, 0.5, 0), convert(sceneOf(camera), {1, 2, 2.5}));
    camera.orthographic = true;
    EXPECT_EQ(Vec3<double>(0.5, 0.5, 0), convert(sceneOf(camera), {1, 2, 2.5}));
}

TEST_P(PointsToNDC, HaveADepthAlongTheAxisWhichIsOneAtTheFarDistance) {
    EXPECT_EQ(1, convert(sceneOf({}), {0, 0, -100}).z);
    EXPECT_EQ(1, convert(sceneOf({}), {50, -20, -100}).z);
}

TEST_P(PointsToNDC, ArePartsOfTheWidthAndTheHeightFromTheLowerLeft) {
    reference::Camera camera;
    camera.fov = 90;
    const Vec3<double> upperRight = convert(sceneOf(camera), {2, 2, -2});
    EXPECT_NEAR(1, upperRight.x, 1e-12);
    EXPECT_NEAR(1, upperRight.y, 1e-12);
    const Vec3<double> lowerLeft = convert(sceneOf(camera), {-2, -2, -2});
    EXPECT_NEAR(0, lowerLeft.x, 1e-12);
    EXPECT_NEAR(0, lowerLeft.y, 1e-12);
}

TEST_P(PointsToNDC, AreScaledByHalfTheOrthographicWidth) {
    reference::Camera camera;
    camera.orthographic = true;
    EXPECT_EQ(1, convert(sceneOf(camera), {2, 0, -2}).x);
    EXPECT_EQ(0, convert(sceneOf(camera), {0, -2, -2}).y);
}

// An oddity: nothing is clipped.
TEST_P(PointsToNDC, AreNotClipped) {
    reference::Camera camera;
    camera.fov = 90;
    EXPECT_NEAR(2, convert(sceneOf(camera), {6, 0, -2}).x, 1e-12);
    EXPECT_LT(convert(sceneOf(camera), {0, 0, 5}).z, 0);
    EXPECT_GT(convert(sceneOf(camera), {0, 0, -500}).z, 1);
}

TEST_P(PointsToNDC, BehindTheCameraAreMirrored) {
    const Vec3<double> behind = convert(sceneOf({}), {1, 1, 10});
    EXPECT_LT(behind.x, 0.5);
    EXPECT_LT(behind.y, 0.5);
}

TEST_P(PointsToNDC, AreTakenFromTheSpaceOfTheProducer) {
    reference::Matrix local = reference::identity();
    local[3] = {0, 0, -7, 1};
    EXPECT_EQ(convert(sceneOf({}), {1, 2, -10}), convert(sceneOf({}, local), {1, 2, -3}));
}

TEST_P(PointsToNDC, OfNoFourthCoordinateAreNoNumbersAndNoError) {
    reference::Matrix flat = reference::identity();
    flat[3][3] = 0;
    EXPECT_TRUE(std::isnan(convert(sceneOf({}, flat), {1, 2, 3}).x));
}

TEST_P(PointsToNDC, OfARectangleWithoutExtentAreInfiniteOrNoNumbers) {
    reference::Camera camera;
    camera.left = camera.right = 1;
    camera.top = camera.bottom = 0;
    camera.far = camera.near;
    const Vec3<double> point = convert(sceneOf(camera), {0, 0, -2});
    EXPECT_TRUE(std::isinf(point.x));
    EXPECT_TRUE(std::isnan(point.y));
    EXPECT_TRUE(std::isinf(point.z));
}

TEST_P(PointsToNDC, OfASingularCameraAreSeenFromItsPlaceWithoutATurn) {
    reference::Camera singular;
    singular.xform = {};
    singular.xform[3] = {1, 2, 3, 1};
    reference::Camera placed;
    placed.xform[3] = {1, 2, 3, 1};
    EXPECT_EQ(convert(sceneOf(placed), {2, 2, -4}), convert(sceneOf(singular), {2, 2, -4}));
}

// An oddity: this pi has all its digits, that of the projection matrix eight decimals.
TEST_P(PointsToNDC, HaveAPiOfFullPrecision) {
    reference::Camera camera;
    camera.fov = 71;
    const double half = std::tan((71 / 180.0) * 3.141592653589793 * 0.5);
    const double coarse = std::tan((71 / 180.0) * 3.14159265 * 0.5);
    const double x = std::tan(std::atan2(1.0, 2.0));
    const double found = convert(sceneOf(camera), {1, 0, -2}).x;
    EXPECT_EQ((x / half + 1) / 2, found);
    EXPECT_NE((x / coarse + 1) / 2, found);
}

// An oddity: the projection matrix depends on it.
TEST_P(PointsToNDC, TakeNoNoticeOfTheAspectOfThePicture) {
    StaticScene scene = sceneOf({});
    scene.set("/root", "renderSettings.resolution", "hd_1080");
    EXPECT_EQ(convert(sceneOf({}), {1, 2, -10}), convert(scene, {1, 2, -10}));
}

TEST_P(PointsToNDC, OfAnEmptyListAreNone) {
    Points points;
    ConvertPointListToNDC(openScene(sceneOf({}), GetParam()), kCamera, points);
    EXPECT_TRUE(points.empty());
}
