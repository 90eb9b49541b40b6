// SPDX-License-Identifier: Apache-2.0
#include "Camera/CameraPath.h"
#include "support/FakeProducer.h"
#include "support/HeardLogs.h"
#include "support/Transforms.h"
#include "unit/Camera/CameraOfAScene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

using namespace SYLVAR;
using namespace Sylvar3::internal::OvAttribute;
using ovtest::doubles;
using ovtest::FakeProducer;
using ovtest::kCamera;
using ovtest::kLensNames;
using ovtest::lensOf;
using ovtest::slide;
using ovtest::StaticScene;
using ovtest::withCamera;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class CameraInfoOf : public ovtest::CameraOfAScene {};

using Info = std::shared_ptr<CameraInfo>;

std::vector<float> timesOf(const FloatAttribute& attribute) {
    std::vector<float> times;
    for (std::int64_t i = 0; i < attribute.getNumberOfTimeSamples(); ++i) {
        times.push_back(attribute.getSampleTime(i));
    }
    return times;
}

/// Where a camera stands along x, and its x at each sample.
double placeOf(const Info& info) {
    return info->xform[3][0];
}
std::vector<float> placesOf(const Info& info) {
    constexpr std::int64_t kX = 12;
    std::vector<float> places;
    for (const float time : timesOf(info->xformAttr)) {
        places.push_back(info->xformAttr.getValue(-1, kX, time));
    }
    return places;
}

StaticScene sliding(const std::vector<std::pair<float, double>>& places) {
    return withCamera({}).set(kCamera, "xform.translate", slide(places));
}

/// A producer that is the top and the camera alike, and answers what it is told to.
boost::intrusive_ptr<FakeProducer> fakeCamera() {
    ClearCameraInfoCache();
    boost::intrusive_ptr<FakeProducer> camera(new FakeProducer("/camera"));
    camera->set("geometry", ovtest::lens());
    return camera;
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(EveryScene, CameraInfoOf, ovtest::everyScene(), ovtest::nameOfScene);

TEST_P(CameraInfoOf, HasTheSevenValuesOfItsLensNarrowedToFloat) {
    const Info info = cameraOf(withCamera({}));
    ASSERT_TRUE(info);
    std::array<float, 7> expected{};
    for (std::size_t i = 0; i < expected.size(); ++i) {
        expected[i] = static_cast<float>(ovtest::lensValue(kLensNames[i]));
    }
    EXPECT_EQ(expected, lensOf(*info));
}

TEST_P(CameraInfoOf, KeepsTheValuesOfItsLensAsTheyAreThoughTheyMakeNoSense) {
    StaticScene scene = withCamera({});
    scene.set(kCamera, "geometry.fov", DoubleAttribute(-720.0))
        .set(kCamera, "geometry.near", DoubleAttribute(5.0))
        .set(kCamera, "geometry.far", DoubleAttribute(-5.0))
        .set(kCamera, "geometry.projection", "orthographic")
        .set(kCamera, "geometry.left", DoubleAttribute(3.0))
        .set(kCamera, "geometry.orthographicWidth", DoubleAttribute(8.0));
    const Info info = cameraOf(scene);
    ASSERT_TRUE(info);
    EXPECT_EQ(-720.0F, info->fov);
    EXPECT_EQ(5.0F, info->near);
    EXPECT_EQ(-5.0F, info->far);
    EXPECT_EQ(3.0F, info->left);
    EXPECT_EQ(8.0F, info->orthographicWidth);
}

TEST_P(CameraInfoOf, TakesEachValueOfItsLensNearestTimeZero) {
    const DoubleAttribute near(TimedSamples<double>{{-2.0F, {1}}, {0.5F, {2}}, {3.0F, {4}}});
    const DoubleAttribute equallyNear(TimedSamples<double>{{-1.0F, {7}}, {1.0F, {8}}});
    StaticScene scene = withCamera({});
    scene.set(kCamera, "geometry.fov", near).set(kCamera, "geometry.top", equallyNear);
    const Info info = cameraOf(scene);
    ASSERT_TRUE(info);
    EXPECT_EQ(2.0F, info->fov);
    EXPECT_EQ(7.0F, info->top);
}

TEST_P(CameraInfoOf, HasAZeroForALensValueWithoutValues) {
    for (const char* const name : kLensNames) {
        StaticScene scene = withCamera({});
        scene.set(kCamera, std::string("geometry.") + name, doubles({}));
        const Info info = cameraOf(scene);
        ASSERT_TRUE(info) << name;
        EXPECT_THAT(lensOf(*info), testing::Contains(0.0F)) << name;
    }
}

TEST_P(CameraInfoOf, IsNoneWithoutEachOfTheSevenAsADouble) {
    for (const Attribute& wrong : std::vector<Attribute>{Attribute(),
                                                         FloatAttribute(45.0F),
                                                         IntAttribute(45),
                                                         StringAttribute("45"),
                                                         GroupBuilder().build()}) {
        for (const char* const name : kLensNames) {
            StaticScene scene = withCamera({});
            scene.set(kCamera, std::string("geometry.") + name, wrong);
            EXPECT_FALSE(cameraOf(scene)) << name << ", kind " << wrong.getType();
        }
    }
}

TEST_P(CameraInfoOf, IsNoneWithTheFieldOfViewAsAFloat) {
    StaticScene scene = withCamera({});
    scene.set(kCamera, "geometry.fov", FloatAttribute(45.0F));
    EXPECT_FALSE(cameraOf(scene));
}

TEST_P(CameraInfoOf, IsNoneWhereThereIsNoLocationOrNoGroupOfGeometry) {
    ovtest::HeardLogs logs;
    EXPECT_FALSE(cameraOf(StaticScene().set("/root", "type", "group")));
    EXPECT_FALSE(cameraOf(StaticScene().set(kCamera, "type", "camera")));
    for (const Attribute& wrong :
         std::vector<Attribute>{DoubleAttribute(1.0), StringAttribute("a"), IntAttribute(1)}) {
        EXPECT_FALSE(cameraOf(StaticScene().set(kCamera, "geometry", wrong)));
    }
    EXPECT_THAT(logs.take(), IsEmpty());
}

TEST_P(CameraInfoOf, IsLookedForFromTheTopByItsWholePath) {
    const GeometryProducerPtr root = open(withCamera({}, "/root/a/b"));
    EXPECT_TRUE(GetCameraInfo(root, "/root/a/b"));
    EXPECT_TRUE(GetCameraInfo(root, "root/a/b"));
    EXPECT_FALSE(GetCameraInfo(root, "/a/b"));
    EXPECT_FALSE(GetCameraInfo(root, "/root/a"));
    EXPECT_FALSE(GetCameraInfo(root, ""));
}

TEST_P(CameraInfoOf, IsThatOfTheRenderByThePathInTheTopsSettings) {
    struct Row {
        Attribute setting;
        std::string path;
        std::string renderPath;
    };
    for (const Row& row : {Row{StringAttribute("/root/shot"), "/root/shot", "/root/shot"},
                           Row{Attribute(), kCamera, kCamera},
                           Row{IntAttribute(1), kCamera, kCamera},
                           Row{StringAttribute(std::vector<std::string>()), "", kCamera}}) {
        ClearCameraInfoCache();
        StaticScene scene = withCamera(withCamera({}), "/root/shot");
        const auto root = open(scene.set("/root", "renderSettings.cameraName", row.setting));
        EXPECT_EQ(row.path, GetCameraPath(root));
        EXPECT_EQ(row.renderPath, GetRenderCameraPath(root));
        EXPECT_TRUE(GetCameraInfo(root, GetRenderCameraPath(root))) << row.path;
    }
}

TEST_P(CameraInfoOf, CanBeTheTopItself) {
    EXPECT_TRUE(GetCameraInfo(open(withCamera({}, "/root")), "/root"));
}

TEST_P(CameraInfoOf, NeedNotBeOfTheTypeCamera) {
    EXPECT_TRUE(cameraOf(withCamera({}).set(kCamera, "type", "mesh")));
}

TEST_P(CameraInfoOf, HasTheIdentityAndNoSamplesWithoutAnyTransform) {
    const Info info = cameraOf(withCamera({}));
    ASSERT_TRUE(info);
    EXPECT_EQ(Imath::M44d(), info->xform);
    EXPECT_FALSE(info->xformAttr.isValid());
}

TEST_P(CameraInfoOf, HasTheIdentityAndNoSamplesWhenNoTransformCanBeComputed) {
    StaticScene scene = withCamera({});
    scene.set(kCamera, "xform.translate", doubles({1, 2}))
        .set("/root/world", "xform.turn", doubles({1, 2, 3}))
        .set("/root", "xform", "none");
    const Info info = cameraOf(scene);
    ASSERT_TRUE(info);
    EXPECT_EQ(Imath::M44d(), info->xform);
    EXPECT_FALSE(info->xformAttr.isValid());
}

TEST_P(CameraInfoOf, StandsWhereAllLocationsOfItsChainPutIt) {
    StaticScene scene = withCamera({});
    scene.set("/root", "xform.scale", doubles({2, 2, 2}))
        .set("/root/world", "xform.translate", doubles({10, 0, 0}))
        .set(kCamera, "xform.translate", doubles({0.1, 2, 3}));
    const Info info = cameraOf(scene);
    ASSERT_TRUE(info);
    EXPECT_EQ(Imath::M44d(2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 2, 0, (10 + 0.1) * 2, 4, 6, 1),
              info->xform);
}

TEST_P(CameraInfoOf, HasDoublesInItsMatrixAndFloatsInTuplesOfSixteenInItsSamples) {
    const Info info =
        cameraOf(withCamera({}).set(kCamera, "xform.translate", doubles({0.1, 2, 3})));
    ASSERT_TRUE(info);
    EXPECT_EQ(0.1, info->xform[3][0]);
    EXPECT_EQ(1, info->xformAttr.getNumberOfTimeSamples());
    EXPECT_EQ(0.0F, info->xformAttr.getSampleTime(0));
    EXPECT_EQ(16, info->xformAttr.getTupleSize());
    EXPECT_EQ(16, info->xformAttr.getNumberOfValues());
    EXPECT_EQ(0.1F, info->xformAttr.getValue(0, 12));
    EXPECT_EQ(1.0F, info->xformAttr.getValue(0, 15));
}

TEST_P(CameraInfoOf, HasTheSampleAtTimeZeroAndAllSamplesAscending) {
    const Info info = cameraOf(sliding({{-0.25F, 1}, {0.0F, 2}, {0.25F, 3}}));
    ASSERT_TRUE(info);
    EXPECT_EQ(2, placeOf(info));
    EXPECT_THAT(timesOf(info->xformAttr), ElementsAre(-0.25F, 0.0F, 0.25F));
    EXPECT_THAT(placesOf(info), ElementsAre(1, 2, 3));
    EXPECT_EQ(16, info->xformAttr.getTupleSize());
}

TEST_P(CameraInfoOf, TakesTheEarlierOfTwoSamplesEquallyNearTimeZero) {
    const Info info = cameraOf(sliding({{-0.25F, 1}, {0.25F, 3}}));
    ASSERT_TRUE(info);
    EXPECT_EQ(1, placeOf(info));
    EXPECT_THAT(placesOf(info), ElementsAre(1, 3));
}

TEST_P(CameraInfoOf, TakesTheNearestSampleAndInterpolatesNothingAtTimeZero) {
    const Info info = cameraOf(sliding({{-3.0F, 1}, {2.0F, 5}, {4.0F, 9}}));
    ASSERT_TRUE(info);
    EXPECT_EQ(5, placeOf(info));
    EXPECT_THAT(timesOf(info->xformAttr), ElementsAre(-3.0F, 2.0F, 4.0F));
}

TEST_P(CameraInfoOf, HasTheTimesOfAllLocationsOfItsChain) {
    StaticScene scene = sliding({{0.5F, 0}, {1.0F, 2}});
    scene.set("/root/world", "xform.translate", slide({{0.0F, 0}, {1.0F, 4}}));
    const Info info = cameraOf(scene);
    ASSERT_TRUE(info);
    EXPECT_THAT(timesOf(info->xformAttr), ElementsAre(0.0F, 0.5F, 1.0F));
    EXPECT_THAT(placesOf(info), ElementsAre(0, 2, 6));
}

TEST_P(CameraInfoOf, IsOrthographicWhenItsProjectionIsExactlyThat) {
    struct Row {
        const char* name;
        Attribute value;
        bool orthographic;
    };
    const StringAttribute none{std::vector<std::string>()};
    for (const Row& row : {Row{"exactly", StringAttribute("orthographic"), true},
                           Row{"capital", StringAttribute("Orthographic"), false},
                           Row{"capitals", StringAttribute("ORTHOGRAPHIC"), false},
                           Row{"a space behind", StringAttribute("orthographic "), false},
                           Row{"perspective", StringAttribute("perspective"), false},
                           Row{"no text", StringAttribute(""), false},
                           Row{"no values", none, false},
                           Row{"an int", IntAttribute(1), false},
                           Row{"missing", Attribute(), false}}) {
        const Info info = cameraOf(withCamera({}).set(kCamera, "geometry.projection", row.value));
        ASSERT_TRUE(info) << row.name;
        EXPECT_EQ(row.orthographic, info->orthographic) << row.name;
    }
}

TEST_P(CameraInfoOf, HasItsOrthographicWidthWhateverItsProjection) {
    for (const char* const projection : {"perspective", "orthographic", "other"}) {
        StaticScene scene = withCamera({});
        scene.set(kCamera, "geometry.projection", projection)
            .set(kCamera, "geometry.orthographicWidth", DoubleAttribute(0.1));
        const Info info = cameraOf(scene);
        ASSERT_TRUE(info);
        EXPECT_EQ(0.1F, info->orthographicWidth) << projection;
    }
}

TEST_P(CameraInfoOf, HasTheOrthographicWidthZeroWhenThatIsMissingOrNoDouble) {
    for (const Attribute& wrong : std::vector<Attribute>{Attribute(),
                                                         FloatAttribute(6.0F),
                                                         IntAttribute(6),
                                                         StringAttribute("6"),
                                                         doubles({})}) {
        StaticScene scene = withCamera({});
        scene.set(kCamera, "geometry.projection", "orthographic")
            .set(kCamera, "geometry.orthographicWidth", wrong);
        const Info info = cameraOf(scene);
        ASSERT_TRUE(info);
        EXPECT_EQ(0.0F, info->orthographicWidth);
    }
}

TEST(CameraInfoProjection, IsAskedOfTheProducerAndNotReadWithinTheGroup) {
    auto camera = fakeCamera();
    camera->set("geometry", ovtest::lens("orthographic"));
    ASSERT_TRUE(GetCameraInfo(camera, "/camera"));
    EXPECT_FALSE(GetCameraInfo(camera, "/camera")->orthographic);
    camera = fakeCamera();
    camera->set("geometry.projection", StringAttribute("orthographic"));
    ASSERT_TRUE(GetCameraInfo(camera, "/camera"));
    EXPECT_TRUE(GetCameraInfo(camera, "/camera")->orthographic);
}

TEST(CameraInfoLens, IsReadWithinTheGroupAndNotAskedOfTheProducer) {
    const auto camera = fakeCamera();
    camera->set("geometry.fov", DoubleAttribute(90.0))
        .set("geometry.orthographicWidth", DoubleAttribute(4.0));
    const Info info = GetCameraInfo(camera, "/camera");
    ASSERT_TRUE(info);
    EXPECT_EQ(static_cast<float>(ovtest::lensValue("fov")), info->fov);
    EXPECT_EQ(0.0F, info->orthographicWidth);
}

TEST(CameraInfo, OfANullRootIsNone) {
    EXPECT_FALSE(GetCameraInfo(nullptr, kCamera));
}

TEST(CameraInfo, EvictsNothingOnItsWay) {
    ClearCameraInfoCache();
    const boost::intrusive_ptr<FakeProducer> root(new FakeProducer("/root"));
    GetCameraInfo(root, kCamera);
    EXPECT_THAT(*root->steps, ElementsAre("world", "cam", "camera"));
}
