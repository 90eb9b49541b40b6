// SPDX-License-Identifier: Apache-2.0
#include "Procedurals/CameraInfoRequest.h"

#include "ProceduralTest.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace ovtest;
using SYLVAR::CameraInfoMode;
using Sylvar3::internal::OvAttribute::TimedSamples;

namespace {

using SYLVAR::Attribute;
using SYLVAR::GroupAttribute;
using SYLVAR::StringAttribute;
using Strings = std::vector<std::string>;
using Sylvar3::internal::OvAttribute::IntAttribute;

/// What "includeCameraInfo" may be, and how the camera is then wanted.
struct Inclusion {
    std::string name;
    bool isThere;
    Attribute value;
    CameraInfoMode mode;
    bool isLookedFor;
};

std::vector<Inclusion> inclusions() {
    const auto text = [](const char* value) { return StringAttribute(value); };
    return {
        {"Absent", false, {}, CameraInfoMode::None, false},
        {"Null", true, {}, CameraInfoMode::None, false},
        {"NoString", true, IntAttribute(1), CameraInfoMode::None, false},
        {"AGroup", true, GroupAttribute({}, false), CameraInfoMode::None, false},
        {"None", true, text("None"), CameraInfoMode::None, false},
        {"NoValues", true, StringAttribute(std::vector<std::string>()), CameraInfoMode::None, true},
        {"Empty", true, text(""), CameraInfoMode::None, true},
        {"OtherText", true, text("Perhaps"), CameraInfoMode::None, true},
        {"OtherCase", true, text("as parameters"), CameraInfoMode::None, true},
        {"WithABlank", true, text("As Parameters "), CameraInfoMode::None, true},
        {"AsParameters", true, text("As Parameters"), CameraInfoMode::AsParameters, true},
        {"AsAttributes", true, text("As Attributes"), CameraInfoMode::AsAttributes, true},
        {"FirstOfTwo",
         true,
         StringAttribute(Strings{"As Parameters", "None"}),
         CameraInfoMode::AsParameters,
         true},
        {"NearestTimeZero",
         true,
         StringAttribute(TimedSamples<std::string>{{-1, {"None"}}, {0.5F, {"As Attributes"}}}),
         CameraInfoMode::AsAttributes,
         true},
    };
}

constexpr const char* kRenderCamera = "/root/cameraOfTheRender";

/// What "cameraInfo" may be, and which camera that means.
struct Choice {
    std::string name;
    bool isThere;
    Attribute value;
    std::string path;
};

Choice ofGroup(const std::string& name,
               const std::vector<GroupAttribute::Child>& children,
               const std::string& path) {
    return {name, true, GroupAttribute(children, false), path};
}

std::vector<Choice> choices() {
    const StringAttribute other("Other Camera");
    const StringAttribute path("/root/other");
    const StringAttribute noValues((std::vector<std::string>()));
    return {
        {"Absent", false, {}, kRenderCamera},
        {"Null", true, {}, kRenderCamera},
        {"NoGroup", true, other, kRenderCamera},
        ofGroup("EmptyGroup", {}, kRenderCamera),
        ofGroup("PathAlone", {{"cameraPath", path}}, kRenderCamera),
        ofGroup("WhichIsNoString",
                {{"whichCamera", IntAttribute(1)}, {"cameraPath", path}},
                kRenderCamera),
        ofGroup(
            "WhichHasNoValues", {{"whichCamera", noValues}, {"cameraPath", path}}, kRenderCamera),
        ofGroup("RenderCamera",
                {{"whichCamera", StringAttribute("Render Camera")}, {"cameraPath", path}},
                kRenderCamera),
        ofGroup("OtherCase",
                {{"whichCamera", StringAttribute("other camera")}, {"cameraPath", path}},
                kRenderCamera),
        ofGroup("OtherWithoutPath", {{"whichCamera", other}}, kRenderCamera),
        ofGroup("OtherWithAPathThatIsNoString",
                {{"whichCamera", other}, {"cameraPath", IntAttribute(1)}},
                kRenderCamera),
        ofGroup("OtherWithAPathOfNoValues", {{"whichCamera", other}, {"cameraPath", noValues}}, ""),
        ofGroup("OtherWithAnEmptyPath",
                {{"whichCamera", other}, {"cameraPath", StringAttribute("")}},
                ""),
        ofGroup("Other", {{"whichCamera", other}, {"cameraPath", path}}, "/root/other"),
        ofGroup("OtherAsFirstOfTwo",
                {{"whichCamera", StringAttribute(Strings{"Other Camera", "x"})},
                 {"cameraPath", StringAttribute(Strings{"/root/other", "/root/x"})}},
                "/root/other"),
    };
}

}  // namespace

class CameraInfoRequest : public ProceduralTest, public testing::WithParamInterface<Behind> {
protected:
    CameraInfoRequest() {
        producer = open(cameraScene().set("/root", "renderSettings.cameraName", kRenderCamera),
                        GetParam());
    }
};

INSTANTIATE_TEST_SUITE_P(,
                         CameraInfoRequest,
                         testing::Values(Behind::Group, Behind::Runtime),
                         nameOf);

TEST_P(CameraInfoRequest, IsReadOfEachCombination) {
    for (const Inclusion& inclusion : inclusions()) {
        for (const Choice& choice : choices()) {
            Children attrs;
            if (inclusion.isThere) {
                attrs.emplace_back("includeCameraInfo", inclusion.value);
            }
            if (choice.isThere) {
                attrs.emplace_back("cameraInfo", choice.value);
            }
            std::string path = "what was there before";
            EXPECT_EQ(inclusion.mode, ReadCameraInfoRequest(producer, group(attrs), path))
                << inclusion.name << " " << choice.name;
            EXPECT_EQ(inclusion.isLookedFor ? choice.path : "", path)
                << inclusion.name << " " << choice.name;
        }
    }
}

TEST_P(CameraInfoRequest, OfANullGroupIsNone) {
    std::string path = "what was there before";
    EXPECT_EQ(CameraInfoMode::None, ReadCameraInfoRequest(producer, GroupAttribute(), path));
    EXPECT_EQ("", path);
}

TEST_P(CameraInfoRequest, MeansTheUsualCameraWhenTheSettingsNameNone) {
    const GroupAttribute attrs = group({{"includeCameraInfo", StringAttribute("As Parameters")}});
    for (const Attribute& name :
         {Attribute(), Attribute(IntAttribute(1)), Attribute(StringAttribute(Strings()))}) {
        const auto location =
            open(cameraScene().set("/root", "renderSettings.cameraName", name), GetParam());
        std::string path;
        ReadCameraInfoRequest(location, attrs, path);
        EXPECT_EQ("/root/world/cam/camera", path);
    }
}

TEST_P(CameraInfoRequest, FindsTheSettingsFromTheTopToo) {
    const auto top = producer->getRootProducer();
    std::string path;
    ReadCameraInfoRequest(
        top, group({{"includeCameraInfo", StringAttribute("As Parameters")}}), path);
    EXPECT_EQ(kRenderCamera, path);
}

TEST(CameraInfoMode, HasTheNumbersThatItIsToldBy) {
    EXPECT_EQ(0, static_cast<int>(CameraInfoMode::None));
    EXPECT_EQ(1, static_cast<int>(CameraInfoMode::AsParameters));
    EXPECT_EQ(2, static_cast<int>(CameraInfoMode::AsAttributes));
}
