// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/Projection.h>

#include "RandomCameras.h"
#include "SameBits.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace ovtest;
using Imath::Matrix44;
using SYLVAR::CameraInfo;
using SYLVAR::GetProjectionMatrix;

namespace {

constexpr unsigned kCameras = 20000;

Matrix44<double> matrixOf(const reference::Camera& lens, float aspect) {
    return GetProjectionMatrix(lens.near,
                               lens.far,
                               lens.left,
                               lens.right,
                               lens.bottom,
                               lens.top,
                               lens.orthographic,
                               lens.fov,
                               aspect);
}

CameraInfo infoOf(const reference::Camera& camera) {
    CameraInfo info;
    info.fov = camera.fov;
    info.near = camera.near;
    info.far = camera.far;
    info.left = camera.left;
    info.right = camera.right;
    info.top = camera.top;
    info.bottom = camera.bottom;
    info.orthographic = camera.orthographic;
    info.orthographicWidth = camera.orthographicWidth;
    return info;
}

float aspectFrom(RandomCameras& random) {
    return random.below(4) == 0 ? random.oddFloat()
                                : static_cast<float>(std::exp(2 * random.unit()));
}

}  // namespace

TEST(ProjectionMatrix, IsTheSameToTheBitForRandomLenses) {
    RandomCameras random(1);
    for (unsigned i = 0; i < kCameras; ++i) {
        const reference::Camera lens = random.camera();
        const float aspect = aspectFrom(random);
        ASSERT_TRUE(sameBits(reference::projection(lens, aspect), matrixOf(lens, aspect))) << i;
    }
}

TEST(ProjectionMatrix, IsTheSameToTheBitForRandomCameras) {
    RandomCameras random(2);
    for (unsigned i = 0; i < kCameras; ++i) {
        const reference::Camera camera = random.camera();
        const float aspect = aspectFrom(random);
        ASSERT_TRUE(sameBits(reference::projectionOfCamera(camera, aspect),
                             GetProjectionMatrix(infoOf(camera), aspect)))
            << i;
    }
}

TEST(ProjectionMatrix, OfASquareRightAngleHasOnesAndAMinusOneInTheFourthColumn) {
    const auto m = GetProjectionMatrix(1, 100, -1, 1, -1, 1, false, 90, 1);
    EXPECT_NEAR(1, m[0][0], 1e-6);
    EXPECT_NEAR(1, m[1][1], 1e-6);
    EXPECT_EQ(-1, m[2][3]);
    EXPECT_EQ(0, m[3][3]);
}

TEST(ProjectionMatrix, OfAnOrthographicLensMapsNearAndFarToTheEndsOfTheDepth) {
    const auto m = GetProjectionMatrix(1, 3, -1, 1, -1, 1, true, 90, 1);
    EXPECT_EQ(-1, m[2][2]);
    EXPECT_EQ(-2, m[3][2]);
    EXPECT_EQ(0, m[2][3]);
    EXPECT_EQ(1, m[3][3]);
    const Imath::Vec3<double> near = Imath::Vec3<double>(0, 0, -1) * m;
    const Imath::Vec3<double> far = Imath::Vec3<double>(0, 0, -3) * m;
    EXPECT_EQ(-1, near.z);
    EXPECT_EQ(1, far.z);
}

TEST(ProjectionMatrix, TakesTheEdgesAsLeftRightBottomTop) {
    const auto m = GetProjectionMatrix(1, 3, 0, 1, 0, 4, true, 90, 1);
    EXPECT_EQ(2, m[0][0]);
    EXPECT_EQ(0.5, m[1][1]);
}

// An oddity: the offsets of a rectangle that is not about the axis are added, not subtracted.
TEST(ProjectionMatrix, HasPositiveOffsetsForAnOrthographicLens) {
    const auto m = GetProjectionMatrix(1, 3, 0, 2, 1, 3, true, 90, 1);
    EXPECT_EQ(1, m[3][0]);
    EXPECT_EQ(2, m[3][1]);
}

TEST(ProjectionMatrix, TakesNoNoticeOfFieldOfViewAndAspectOfAnOrthographicLens) {
    const float none = std::numeric_limits<float>::quiet_NaN();
    EXPECT_EQ(GetProjectionMatrix(1, 3, -1, 1, -1, 1, true, 45, 2),
              GetProjectionMatrix(1, 3, -1, 1, -1, 1, true, none, none));
}

TEST(ProjectionMatrix, IsOfSquarePixelsWhenTheRectangleHasTheAspectOfThePicture) {
    const auto m = GetProjectionMatrix(1, 100, -2, 2, -1, 1, false, 60, 2);
    const float t = std::tan(static_cast<float>(60 * 0.5 * 3.14159265 / 180.0));
    EXPECT_FLOAT_EQ(1 / (2 * t), static_cast<float>(m[0][0]));
    EXPECT_FLOAT_EQ(1 / t, static_cast<float>(m[1][1]));
}

TEST(ProjectionMatrix, WidensTheHeightByTheRatioOfTheRectangleToTheAspect) {
    const auto equal = GetProjectionMatrix(1, 100, -2, 2, -1, 1, false, 60, 2);
    const auto wide = GetProjectionMatrix(1, 100, -2, 2, -1, 1, false, 60, 4);
    EXPECT_EQ(equal[0][0], wide[0][0]);
    EXPECT_FLOAT_EQ(static_cast<float>(2 * equal[1][1]), static_cast<float>(wide[1][1]));
}

// An oddity: pi has eight decimals here, and all of its digits where points are taken to the
// picture.
TEST(ProjectionMatrix, HasAPiOfEightDecimals) {
    int differing = 0;
    for (int degrees = 1; degrees < 180; ++degrees) {
        const auto fov = static_cast<float>(degrees);
        const auto m = GetProjectionMatrix(1, 2, -1, 1, -1, 1, false, fov, 1);
        const float t = std::tan(static_cast<float>(double{fov} * 0.5 * 3.14159265 / 180.0));
        const float more =
            std::tan(static_cast<float>(double{fov} * 0.5 * 3.141592653589793 / 180.0));
        EXPECT_EQ(double{static_cast<float>(2.0 / double{t + t})}, m[0][0]) << fov;
        differing += t != more;
    }
    EXPECT_GT(differing, 0);
}

TEST(ProjectionMatrix, OfARectangleWithoutExtentIsInfiniteOrNoNumber) {
    const float edges[] = {-1, 0, 1};
    for (const bool orthographic : {false, true}) {
        for (const float edge : edges) {
            const auto thin = GetProjectionMatrix(1, 3, edge, edge, -1, 1, orthographic, 60, 1);
            EXPECT_FALSE(std::isfinite(thin[0][0])) << orthographic << edge;
            EXPECT_FALSE(std::isfinite(thin[orthographic ? 3 : 2][0])) << orthographic << edge;
            const auto flat = GetProjectionMatrix(1, 3, -1, 1, edge, edge, orthographic, 60, 1);
            EXPECT_FALSE(std::isfinite(flat[1][1])) << orthographic << edge;
            EXPECT_FALSE(std::isfinite(flat[orthographic ? 3 : 2][1])) << orthographic << edge;
        }
    }
}

TEST(ProjectionMatrix, OfEqualNearAndFarIsInfinite) {
    for (const bool orthographic : {false, true}) {
        const auto m = GetProjectionMatrix(2, 2, -1, 1, -1, 1, orthographic, 60, 1);
        EXPECT_TRUE(std::isinf(m[2][2])) << orthographic;
        EXPECT_TRUE(std::isinf(m[3][2])) << orthographic;
    }
}

TEST(ProjectionMatrix, OfACameraIsThatOfItsLens) {
    reference::Camera camera;
    EXPECT_EQ(matrixOf(camera, 1.5F), GetProjectionMatrix(infoOf(camera), 1.5F));
    camera.orthographicWidth = 0;
    EXPECT_EQ(matrixOf(camera, 1.5F), GetProjectionMatrix(infoOf(camera), 1.5F));
}

TEST(ProjectionMatrix, ScalesTheRectangleOfAnOrthographicCameraByHalfItsWidth) {
    reference::Camera camera;
    camera.orthographic = true;
    camera.orthographicWidth = 8;
    const auto m = GetProjectionMatrix(infoOf(camera), 1);
    EXPECT_EQ(0.25, m[0][0]);
    EXPECT_EQ(0.25, m[1][1]);
}

TEST(ProjectionMatrix, HasNoGuardAgainstAnOrthographicCameraWithoutWidth) {
    reference::Camera camera;
    camera.orthographic = true;
    camera.orthographicWidth = 0;
    const auto m = GetProjectionMatrix(infoOf(camera), 1);
    EXPECT_TRUE(std::isinf(m[0][0]));
    EXPECT_TRUE(std::isnan(m[3][0]));
    EXPECT_TRUE(std::isinf(m[1][1]));
    EXPECT_TRUE(std::isnan(m[3][1]));
}
