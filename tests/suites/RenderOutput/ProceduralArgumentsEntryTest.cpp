// SPDX-License-Identifier: Apache-2.0
#include "support/RenderOutputTest.h"

#include <climits>

using ovtest::IsWritten;
using ovtest::StaticScene;
using ovtest::written;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

class ProceduralArgumentsEntry : public ovtest::RenderOutputTest {
protected:
    static constexpr int kClassic = OV_PROCEDURAL_ARGUMENTS_CLASSIC;
    static constexpr int kAttribute = OV_PROCEDURAL_ARGUMENTS_SCENEGRAPH_ATTR;
    static constexpr const char* kTail =
        " -frame 7 -shutter 0.25 0.75 -cropwindow 0.125 0.5 0.0625 1";

    static StaticScene sceneWith(const std::string& arguments) {
        return StaticScene().set("/root/a", "procedural", written(arguments));
    }

    OvAttributeStruct* build(Handle location, int style, const char* name = "procedural") const {
        return table.buildProceduralArgumentsString(
            location, style, name, 7, 0.25F, 0.75F, 0.125F, 0.5F, 0.0625F, 1.0F, 640, 480);
    }

    std::string text(const StaticScene& scene, int style, const char* name = "procedural") {
        return ovtest::takeString(build(at(scene, "/root/a"), style, name));
    }
    std::string classic(const std::string& arguments) {
        return text(sceneWith(arguments), kClassic);
    }
};

}  // namespace

TEST_F(ProceduralArgumentsEntry, OfStyleOneAreACommandLine) {
    EXPECT_EQ(std::string(" -a 1 2.5 -n 'x y'") + kTail,
              classic(R"({"args": {"a": {"$float": [1, 2.5]}, "n": "x y"}})"));
    EXPECT_EQ(kTail, classic("{}"));
}

TEST_F(ProceduralArgumentsEntry, OfStyleTwoAreTheXmlOfAGroup) {
    const std::string xml = text(sceneWith(R"({"args": {"n": [1, 2]}})"), kAttribute);
    EXPECT_THAT(Attribute::parseXML(xml), IsWritten(R"({"args": {"$inherit": true, "n": [1, 2]},
                              "frame": {"$float": 7},
                              "shutter": {"$float": [0.25, 0.75], "$tuple": 2},
                              "cropwindow": {"$float": [0.125, 0.5, 0.0625, 1], "$tuple": 4},
                              "varlinFullName": "/root/a"})"));
}

TEST_F(ProceduralArgumentsEntry, OfStyleOneTellOfTheCamera) {
    StaticScene scene = cameraScene();
    scene.set("/root/a", "procedural.includeCameraInfo", "As Parameters");
    EXPECT_THAT(text(scene, kClassic),
                testing::StartsWith(" -cameraInfo_path /root/world/cam/camera -cameraInfo_fov 40.5 "
                                    "-cameraInfo_near 0.5 -cameraInfo_far 1000 "));
}

TEST_F(ProceduralArgumentsEntry, OfStyleTwoTellOfTheSizeOfThePictureBesideTheCamera) {
    StaticScene scene = cameraScene();
    scene.set("/root/a", "procedural.includeCameraInfo", "As Parameters");
    const auto group = Sylvar3::internal::OvAttribute::castAttribute<
        Sylvar3::internal::OvAttribute::GroupAttribute>(
        Attribute::parseXML(text(scene, kAttribute)));
    EXPECT_EQ(IntAttribute(640).getHash(), group.getChildByName("cameraInfo_xres").getHash());
    EXPECT_EQ(IntAttribute(480).getHash(), group.getChildByName("cameraInfo_yres").getHash());
}

TEST_F(ProceduralArgumentsEntry, AreOneStringInASampleAtTimeZero) {
    for (const int style : {kClassic, kAttribute, 3}) {
        const Attribute all = take(build(at(sceneWith("{}"), "/root/a"), style));
        const OvAttributeSuite& attributes = *OvGetAttributeSuite();
        ASSERT_TRUE(all.isValid()) << style;
        ASSERT_EQ(OV_ATTRIBUTE_STRING, attributes.getType(all.handle())) << style;
        EXPECT_EQ(1, attributes.getNumberOfTimeSamples(all.handle())) << style;
        EXPECT_EQ(1, attributes.getNumberOfValues(all.handle())) << style;
        EXPECT_EQ(1, attributes.getTupleSize(all.handle())) << style;
        EXPECT_EQ(0.0F, attributes.getSampleTime(all.handle(), 0)) << style;
    }
}

TEST_F(ProceduralArgumentsEntry, OfAnyOtherStyleAreAnEmptyString) {
    for (const int style : {3, 0, -1, INT_MAX, INT_MIN}) {
        EXPECT_EQ("", text(sceneWith(R"({"args": {"a": 1}})"), style)) << style;
    }
}

TEST_F(ProceduralArgumentsEntry, AreNullWhateverTheStyleWhenTheAttributeIsNoGroup) {
    StaticScene scene;
    scene.set("/root/a", "text", "args").set("/root/a", "number", 3);
    for (const int style : {kClassic, kAttribute, 3, 0, -1}) {
        for (const char* const name : {"text", "number", "none", "text.args"}) {
            EXPECT_EQ(nullptr, build(at(scene, "/root/a"), style, name)) << style << " " << name;
        }
    }
}

TEST_F(ProceduralArgumentsEntry, AreThoseOfTheVeryLocation) {
    StaticScene scene = sceneWith(R"({"args": {"a": 1}})");
    scene.at("/root/a/b");
    EXPECT_EQ(nullptr, build(at(scene, "/root/a/b"), kClassic));
}

TEST_F(ProceduralArgumentsEntry, AreReadUnderADottedName) {
    StaticScene scene = sceneWith(R"({"inner": {"args": {"a": 1}}})");
    EXPECT_EQ(std::string(" -a 1") + kTail, text(scene, kClassic, "procedural.inner"));
}

TEST_F(ProceduralArgumentsEntry, AreReadOfAllAttributesUnderTheEmptyName) {
    const StaticScene scene = StaticScene().set("/root/a", "args", written(R"({"a": 1})"));
    EXPECT_EQ(std::string(" -a 1") + kTail, text(scene, kClassic, ""));
}

TEST_F(ProceduralArgumentsEntry, TellOfACameraOfAnotherPath) {
    StaticScene scene = cameraScene();
    scene.set("/root/other", "geometry", written(ovtest::kLens))
        .set("/root/a", "procedural", written(R"({"includeCameraInfo": "As Parameters",
            "cameraInfo": {"whichCamera": "Other Camera", "cameraPath": "/root/other"}})"));
    EXPECT_THAT(text(scene, kClassic), HasSubstr(" -cameraInfo_path /root/other "));
    EXPECT_THAT(logs.take(), ElementsAre());
}
