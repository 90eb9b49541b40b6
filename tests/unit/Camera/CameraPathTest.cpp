// SPDX-License-Identifier: Apache-2.0
#include "Camera/CameraPath.h"

#include <OvSylvarProducers/CameraInfo.h>

#include "support/FakeProducer.h"
#include "support/StaticScene.h"
#include "support/Threads.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

using namespace SYLVAR;
using namespace Sylvar3::internal::OvAttribute;
using ovtest::FakeProducer;
using ovtest::StaticScene;

namespace {

constexpr char kSetting[] = "renderSettings.cameraName";
constexpr char kDefault[] = "/root/world/cam/camera";

GeometryProducerPtr rootWith(const Attribute& setting) {
    return StaticScene().set("/root", kSetting, setting).open();
}

}  // namespace

TEST(CameraPath, IsThatOfTheRendersSettingsAndTheUsualOneWhenNoneIsSet) {
    struct Row {
        const char* name;
        Attribute setting;
        std::string path;
        std::string renderPath;
    };
    const StringAttribute moving(
        TimedSamples<std::string>{{-1.0F, {"early"}}, {0.5F, {"near"}}, {2.0F, {"late"}}});
    const StringAttribute equallyNear(TimedSamples<std::string>{{1.0F, {"a"}}, {-1.0F, {"b"}}});
    for (const Row& row :
         {Row{"a path", StringAttribute("/root/shot"), "/root/shot", "/root/shot"},
          Row{"any text", StringAttribute("main"), "main", "main"},
          Row{"an empty text", StringAttribute(""), "", ""},
          Row{"two values", StringAttribute(std::vector<std::string>{"a", "b"}), "a", "a"},
          Row{"samples", moving, "near", "near"},
          Row{"samples equally near", equallyNear, "a", "a"},
          Row{"missing", Attribute(), kDefault, kDefault},
          Row{"an int", IntAttribute(1), kDefault, kDefault},
          Row{"a double", DoubleAttribute(1), kDefault, kDefault},
          Row{"a group", GroupBuilder().set("a", StringAttribute("b")).build(), kDefault, kDefault},
          Row{"no values", StringAttribute(std::vector<std::string>()), "", kDefault}}) {
        EXPECT_EQ(row.path, GetCameraPath(rootWith(row.setting))) << row.name;
        EXPECT_EQ(row.renderPath, GetRenderCameraPath(rootWith(row.setting))) << row.name;
    }
}

TEST(CameraPath, IsTheUsualOneWithoutAnyRenderSettings) {
    const GeometryProducerPtr root = StaticScene().at("/root/world").open();
    EXPECT_EQ(kDefault, GetCameraPath(root));
    EXPECT_EQ(kDefault, GetRenderCameraPath(root));
}

TEST(CameraPath, OfASettingWithoutValuesIsEmptyAndTheUsualOneForARender) {
    const GeometryProducerPtr root = rootWith(StringAttribute(std::vector<std::string>()));
    EXPECT_EQ("", GetCameraPath(root));
    EXPECT_EQ(kDefault, GetRenderCameraPath(root));
}

TEST(CameraPath, IsAskedForByADottedNameOnTheProducerAndLooksAtNoOtherLocation) {
    const boost::intrusive_ptr<FakeProducer> root(new FakeProducer("/root"));
    root->set(kSetting, StringAttribute("/root/a"));
    EXPECT_EQ("/root/a", GetCameraPath(root));
    EXPECT_EQ("/root/a", GetRenderCameraPath(root));
    EXPECT_THAT(*root->steps, testing::IsEmpty());
}

TEST(CameraPath, OfANullRootIsEmpty) {
    EXPECT_EQ("", GetCameraPath(nullptr));
}

TEST(CameraPathOfARender, ThrowsForANullRoot) {
    try {
        GetRenderCameraPath(nullptr);
        ADD_FAILURE() << "nothing was thrown";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ("No root producer given for determining render camera path.", error.what());
    }
}

TEST(CameraPath, IsGivenToManyThreadsAtOnce) {
    const GeometryProducerPtr root = rootWith(StringAttribute("/root/shot"));
    std::vector<std::string> paths(8);
    ovtest::onThreads(8, [&](int i) { paths[static_cast<std::size_t>(i)] = GetCameraPath(root); });
    EXPECT_THAT(paths, testing::Each("/root/shot"));
}
