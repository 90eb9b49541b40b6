// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/Projection.h>

#include "CameraScenes.h"
#include "RandomCameras.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

using namespace ovtest;
using namespace Sylvar3::internal::OvAttribute;
using SYLVAR::GeometryProducerPtr;
using SYLVAR::GetPixelAreaThroughCamera;
using testing::ThrowsMessage;
using Bound = std::array<double, 6>;

namespace {

constexpr unsigned kCameras = 4096;
constexpr int kMost = std::numeric_limits<int>::max();
constexpr int kLeast = std::numeric_limits<int>::min();

std::string numbered(const char* prefix, unsigned number) {
    return "/root/b" + std::to_string(number / 64) + '/' + prefix + std::to_string(number);
}

/// Its rectangle is from -1 to 1 on both axes, in units of the scene.
reference::Camera orthographic() {
    reference::Camera camera;
    camera.orthographic = true;
    camera.orthographicWidth = 2;
    return camera;
}

}  // namespace

class PixelArea : public CameraScene {
protected:
    PixelArea() { setTable("picture", 100, 50); }

    GeometryProducerPtr at(const StaticScene& scene, const std::string& path = "/root/a") const {
        return openScene(scene, GetParam())->getProducerByPath(path, false);
    }

    int area(const reference::Camera& camera, const Bound& bound) const {
        StaticScene scene = sceneOf(camera);
        scene.set("/root/a", "bound", attributeOf(bound));
        return GetPixelAreaThroughCamera(at(scene), kCamera, "picture");
    }

    void expectNoBound(const Attribute& bound) const {
        StaticScene scene = sceneOf({});
        scene.set("/root/a", "bound", bound);
        const auto a = at(scene);
        EXPECT_THAT([&] { GetPixelAreaThroughCamera(a, kCamera, "picture"); },
                    ThrowsMessage<std::runtime_error>("Cannot get bounds attribute on /root/a"));
    }
};

INSTANTIATE_TEST_SUITE_P(, PixelArea, testing::Values(Behind::Group, Behind::Runtime), nameOf);

TEST_P(PixelArea, IsTheSameForRandomCamerasAndBounds) {
    RandomCameras random(5);
    std::vector<reference::Camera> cameras;
    std::vector<reference::Matrix> locals;
    std::vector<Bound> bounds;
    StaticScene scene;
    for (unsigned i = 0; i < kCameras; ++i) {
        cameras.push_back(random.camera());
        locals.push_back(random.matrix());
        bounds.push_back(random.bound());
        putCamera(scene, numbered("c", i), cameras[i]);
        scene.set(numbered("t", i), "xform.matrix", attributeOf(locals[i]))
            .set(numbered("t", i), "bound", attributeOf(bounds[i]));
    }
    const GeometryProducerPtr root = openScene(scene, GetParam());
    int withArea = 0;
    for (unsigned i = 0; i < kCameras; ++i) {
        const int xres = random.extent();
        const int yres = random.extent();
        setTable("picture", xres, yres);
        const int expected = reference::pixelArea(locals[i], cameras[i], bounds[i], xres, yres);
        withArea += expected != 0;
        ASSERT_EQ(
            expected,
            GetPixelAreaThroughCamera(
                root->getProducerByPath(numbered("t", i), false), numbered("c", i), "picture"))
            << i;
    }
    EXPECT_GT(withArea, 2000);
}

TEST_P(PixelArea, IsTheProductOfWidthAndHeightWithoutTheirFractions) {
    // 25.5 by 12.75 pixels.
    EXPECT_EQ(25 * 12, area(orthographic(), {0, 0.51, 0, 0.51, -2, -1}));
}

TEST_P(PixelArea, OfAPlaneInViewOfAPerspectiveCameraIsItsShareOfThePicture) {
    reference::Camera camera;
    camera.fov = 90;
    EXPECT_EQ(50 * 25, area(camera, {-1.0001, 1.0001, -1.0001, 1.0001, -2, -2}));
}

TEST_P(PixelArea, ReadsTheBoundAsXThenYThenZ) {
    EXPECT_EQ(75 * 12, area(orthographic(), {-1, 0.51, 0, 0.51, -9, -1}));
}

TEST_P(PixelArea, IsOfTheBoundInTheWorld) {
    reference::Matrix local = reference::identity();
    local[0][0] = 2;
    local[3] = {0.25, 0, -3, 1};
    StaticScene scene = sceneOf(orthographic(), local);
    scene.set("/root/a", "bound", attributeOf(Bound{0, 0.255, 0, 0.51, 0, 0}));
    EXPECT_EQ(25 * 12, GetPixelAreaThroughCamera(at(scene), kCamera, "picture"));
}

// An oddity: points are scaled by the orthographic width, this is not.
TEST_P(PixelArea, TakesNoNoticeOfTheOrthographicWidth) {
    reference::Camera camera = orthographic();
    const Bound bound = {0, 0.51, 0, 0.51, -2, -1};
    const int expected = area(camera, bound);
    for (const float width : {0.0F, 1.0F, 100.0F, -3.0F}) {
        camera.orthographicWidth = width;
        EXPECT_EQ(expected, area(camera, bound)) << width;
    }
}

// An oddity: what lies outside the picture counts.
TEST_P(PixelArea, OfABoundLargerThanThePictureIsMoreThanThePictureHas) {
    EXPECT_EQ(200 * 100, area(orthographic(), {-2, 2, -2, 2, -2, -1}));
    EXPECT_EQ(100 * 50, area(orthographic(), {50, 52, 50, 52, -2, -1}));
}

// An oddity: a corner behind the camera is a corner like others.
TEST_P(PixelArea, CountsCornersBehindTheCamera) {
    EXPECT_EQ(100 * 50, area(orthographic(), {-1, 1, -1, 1, 5, 6}));
    EXPECT_EQ(reference::pixelArea(reference::identity(), {}, {-1, 1, -1, 1, -3, 3}, 100, 50),
              area({}, {-1, 1, -1, 1, -3, 3}));
}

TEST_P(PixelArea, IsPositiveForATurnedPicture) {
    reference::Camera camera = orthographic();
    std::swap(camera.left, camera.right);
    std::swap(camera.top, camera.bottom);
    EXPECT_EQ(25 * 12, area(camera, {0, 0.51, 0, 0.51, -2, -1}));
}

TEST_P(PixelArea, IsNegativeForAMirroredPicture) {
    reference::Camera camera = orthographic();
    std::swap(camera.left, camera.right);
    EXPECT_EQ(-25 * 12, area(camera, {0, 0.51, 0, 0.51, -2, -1}));
}

TEST_P(PixelArea, LosesTheFractionTowardZeroOnEitherSideOfIt) {
    reference::Camera camera = orthographic();
    std::swap(camera.left, camera.right);
    EXPECT_EQ(0, area(camera, {0, 0.019, 0, 0.51, -2, -1}));
}

TEST_P(PixelArea, TakesTheNearestIntWhenNoneHoldsTheWidth) {
    const Bound wide = {0, 1e30, 0, 0.05, -2, -1};  // 1 pixel high.
    EXPECT_EQ(kMost, area(orthographic(), wide));
    reference::Camera mirrored = orthographic();
    std::swap(mirrored.left, mirrored.right);
    EXPECT_EQ(kLeast, area(mirrored, wide));
    const Bound infinite = {0, std::numeric_limits<double>::infinity(), 0, 0.05, -2, -1};
    EXPECT_EQ(0, area(orthographic(), infinite)) << "x along the axis times depth is no number";
}

TEST_P(PixelArea, TakesWhatIsNoNumberAsZero) {
    reference::Camera camera = orthographic();
    camera.left = camera.right = 0;
    EXPECT_EQ(0, area(camera, {0, 0, 0, 1, -2, -1}));
    EXPECT_EQ(0, area(orthographic(), {std::numeric_limits<double>::quiet_NaN(), 1, 0, 1, 0, 1}));
}

TEST_P(PixelArea, WrapsAroundWhenNoIntHoldsTheProduct) {
    EXPECT_EQ(1, area(orthographic(), {0, 1e30, 0, 1e30, -2, -1})) << "(2^31 - 1)^2 in 32 bits";
    // 2^16 by 2^16 pixels.
    setTable("picture", 131072, 131072);
    EXPECT_EQ(0, area(orthographic(), {0, 1, 0, 1, -2, -1}));
}

TEST_P(PixelArea, OfARectangleWithoutExtentIsTheNearestThatAnIntHolds) {
    reference::Camera camera = orthographic();
    camera.left = camera.right = 0;  // The left side is at -infinity, the right one at infinity.
    EXPECT_EQ(kMost, area(camera, {-1, 1, 0, 0.05, -2, -1}));
}

TEST_P(PixelArea, IsZeroWhenTheTableKnowsNoSuchName) {
    StaticScene scene = sceneOf({});
    scene.set("/root/a", "bound", attributeOf(Bound{0, 1, 0, 1, -2, -1}));
    for (const char* const name : {"", "Picture", "picture "}) {
        EXPECT_EQ(0, GetPixelAreaThroughCamera(at(scene), kCamera, name)) << name;
    }
}

TEST_P(PixelArea, TakesAnyNameThatTheTableHas) {
    StaticScene scene = sceneOf(orthographic());
    scene.set("/root/a", "bound", attributeOf(Bound{-1, 1, -1, 1, -2, -1}));
    for (const std::string name : {"",
                                   "a b",
                                   "'",
                                   "\"quoted\"",
                                   "gr\xC3\xB6\xC3\x9F"
                                   "e",
                                   "1x1\n"}) {
        setTable(name, 3, 2);
        EXPECT_EQ(6, GetPixelAreaThroughCamera(at(scene), kCamera, name)) << name;
    }
}

TEST_P(PixelArea, IsZeroWithoutATable) {
    takeTableAway();
    EXPECT_EQ(0, area(orthographic(), {-1, 1, -1, 1, -2, -1}));
}

// An oddity: the bound is looked at last, so that its absence goes unnoticed.
TEST_P(PixelArea, IsZeroForAnUnknownCameraBeforeTheBoundIsLookedAt) {
    EXPECT_EQ(0, GetPixelAreaThroughCamera(at(sceneOf({})), "/root/no", "picture"));
}

TEST_P(PixelArea, IsZeroForAnUnknownResolutionBeforeTheBoundIsLookedAt) {
    EXPECT_EQ(0, GetPixelAreaThroughCamera(at(sceneOf({})), kCamera, "no"));
    takeTableAway();
    EXPECT_EQ(0, GetPixelAreaThroughCamera(at(sceneOf({})), kCamera, "picture"));
}

TEST_P(PixelArea, ThrowsWithoutABoundThoughThereIsACamera) {
    const auto a = at(sceneOf({}));
    EXPECT_THAT([&] { GetPixelAreaThroughCamera(a, kCamera, "picture"); },
                ThrowsMessage<std::runtime_error>("Cannot get bounds attribute on /root/a"));
}

TEST_P(PixelArea, ThrowsForABoundThatIsNotSixDoubles) {
    expectNoBound(FloatAttribute(std::vector<float>{0, 1, 0, 1, 0, 1}));
    expectNoBound(IntAttribute(std::vector<int>{0, 1, 0, 1, 0, 1}));
    expectNoBound(StringAttribute("0 1 0 1 0 1"));
    expectNoBound(DoubleAttribute(std::vector<double>{}));
    expectNoBound(DoubleAttribute(std::vector<double>{0, 1, 0, 1, 0}));
    expectNoBound(DoubleAttribute(std::vector<double>{0, 1, 0, 1, 0, 1, 0}));
    expectNoBound(DoubleAttribute(TimedSamples<double>{}));
}

TEST_P(PixelArea, TakesTheBoundAtTheSampleNearestTimeZero) {
    const TimedSamples<double> samples = {{-1.0F, {0, 5, 0, 5, 0, 1}},
                                          {0.25F, {0, 0.51, 0, 0.51, -2, -1}},
                                          {1.0F, {0, 7, 0, 7, 0, 1}}};
    StaticScene scene = sceneOf(orthographic());
    scene.set("/root/a", "bound", DoubleAttribute(samples, 2));
    EXPECT_EQ(25 * 12, GetPixelAreaThroughCamera(at(scene), kCamera, "picture"));
}

TEST_P(PixelArea, OfASingularCameraIsAsSeenWithoutATurn) {
    reference::Camera camera = orthographic();
    camera.xform = {};
    EXPECT_EQ(25 * 12, area(camera, {0, 0.51, 0, 0.51, -2, -1}));
}
