// SPDX-License-Identifier: Apache-2.0
#include "plugins/AssimpImport/Importing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

using namespace importing;

TEST(ImportedNames, AreSafeAndUniqueAmongSiblings) {
    const auto top = locationAt(importFile(dataFile("names.gltf")).scene, "top");
    EXPECT_THAT(childNames(top),
                testing::ElementsAre("a",
                                     "a_2",
                                     "a_2_2",
                                     "a_3",
                                     "b_c_d_e",
                                     testing::_,
                                     "__",
                                     "caf\xC3\xA9",
                                     "materials",
                                     "tab_here"));
}

TEST(ImportedNames, KeepTheOriginalInTheSource) {
    const auto scene = importFile(dataFile("names.gltf")).scene;
    EXPECT_EQ("b/c.d%e", stringOf(locationAt(scene, "top/b_c_d_e"), "source.name"));
    EXPECT_EQ("..", stringOf(locationAt(scene, "top/__"), "source.name"));
    EXPECT_EQ("a", stringOf(locationAt(scene, "top/a_3"), "source.name"));
}

TEST(ImportedNames, ReplaceWhatIsNoUtf8) {
    const auto scene = importFile(dataFile("latin.obj")).scene;
    const auto object = locationAt(scene, "latin_obj/caf_");
    EXPECT_TRUE(object);
    EXPECT_EQ("caf\xE9", stringOf(object, "source.name"));
}

TEST(ImportedNames, ReplaceWhatIsEmpty) {
    const auto scene = importFile(dataFile("light.x3d")).scene;
    EXPECT_TRUE(locationAt(scene, "light_x3d/unnamed/unnamed/mesh"));
}

TEST(ImportedNames, StandBehindTheMaterials) {
    const std::string file = writeFile("materials",
                                       "solid materials\nfacet normal 0 0 1\nouter loop\n"
                                       "vertex 0 0 0\nvertex 1 0 0\nvertex 0 1 0\n"
                                       "endloop\nendfacet\nendsolid materials\n");
    ASSERT_EQ(0, std::rename(file.c_str(), (file + ".stl").c_str()));
    const auto scene = importFile(file + ".stl").scene;
    EXPECT_EQ("materials", childNames(scene).at(0));
    EXPECT_EQ(2U, childNames(scene).size());
}

TEST(ImportedNames, AreMadeInLinearTime) {
    constexpr int kNodes = 50000;
    std::string text = R"({"asset":{"version":"2.0"},"scene":0,"scenes":[{"nodes":[0]}],)"
                       R"("cameras":[{"type":"perspective","perspective":{"yfov":1,"znear":1}}],)"
                       R"("nodes":[{"name":"top","camera":0,"children":[1)";
    for (int i = 2; i <= kNodes; ++i) {
        text += "," + std::to_string(i);
    }
    text += "]}";
    for (int i = 1; i <= kNodes; ++i) {
        text += R"(,{"name":"same"})";
    }
    const auto start = std::chrono::steady_clock::now();
    const Import import = importFile(writeFile("same.gltf", text + "]}"));
    EXPECT_EQ("", import.message);
    const std::vector<std::string> names = childNames(locationAt(import.scene, "top"));
    ASSERT_EQ(kNodes + 1U, names.size());
    EXPECT_EQ("same_50000", names.back());
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(60));
}
