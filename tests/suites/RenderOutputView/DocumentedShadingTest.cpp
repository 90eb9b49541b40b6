// SPDX-License-Identifier: Apache-2.0
#include "suites/RenderOutputView/RenderOutputViewTest.h"

#include <algorithm>
#include <cstddef>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

// What docs/scene.md shows:
using namespace SYLVAR::Suites;

/// The nodes that shade a location: the one that drives its surface, and all that drive that one.
Expected<std::vector<std::string>> surfaceNodes(const RenderOutput& output, const Location& mesh) {
    const Expected<Attribute> material = output.flattenedMaterial(mesh, {"surface"});
    if (!material) {
        return material.error();
    }
    const Expected<ShadingNetwork> network = output.shadingNetwork(*material);
    if (!network) {
        return network.error();
    }
    std::vector<std::string> names = {material->child("terminals.surface").get("")};
    for (std::size_t i = 0; i < names.size(); ++i) {
        const ShadingNode node = network->node(names[i]);
        for (const auto& [input, source] : node.connections()) {
            if (std::find(names.begin(), names.end(), source.node) == names.end()) {
                names.push_back(source.node);
            }
        }
    }
    return names;
}
// That is all.

std::string contentOf(const std::string& name) {
    std::ifstream file(OV_TEST_SOURCE_DIR "/" + name);
    return {std::istreambuf_iterator<char>(file), {}};
}

class DocumentedShading : public ovtest::RenderOutputViewTest {};

TEST_F(DocumentedShading, FindsAllNodesBehindTheSurface) {
    fake.at("/root").set("/root", "material", ovtest::written(R"({
        "style": "network", "terminals": {"surface": "a"},
        "nodes": {
            "a": {"name": "a", "type": "mix", "connections": {"fg": "out@b", "bg": "out@c"}},
            "b": {"name": "b", "type": "image", "connections": {"uv": "out@c"}},
            "c": {"name": "c", "type": "texcoord"},
            "d": {"name": "d", "type": "image"}
        }})"));
    const Expected<std::vector<std::string>> names = surfaceNodes(output, open());
    ASSERT_TRUE(names);
    EXPECT_THAT(*names, testing::ElementsAre("a", "b", "c"));
}

TEST_F(DocumentedShading, FindsNoneWithoutAMaterial) {
    fake.at("/root");
    const Expected<std::vector<std::string>> names = surfaceNodes(output, open());
    ASSERT_TRUE(names);
    EXPECT_THAT(*names, testing::ElementsAre(""));
}

TEST_F(DocumentedShading, IsTheOneOfThePage) {
    const std::string source = contentOf("tests/suites/RenderOutputView/DocumentedShadingTest.cpp");
    const std::string before = "// What docs/scene.md shows:\n";
    const std::size_t from = source.find(before) + before.size();
    const std::string sample = source.substr(from, source.find("// That is all.") - from);
    EXPECT_NE(std::string::npos, contentOf("docs/scene.md").find(sample));
}

}  // namespace
