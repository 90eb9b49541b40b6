// SPDX-License-Identifier: Apache-2.0
#include "suites/SceneView/SceneViewTest.h"
#include "support/HostWithout.h"

#include <cstring>
#include <stdexcept>
#include <string>

namespace {

using namespace SYLVAR::Suites;

using ovtest::hostWithout;
using SceneView = ovtest::SceneViewTest;

TEST_F(SceneView, IsFoundThroughTheHost) {
    fake.at("/root");
    const Expected<Scene> found = Scene::find(host());
    ASSERT_TRUE(found);
    EXPECT_EQ("/root", told(found->openOpTree(freshTree().handle())));
}

TEST_F(SceneView, TellsWhichSuiteAHostLacks) {
    const Expected<Scene> scenes = Scene::find(hostWithout("ScenegraphIteratorHost"));
    ASSERT_FALSE(scenes);
    EXPECT_EQ("the host has no suite \"ScenegraphIteratorHost\", version 3",
              scenes.error().message());
    const Expected<Scene> attributes = Scene::find(hostWithout("Attribute"));
    ASSERT_FALSE(attributes);
    EXPECT_EQ("the host has no suite \"Attribute\", version 1", attributes.error().message());
}

TEST_F(SceneView, OpensFilesAndOpTrees) {
    fake.at("/root");
    EXPECT_EQ("/root", told(scene.openFile(freshFile("ops"))));
    EXPECT_EQ("/root", told(scene.openFile(freshFile("ops", "2").c_str())));
    EXPECT_EQ("/root", told(scene.openOpTree(freshTree().handle())));
}

TEST_F(SceneView, ThatCannotBeOpenedIsAnError) {
    const std::string refused = "error: the scene cannot be opened; the log tells more";
    EXPECT_EQ(refused, told(scene.openOpTree(freshTree().handle()))) << "there is no /root";
    EXPECT_EQ(refused, told(scene.openOpTree(nullptr)));
    EXPECT_EQ(refused, told(scene.openFile(freshName())));
}

TEST_F(SceneView, TellsWhatTravelsOutOfTheTableWhileItOpens) {
    fake.onCall("cookLocation", [] { throw 1; });
    EXPECT_EQ("error: the host threw what is no std::exception",
              told(scene.openOpTree(freshTree().handle())));
    EXPECT_EQ("error: the host threw what is no std::exception",
              told(scene.openFile(freshFile("ops"))));
}

TEST_F(SceneView, DescribesOpTreeFiles) {
    const std::string text = R"({"format": "sylvar", "version": 1, "content": "op tree",)"
                             R"( "root": {"a": {"opType": "generate"}}})";
    const Expected<Value> described = scene.describeFile(freshFile(text, ".optree.json"));
    ASSERT_TRUE(described);
    EXPECT_EQ("generate", described->child("a.opType").get<std::string>(""));
    const Expected<Value> missing = scene.describeFile(freshName("2"));
    ASSERT_TRUE(missing);
    EXPECT_FALSE(*missing);
}

TEST_F(SceneView, TellsWhyAFileCannotBeDescribed) {
    tables.scene.sgLoadOpTreeDescription = [](const char* name) -> OvAttributeStruct* {
        throw std::runtime_error("Error opening file: " + std::string(name));
    };
    const Expected<Value> refused = scene.describeFile("secret");
    ASSERT_FALSE(refused);
    EXPECT_EQ("Error opening file: secret", refused.error().message());
}

}  // namespace
