// SPDX-License-Identifier: Apache-2.0
#include "suites/RenderOutputView/RenderOutputViewTest.h"

#include <string>
#include <type_traits>
#include <vector>

namespace {

using namespace SYLVAR::Suites;
using Sylvar3::internal::OvAttribute::StringAttribute;
using testing::ElementsAre;

constexpr char kCamera[] = "/root/cam";
constexpr char kLens[] = R"({
    "fov": {"$double": 35}, "near": {"$double": 0.5}, "far": {"$double": 1000},
    "left": {"$double": -1}, "right": {"$double": 2}, "top": {"$double": 3}, "bottom": {"$double": -4},
    "projection": "orthographic", "orthographicWidth": {"$double": 8}
})";

class Picture : public ovtest::RenderOutputViewTest {
protected:
    Picture() {
        fake.at("/root", {"cam", "box"}).at("/root/box").at(kCamera);
        fake.set(kCamera, "geometry", ovtest::written(kLens));
        fake.set(kCamera, "xform.translate", ovtest::written(R"({"$double": [5, 6, 7]})"));
        fake.set("/root/box", "bound", ovtest::written(R"({"$double": [-1, 1, -1, 1, -9, -8]})"));
    }
};

static_assert(std::is_trivially_copyable_v<Camera>);

TEST_F(Picture, HasTheResolutionOfTheRenderSettings) {
    fake.set("/root", "renderSettings.resolution", StringAttribute("hd_720"));
    const Expected<Resolution> picture = output.resolution(open());
    ASSERT_TRUE(picture);
    EXPECT_EQ("hd_720", picture->name);
    EXPECT_EQ(1280, picture->width);
    EXPECT_EQ(720, picture->height);
}

TEST_F(Picture, IsASquareWhenNothingIsSet) {
    for (const Expected<Resolution>& picture :
         {output.resolution(open()), output.resolution(Location())}) {
        ASSERT_TRUE(picture);
        EXPECT_EQ("square_512", picture->name);
        EXPECT_EQ(512, picture->width);
        EXPECT_EQ(512, picture->height);
    }
}

TEST_F(Picture, OfAResolutionThatIsNotKnownIsAnError) {
    fake.set("/root", "renderSettings.resolution", StringAttribute("hd_721"));
    const Expected<Resolution> picture = output.resolution(open());
    ASSERT_FALSE(picture);
    EXPECT_EQ("FileOut: Error querying resolution table for resolution: 'hd_721'.",
              picture.error().message());
}

TEST_F(Picture, IsSeenThroughTheCameraOfTheRenderSettings) {
    EXPECT_EQ("/root/world/cam/camera", told(output.cameraPath(open())));
    fake.set("/root", "renderSettings.cameraName", StringAttribute(kCamera));
    EXPECT_EQ(kCamera, told(output.cameraPath(open())));
    EXPECT_EQ("", told(output.cameraPath(Location())));
}

TEST_F(Picture, HasACameraWithALensAndAPlace) {
    const Expected<Camera> camera = output.camera(open(), std::string(kCamera));
    ASSERT_TRUE(camera);
    ASSERT_TRUE(*camera);
    EXPECT_EQ(35.0F, camera->fov);
    EXPECT_EQ(0.5F, camera->near);
    EXPECT_EQ(1000.0F, camera->far);
    EXPECT_EQ(-1.0F, camera->left);
    EXPECT_EQ(2.0F, camera->right);
    EXPECT_EQ(3.0F, camera->top);
    EXPECT_EQ(-4.0F, camera->bottom);
    EXPECT_TRUE(camera->isOrthographic);
    EXPECT_EQ(8.0F, camera->orthographicWidth);
    EXPECT_THAT(camera->xform, ElementsAre(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 5, 6, 7, 1));
}

TEST_F(Picture, HasACameraThatIsAValueWithoutAHandle) {
    const Expected<Camera> camera = output.camera(open(), kCamera);
    ASSERT_TRUE(camera);
    EXPECT_EQ(0U, ovtest::CountedRenderOutput::handles().open());
    const Camera copy = *camera;
    EXPECT_EQ(35.0F, copy.fov);
}

TEST_F(Picture, HasAnAbsentCameraWithZerosWhereNoneCanBeRead) {
    for (const Expected<Camera>& camera : {output.camera(open(), "/root/box"),
                                           output.camera(open(), "/root/none"),
                                           output.camera(open(), nullptr),
                                           output.camera(Location(), kCamera)}) {
        ASSERT_TRUE(camera);
        EXPECT_FALSE(*camera);
        EXPECT_EQ(0.0F, camera->fov);
        EXPECT_THAT(camera->xform, testing::Each(0.0));
    }
}

TEST_F(Picture, OfACameraThatCannotBeCookedIsAnError) {
    const Location root = open();
    fake.throwIn("cookLocation");
    const Expected<Camera> camera = output.camera(root, kCamera);
    ASSERT_FALSE(camera);
    EXPECT_EQ("fault of cookLocation", camera.error().message());
}

TEST_F(Picture, HasAnAreaForABound) {
    const Expected<int> area = output.pixelArea(open("/root/box"), kCamera, "square_512");
    ASSERT_TRUE(area);
    EXPECT_GT(*area, 0);
    for (const Expected<int>& none : {output.pixelArea(open("/root/box"), kCamera, "hd_721"),
                                      output.pixelArea(open("/root/box"), "/root/no", "square_512"),
                                      output.pixelArea(Location(), kCamera, "square_512")}) {
        ASSERT_TRUE(none);
        EXPECT_EQ(0, *none);
    }
}

TEST_F(Picture, HasNoAreaForALocationWithoutABound) {
    const Expected<int> area = output.pixelArea(open(), kCamera, "square_512");
    ASSERT_FALSE(area);
    EXPECT_EQ("Cannot get bounds attribute on /root", area.error().message());
}

TEST_F(Picture, IsOfTheSampleTimesThatMatterWhileTheShutterIsOpen) {
    const Expected<Values<float>> some = output.relevantSampleTimes({3, 0, 1, 2, 1}, 0.5F, 1.5F);
    ASSERT_TRUE(some);
    EXPECT_THAT(*some, ElementsAre(0, 1, 2));
    const Expected<Values<float>> none = output.relevantSampleTimes({}, 0, 1);
    ASSERT_TRUE(none);
    EXPECT_TRUE(none->empty());
}

}  // namespace
