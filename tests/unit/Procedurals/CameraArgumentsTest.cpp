// SPDX-License-Identifier: Apache-2.0
#include "ProceduralTest.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

using namespace ovtest;
using Sylvar3::internal::OvAttribute::TimedSamples;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

constexpr const char* kLensText =
    " -cameraInfo_fov 45 -cameraInfo_near 0.5 -cameraInfo_far 100 -cameraInfo_left -1"
    " -cameraInfo_right 1 -cameraInfo_top 1 -cameraInfo_bottom -1";
constexpr const char* kIdentityText = " -cameraInfo_xform 1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1";

const std::vector<std::string> kNames = {"frame",
                                         "shutter",
                                         "cropwindow",
                                         "cameraInfo_path",
                                         "cameraInfo_fov",
                                         "cameraInfo_near",
                                         "cameraInfo_far",
                                         "cameraInfo_left",
                                         "cameraInfo_right",
                                         "cameraInfo_top",
                                         "cameraInfo_bottom",
                                         "cameraInfo_xform",
                                         "cameraInfo_xres",
                                         "cameraInfo_yres",
                                         "varlinFullName"};

}  // namespace

class CameraArguments : public ProceduralTest, public testing::WithParamInterface<Behind> {
protected:
    CameraArguments() { show(cameraScene()); }

    void show(const StaticScene& scene) { producer = open(scene, GetParam()); }

    static GroupAttribute asked(const char* how = "As Parameters") {
        return group({{"includeCameraInfo", StringAttribute(how)}});
    }
    static GroupAttribute askedOf(const std::string& path) {
        return group({{"includeCameraInfo", StringAttribute("As Parameters")},
                      {"cameraInfo",
                       group({{"whichCamera", StringAttribute("Other Camera")},
                              {"cameraPath", StringAttribute(path)}})}});
    }

    void expectNoCamera(const GroupAttribute& attrs) {
        EXPECT_EQ(kTail, classic(attrs));
        EXPECT_THAT(namesOf(attributeForm(attrs)),
                    ElementsAre("frame", "shutter", "cropwindow", "varlinFullName"));
        EXPECT_EQ(Strings(), takeTold());
        EXPECT_EQ(Strings(), assets.take());
    }
};

INSTANTIATE_TEST_SUITE_P(,
                         CameraArguments,
                         testing::Values(Behind::Group, Behind::Runtime),
                         nameOf);

TEST_P(CameraArguments, StandBetweenTheOthersAndTheFrame) {
    const GroupAttribute attrs = group({{"args", group({{"a", IntAttribute(1)}})},
                                        {"systemArgs", group({{"b", IntAttribute(2)}})},
                                        {"includeCameraInfo", StringAttribute("As Parameters")}});
    EXPECT_EQ(std::string(" -a 1 -b 2 -cameraInfo_path /root/world/cam/camera") + kLensText +
                  kIdentityText + kTail,
              classic(attrs));
}

TEST_P(CameraArguments, NeedNoOtherArguments) {
    EXPECT_EQ(
        std::string(" -cameraInfo_path /root/world/cam/camera") + kLensText + kIdentityText + kTail,
        classic(asked()));
}

TEST_P(CameraArguments, HaveTheirPlaceAndKindsInTheAttributeForm) {
    context.xres = 640;
    context.yres = -480;
    const GroupAttribute read = attributeForm(asked());
    EXPECT_EQ(kNames, namesOf(read));
    expectEqual(StringAttribute(kCamera), read.getChildByName("cameraInfo_path"));
    expectEqual(FloatAttribute(45.0F), read.getChildByName("cameraInfo_fov"));
    expectEqual(FloatAttribute(0.5F), read.getChildByName("cameraInfo_near"));
    expectEqual(FloatAttribute(100.0F), read.getChildByName("cameraInfo_far"));
    expectEqual(FloatAttribute(-1.0F), read.getChildByName("cameraInfo_left"));
    expectEqual(FloatAttribute(1.0F), read.getChildByName("cameraInfo_right"));
    expectEqual(FloatAttribute(1.0F), read.getChildByName("cameraInfo_top"));
    expectEqual(FloatAttribute(-1.0F), read.getChildByName("cameraInfo_bottom"));
    expectEqual(FloatAttribute({1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}, 16),
                read.getChildByName("cameraInfo_xform"));
    expectEqual(IntAttribute(640), read.getChildByName("cameraInfo_xres"));
    expectEqual(IntAttribute(-480), read.getChildByName("cameraInfo_yres"));
}

TEST_P(CameraArguments, HaveAMatrixOfFloatsRowByRow) {
    reference::Camera camera;
    camera.xform = {{{0.1, 2, 3, 0}, {5, 6, 7, 0}, {9, 10, 1e-40, 0}, {-13, 14.5, 1e20, 1}}};
    show(cameraScene(camera));
    EXPECT_THAT(classic(asked()),
                HasSubstr(" -cameraInfo_xform 0.10000000149 2 3 0 5 6 7 0 9 10 9.99994610111e-41 0"
                          " -13 14.5 1.00000002004e+20 1 -frame"));
}

TEST_P(CameraArguments, HaveOneMatrixInALineAndAllTimeSamplesInTheAttributeForm) {
    const TimedSamples<double> moves = {{-0.25F, {1, 0, 0}}, {0, {2, 0, 0}}, {0.25F, {3, 0, 0}}};
    show(StaticScene()
             .set(kCamera, "geometry", geometryOf(reference::Camera()))
             .set(kCamera, "xform.translate", DoubleAttribute(moves, 3))
             .at("/root/a"));
    EXPECT_THAT(classic(asked()),
                HasSubstr(" -cameraInfo_xform 1 0 0 0 0 1 0 0 0 0 1 0 2 0 0 1 -frame"));
    const TimedSamples<float> matrices = {
        {-0.25F, {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 1, 0, 0, 1}},
        {0, {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 2, 0, 0, 1}},
        {0.25F, {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 3, 0, 0, 1}}};
    expectEqual(FloatAttribute(matrices, 16),
                attributeForm(asked()).getChildByName("cameraInfo_xform"));
}

TEST_P(CameraArguments, OfACameraWithoutATransformHaveAnIdentityInALineAndNullInTheAttributeForm) {
    show(StaticScene().set(kCamera, "geometry", geometryOf(reference::Camera())).at("/root/a"));
    EXPECT_THAT(classic(asked()), HasSubstr(kIdentityText));
    const GroupAttribute read = attributeForm(asked());
    EXPECT_EQ(kNames, namesOf(read));
    EXPECT_FALSE(read.getChildByName("cameraInfo_xform").isValid());
}

TEST_P(CameraArguments, AreOfTheCameraThatTheSettingsName) {
    StaticScene scene = cameraScene();
    reference::Camera other;
    other.fov = 30;
    putCamera(scene, "/root/other", other);
    show(scene.set("/root", "renderSettings.cameraName", "/root/other"));
    EXPECT_THAT(classic(asked()),
                HasSubstr(" -cameraInfo_path /root/other -cameraInfo_fov 30 -cameraInfo_near"));
    expectEqual(FloatAttribute(30.0F), attributeForm(asked()).getChildByName("cameraInfo_fov"));
}

TEST_P(CameraArguments, AreOfTheOtherCameraThatIsNamed) {
    StaticScene scene = cameraScene();
    reference::Camera other;
    other.fov = 30;
    putCamera(scene, "/root/other", other);
    show(scene);
    EXPECT_THAT(classic(askedOf("/root/other")),
                HasSubstr(" -cameraInfo_path /root/other -cameraInfo_fov 30 -cameraInfo_near"));
    const GroupAttribute read = attributeForm(askedOf("/root/other"));
    expectEqual(StringAttribute("/root/other"), read.getChildByName("cameraInfo_path"));
    expectEqual(FloatAttribute(30.0F), read.getChildByName("cameraInfo_fov"));
}

TEST_P(CameraArguments, AreNotThereUnlessTheyAreAskedForAsParameters) {
    for (const char* how : {"None", "", "as parameters", "Perhaps"}) {
        expectNoCamera(asked(how));
    }
}

// An oddity: nobody acts on it.
TEST_P(CameraArguments, AreNotThereAsAttributes) {
    expectNoCamera(asked("As Attributes"));
}

TEST_P(CameraArguments, AreNotThereAndNotMissedWhenThereIsNoSuchCamera) {
    expectNoCamera(askedOf("/root/none"));
    expectNoCamera(askedOf("/root/a"));
    expectNoCamera(askedOf("no path"));
    show(StaticScene().at("/root/a"));
    expectNoCamera(asked());
}

TEST_P(CameraArguments, AreNotThereForAnEmptyPath) {
    expectNoCamera(askedOf(""));
    show(cameraScene().set("/root", "renderSettings.cameraName", ""));
    expectNoCamera(asked());
}

TEST_P(CameraArguments, AreNotThereForACameraThatLacksALensValue) {
    for (const char* missing : {"fov", "near", "far", "left", "right", "top", "bottom"}) {
        const GroupAttribute lens = Sylvar3::internal::OvAttribute::GroupBuilder()
                                        .update(geometryOf(reference::Camera()))
                                        .remove(missing)
                                        .build();
        show(StaticScene().set(kCamera, "geometry", lens).at("/root/a"));
        expectNoCamera(asked());
    }
}

TEST_P(CameraArguments, HaveAPathThatIsResolvedInALine) {
    context.frame = 7;
    assets.answer(kCamera, "a camera");
    EXPECT_THAT(classic(asked()), HasSubstr(" -cameraInfo_path 'a camera' -cameraInfo_fov"));
    EXPECT_THAT(assets.take(), ElementsAre(std::string(kCamera) + " 7 true"));
}

TEST_P(CameraArguments, LackAPathThatCannotBeResolvedInALineAndSayNothing) {
    assets.failFor(kCamera);
    EXPECT_EQ(std::string(" -cameraInfo_path ") + kLensText + kIdentityText + kTail,
              classic(asked()));
    EXPECT_EQ(Strings(), takeTold());
}

TEST_P(CameraArguments, HaveAPathThatIsNotResolvedInTheAttributeForm) {
    assets.answer(kCamera, "a camera");
    expectEqual(StringAttribute(kCamera), attributeForm(asked()).getChildByName("cameraInfo_path"));
    EXPECT_EQ(Strings(), assets.take());
}

// An oddity: it is set twice, and a group has each name once.
TEST_P(CameraArguments, HaveOnePathInTheAttributeForm) {
    const Strings names = namesOf(attributeForm(asked()));
    EXPECT_EQ(1, std::count(names.begin(), names.end(), "cameraInfo_path"));
}

TEST_P(CameraArguments, TakeThePlaceOfSystemArgumentsOfTheirNames) {
    const GroupAttribute attrs =
        group({{"systemArgs",
                group({{"cameraInfo_fov", IntAttribute(1)}, {"cameraInfo_xres", IntAttribute(2)}})},
               {"includeCameraInfo", StringAttribute("As Parameters")}});
    context.xres = 640;
    const GroupAttribute read = attributeForm(attrs);
    EXPECT_EQ("cameraInfo_fov", read.getChildName(0));
    expectEqual(FloatAttribute(45.0F), read.getChildByIndex(0));
    expectEqual(IntAttribute(640), read.getChildByIndex(1));
}
