// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/ProceduralArguments.h>

#include "TellingAssets.h"
#include "unit/Camera/CameraScenes.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace ovtest {

/// A test of procedural arguments: a location "/root/a" of a scene with a camera, a context of
/// frame 1 and zeros, and a callback that takes down what it is told.
class ProceduralTest : public testing::Test {
protected:
    using Attribute = SYLVAR::Attribute;
    using GroupAttribute = SYLVAR::GroupAttribute;
    using IntAttribute = Sylvar3::internal::OvAttribute::IntAttribute;
    using FloatAttribute = Sylvar3::internal::OvAttribute::FloatAttribute;
    using DoubleAttribute = Sylvar3::internal::OvAttribute::DoubleAttribute;
    using StringAttribute = SYLVAR::StringAttribute;
    using Children = std::vector<GroupAttribute::Child>;
    using Strings = std::vector<std::string>;

    static constexpr const char* kCamera = "/root/world/cam/camera";
    static constexpr const char* kTail = " -frame 1 -shutter 0 0 -cropwindow 0 0 0 0";

    ProceduralTest() {
        told().clear();
        context.frame = 1;
    }
    ~ProceduralTest() override {
        TellingAssets::leave();
        SYLVAR::ClearCameraInfoCache();
    }

    static GroupAttribute group(const Children& children, bool groupInherit = false) {
        return GroupAttribute(children, groupInherit);
    }

    /// A scene of the camera where a render looks for one, and of the location "/root/a".
    static StaticScene cameraScene(const reference::Camera& camera = reference::Camera()) {
        StaticScene scene;
        putCamera(scene, kCamera, camera);
        return scene.at("/root/a");
    }
    static SYLVAR::GeometryProducerPtr open(const StaticScene& scene, Behind behind) {
        return openScene(scene, behind)->getProducerByPath("/root/a", false);
    }

    /// The line of command, and what of it "args" alone gives.
    std::string classic(const GroupAttribute& attrs) {
        return BuildClassicProceduralArgumentsString(producer, context, attrs, callback);
    }
    std::string classicArgs(const Children& args) {
        const std::string text = classic(group({{"args", group(args)}}));
        const std::size_t tail = text.rfind(kTail);
        EXPECT_NE(std::string::npos, tail) << text;
        return text.substr(0, tail);
    }

    /// The attribute that the XML stands for, which is the very XML of it.
    GroupAttribute attributeForm(const GroupAttribute& attrs) {
        const std::string xml =
            BuildScenegraphAttrProceduralArgumentsString(producer, context, attrs, callback);
        const Attribute read = Attribute::parseXML(xml);
        EXPECT_EQ(xml, read.getXML());
        return Sylvar3::internal::OvAttribute::castAttribute<GroupAttribute>(read);
    }
    GroupAttribute attributeArgs(const Children& args) {
        return attributeForm(group({{"args", group(args)}})).getChild<GroupAttribute>("args");
    }

    static Strings namesOf(const GroupAttribute& group) {
        Strings names;
        for (std::int64_t i = 0; i < group.getNumberOfChildren(); ++i) {
            names.push_back(group.getChildName(i));
        }
        return names;
    }

    /// What the callback was told since the last time, and of which producer.
    static Strings takeTold() {
        Strings messages;
        for (auto& [message, producer] : std::exchange(told(), {})) {
            messages.push_back(message);
        }
        return messages;
    }
    using Told = std::vector<std::pair<std::string, SYLVAR::GeometryProducerPtr>>;
    static Told& told() {
        static Told told;
        return told;
    }
    static void tell(const std::string& message, SYLVAR::GeometryProducerPtr producer) {
        told().emplace_back(message, std::move(producer));
    }

    TellingAssets& assets = TellingAssets::fresh();
    SYLVAR::ProceduralOutputContextInfo context;
    SYLVAR::ProceduralErrorCallback callback = &tell;
    SYLVAR::GeometryProducerPtr producer = open(cameraScene(), Behind::Group);
};

inline void expectEqual(const SYLVAR::Attribute& expected, const SYLVAR::Attribute& actual) {
    EXPECT_EQ(expected.getXML(), actual.getXML());
    EXPECT_EQ(expected.getHash().str(), actual.getHash().str());
}

}  // namespace ovtest
