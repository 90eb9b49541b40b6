// SPDX-License-Identifier: Apache-2.0
#include "plugins/AssimpImport/Importing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace importing;

namespace {

std::string repeated(const std::string& text, int count) {
    std::string all;
    all.reserve(text.size() * static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        all += text;
    }
    return all;
}

std::string colladaChain(int depth) {
    return R"(<?xml version="1.0"?>
<COLLADA xmlns="http://www.collada.org/2005/11/COLLADASchema" version="1.4.1">
<library_cameras><camera id="c" name="c"><optics><technique_common><perspective>
<xfov>60</xfov><znear>1</znear><zfar>10</zfar>
</perspective></technique_common></optics></camera></library_cameras>
<library_visual_scenes><visual_scene id="s" name="s">)" +
           repeated("<node name=\"n\">", depth) + "<instance_camera url=\"#c\"/>" +
           repeated("</node>", depth) +
           "</visual_scene></library_visual_scenes>"
           "<scene><instance_visual_scene url=\"#s\"/></scene></COLLADA>";
}

std::string gltfChain(int depth) {
    std::string nodes;
    for (int i = 1; i < depth; ++i) {
        nodes += "{\"name\":\"n\",\"children\":[" + std::to_string(i) + "]},";
    }
    return R"({"asset":{"version":"2.0"},"scene":0,"scenes":[{"nodes":[0]}],"nodes":[)" + nodes +
           R"({"name":"n","camera":0}],"cameras":[{"type":"perspective","perspective":)"
           R"({"yfov":1,"znear":1,"zfar":2}}]})";
}

}  // namespace

TEST(DeepAssets, OfColladaAreRead) {
    const Import import = importFile(writeFile("deep.dae", colladaChain(10000)));
    EXPECT_EQ("", import.message);
    EXPECT_LT(10000U, allLocations(import.scene).size());
}

TEST(DeepAssets, OfGltfAreRead) {
    const Import import = importFile(writeFile("deep.gltf", gltfChain(30000)));
    EXPECT_EQ("", import.message);
    EXPECT_LT(30000U, allLocations(import.scene).size());
}

TEST(DeepAssets, AreRefusedBeyondReason) {
    const std::string deepGroups =
        "<?xml version=\"1.0\"?><X3D><Scene>" + repeated("<Group>", 200000);
    EXPECT_THAT(importFile(writeFile("deep.x3d", deepGroups)).message,
                testing::EndsWith(": it is nested more than 100000 levels deep."));
    EXPECT_THAT(importFile(writeFile("deep.ifc", "#1=X(" + repeated("(", 5000))).message,
                testing::EndsWith(": it is nested more than 1000 levels deep."));
    EXPECT_THAT(importFile(writeFile("deep.fbx", repeated("a: {", 200000))).message,
                testing::EndsWith(": it is nested more than 100000 levels deep."));
    EXPECT_THAT(importFile(writeFile("deepest.gltf", repeated("[", 2000000))).message,
                testing::EndsWith(": it is nested more than 1048576 levels deep."));
}

TEST(DeepAssets, AreMeasuredOutsideCommentsAndQuotes) {
    const std::string hidden =
        "<!-- " + repeated("<a>", 200000) + " --><b c=\"" + repeated(">", 200000) + "\"/>";
    const std::string x3d = "<?xml version=\"1.0\"?><X3D>" + hidden + "<Scene></Scene></X3D>";
    EXPECT_THAT(importFile(writeFile("shallow.x3d", x3d)).message,
                testing::Not(testing::HasSubstr("nested")));
    const std::string gltf =
        "{\"asset\":{\"version\":\"2.0\"},\"extras\":\"" + repeated("[", 2000000) + "\"}";
    EXPECT_THAT(importFile(writeFile("shallow.gltf", gltf)).message,
                testing::Not(testing::HasSubstr("nested")));
}

TEST(DeepAssets, OfBinaryFbxAreMeasuredByTheirRecords) {
    constexpr int kDepth = 150000;
    std::string file = std::string("Kaydara FBX Binary  \0\x1a\0", 23);
    file += std::string("\xE8\x1C\0\0", 4);  // version 7400
    const std::uint32_t end = static_cast<std::uint32_t>(file.size()) + kDepth * 14U + 13U;
    std::string record;
    for (int shift = 0; shift < 32; shift += 8) {
        record += static_cast<char>(end >> shift);
    }
    record += std::string(8, '\0') + "\1a";
    file += repeated(record, kDepth) + std::string(13, '\0');
    EXPECT_THAT(importFile(writeFile("deepBinary.fbx", file)).message,
                testing::EndsWith(": it is nested more than 100000 levels deep."));
}
