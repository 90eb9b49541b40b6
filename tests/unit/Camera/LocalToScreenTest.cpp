// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/Projection.h>

#include "CameraScenes.h"
#include "RandomCameras.h"
#include "SameBits.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>
#include <string>

using namespace ovtest;
using Imath::Vec3;
using SYLVAR::GeometryProducerPtr;
using SYLVAR::GetLocalToScreenMatrix;
using testing::ThrowsMessage;

namespace {

/// Each has a scene of its own.
constexpr unsigned kScenes = 400;
constexpr unsigned kTargets = 8;

std::string target(unsigned number) {
    return "/root/geo/t" + std::to_string(number);
}

}  // namespace

class LocalToScreen : public CameraScene {
protected:
    GeometryProducerPtr at(const StaticScene& scene, const std::string& path) const {
        return openScene(scene, GetParam())->getProducerByPath(path, false);
    }
};

INSTANTIATE_TEST_SUITE_P(, LocalToScreen, testing::Values(Behind::Group, Behind::Runtime), nameOf);

TEST_P(LocalToScreen, IsTheSameToTheBitForRandomCamerasAndTargets) {
    RandomCameras random(3);
    for (unsigned i = 0; i < kScenes; ++i) {
        const reference::Camera camera = random.camera();
        const int xres = random.extent();
        const int yres = random.extent();
        setTable("picture", xres, yres);
        StaticScene scene = sceneOf(camera);
        scene.set("/root", "renderSettings.resolution", "picture");
        std::vector<reference::Matrix> locals;
        for (unsigned k = 0; k < kTargets; ++k) {
            locals.push_back(random.matrix());
            scene.set(target(k), "xform.matrix", attributeOf(locals.back()));
        }
        const GeometryProducerPtr root = openScene(scene, GetParam());
        for (unsigned k = 0; k < kTargets; ++k) {
            ASSERT_TRUE(sameBits(reference::localToScreen(locals[k], camera, xres, yres),
                                 GetLocalToScreenMatrix(root->getProducerByPath(target(k), false))))
                << i << ' ' << k;
        }
    }
}

TEST_P(LocalToScreen, LeadsThroughTheMiddleOfThePicture) {
    const auto a = at(sceneOf({}), "/root/a");
    const Vec3<double> middle = Vec3<double>(0, 0, -3) * GetLocalToScreenMatrix(a);
    EXPECT_DOUBLE_EQ(256, middle.x);
    EXPECT_DOUBLE_EQ(256, middle.y);
}

// An oddity for pictures whose first row is the uppermost.
TEST_P(LocalToScreen, HasAYThatGrowsUpwardFromTheBottomOfThePicture) {
    reference::Camera camera;
    camera.fov = 90;
    const auto matrix = GetLocalToScreenMatrix(at(sceneOf(camera), "/root/a"));
    EXPECT_NEAR(0, (Vec3<double>(0, -1, -1) * matrix).y, 1e-4);
    EXPECT_NEAR(512, (Vec3<double>(0, 1, -1) * matrix).y, 1e-4);
    EXPECT_NEAR(0, (Vec3<double>(-1, 0, -1) * matrix).x, 1e-4);
}

TEST_P(LocalToScreen, HasADepthFromZeroAtTheNearToOneAtTheFarDistance) {
    const auto matrix = GetLocalToScreenMatrix(at(sceneOf({}), "/root/a"));
    EXPECT_NEAR(0, (Vec3<double>(0, 0, -0.5) * matrix).z, 1e-6);
    EXPECT_NEAR(1, (Vec3<double>(0, 0, -100) * matrix).z, 1e-6);
}

TEST_P(LocalToScreen, IsOfACameraWithoutTheOrthographicWidthScaledTwice) {
    reference::Camera camera;
    camera.orthographic = true;
    const auto matrix = GetLocalToScreenMatrix(at(sceneOf(camera), "/root/a"));
    EXPECT_NEAR(512, (Vec3<double>(2, 0, -1) * matrix).x, 1e-9);
    EXPECT_NEAR(0, (Vec3<double>(-2, 0, -1) * matrix).x, 1e-9);
}

TEST_P(LocalToScreen, LooksThroughTheCameraOfTheRenderSettings) {
    StaticScene scene = sceneOf({});
    reference::Camera other;
    other.fov = 20;
    putCamera(scene, "/root/other", other);
    scene.set("/root", "renderSettings.cameraName", "/root/other");
    EXPECT_TRUE(sameBits(reference::localToScreen(reference::identity(), other, 512, 512),
                         GetLocalToScreenMatrix(at(scene, "/root/a"))));
}

TEST_P(LocalToScreen, LooksThroughTheUsualCameraWhenTheSettingHasNoValues) {
    StaticScene scene = sceneOf({});
    scene.set(
        "/root", "renderSettings.cameraName", SYLVAR::StringAttribute(std::vector<std::string>()));
    EXPECT_TRUE(sameBits(reference::localToScreen(reference::identity(), {}, 512, 512),
                         GetLocalToScreenMatrix(at(scene, "/root/a"))));
}

TEST_P(LocalToScreen, IsOfTheRootToo) {
    EXPECT_TRUE(sameBits(reference::localToScreen(reference::identity(), {}, 512, 512),
                         GetLocalToScreenMatrix(openScene(sceneOf({}), GetParam()))));
}

TEST_P(LocalToScreen, TakesTheTransformAtTimeZeroBetweenTwoSamples) {
    reference::Matrix early = reference::identity();
    reference::Matrix late = reference::identity();
    early[3] = {-4, 0, 0, 1};
    late[3] = {2, 0, 0, 1};
    reference::Matrix between = reference::identity();
    between[3] = {-1, 0, 0, 1};
    StaticScene scene = sceneOf({});
    const auto translation = [](const reference::Matrix& m) {
        return std::vector<double>{m[3][0], m[3][1], m[3][2]};
    };
    scene.set("/root/b",
              "xform.translate",
              Sylvar3::internal::OvAttribute::DoubleAttribute(
                  Sylvar3::internal::OvAttribute::TimedSamples<double>{{-1.0F, translation(early)},
                                                                       {1.0F, translation(late)}},
                  3));
    EXPECT_TRUE(sameBits(reference::localToScreen(between, {}, 512, 512),
                         GetLocalToScreenMatrix(at(scene, "/root/b"))));
}

TEST_P(LocalToScreen, CountsTheInverseOfASingularCameraAsTheIdentity) {
    reference::Camera camera;
    camera.xform = {};
    reference::Camera atOrigin;
    EXPECT_TRUE(sameBits(reference::localToScreen(reference::identity(), atOrigin, 512, 512),
                         GetLocalToScreenMatrix(at(sceneOf(camera), "/root/a"))));
}

TEST_P(LocalToScreen, OfAPictureWithoutHeightIsNoNumberAndNoError) {
    setTable("flat", 10, 0);
    StaticScene scene = sceneOf({});
    scene.set("/root", "renderSettings.resolution", "flat");
    EXPECT_TRUE(std::isnan(GetLocalToScreenMatrix(at(scene, "/root/a"))[1][1]));
}

TEST_P(LocalToScreen, IsOf512By512WithoutASettingAndWithoutATable) {
    takeTableAway();
    EXPECT_TRUE(sameBits(reference::localToScreen(reference::identity(), {}, 512, 512),
                         GetLocalToScreenMatrix(at(sceneOf({}), "/root/a"))));
}

TEST_P(LocalToScreen, ThrowsWhatTheResolutionThrows) {
    StaticScene scene = sceneOf({});
    scene.set("/root", "renderSettings.resolution", "nowhere");
    const auto a = at(scene, "/root/a");
    EXPECT_THAT([&] { GetLocalToScreenMatrix(a); },
                ThrowsMessage<std::runtime_error>(
                    "FileOut: Error querying resolution table for resolution: 'nowhere'."));
    takeTableAway();
    EXPECT_THAT(
        [&] { GetLocalToScreenMatrix(a); },
        ThrowsMessage<std::runtime_error>("GetRenderResolution: Error getting resolution table"));
}

TEST_P(LocalToScreen, ThrowsWithoutACamera) {
    const auto a = at(StaticScene().at("/root/a"), "/root/a");
    EXPECT_THAT([&] { GetLocalToScreenMatrix(a); },
                ThrowsMessage<std::runtime_error>("Could not get camera info."));
}

TEST_P(LocalToScreen, LooksForTheCameraBeforeTheResolution) {
    const auto a =
        at(StaticScene().at("/root/a").set("/root", "renderSettings.resolution", "no"), "/root/a");
    EXPECT_THAT([&] { GetLocalToScreenMatrix(a); },
                ThrowsMessage<std::runtime_error>("Could not get camera info."));
}

TEST(LocalToScreenOfNothing, Throws) {
    EXPECT_THAT([] { GetLocalToScreenMatrix(nullptr); },
                ThrowsMessage<std::runtime_error>("Invalid target producer provided."));
}

// An oddity: the hash of a cooked location says nothing of those below it.
TEST(LocalToScreenOfAnOpTree, IsThatOfTheCameraRememberedForAnotherTreeWithTheSameTop) {
    reference::Camera other;
    other.fov = 20;
    const auto first = openScene(sceneOf({}), Behind::Runtime);
    const auto second = openScene(sceneOf(other), Behind::Runtime);
    const auto expected = GetLocalToScreenMatrix(first);
    EXPECT_EQ(expected, GetLocalToScreenMatrix(second));
    EXPECT_NE(expected, GetLocalToScreenMatrix(sceneOf(other).open()));
    SYLVAR::ClearCameraInfoCache();
    EXPECT_NE(expected, GetLocalToScreenMatrix(second));
    SYLVAR::ClearCameraInfoCache();
}

TEST(LocalToScreenOfAnOpTree, IsThatOfTheCameraAndTheSettingsThatItsOpsMake) {
    SYLVAR::ClearCameraInfoCache();
    const auto number = [](double value) {
        return Sylvar3::internal::OvAttribute::DoubleAttribute(value);
    };
    const OpTree tree =
        OpTree()
            .op("scene", "scene", Args().set("tree", StaticScene().at("/root/a").group()))
            .op("camera",
                "camera",
                Args()
                    .set("path", "/root/shot")
                    .set("fov", number(30))
                    .set("near", number(0.5))
                    .set("far", number(100)))
            .op("both", "merge", {}, {"scene", "camera"})
            .op("settings",
                "renderSettings",
                Args().set("camera", "/root/shot").set("resolution", "hd_720"),
                {"both"});
    const auto root = SYLVAR::CreateThreadAwareGeometryProducer(tree.group(), "/root");
    reference::Camera camera;
    camera.fov = 30;
    EXPECT_TRUE(sameBits(reference::localToScreen(reference::identity(), camera, 1280, 720),
                         GetLocalToScreenMatrix(root->getProducerByPath("/root/a", false))));
    SYLVAR::ClearCameraInfoCache();
}
