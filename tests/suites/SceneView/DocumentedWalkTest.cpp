// SPDX-License-Identifier: Apache-2.0
#include "suites/SceneView/SceneViewTest.h"

#include <cstddef>
#include <fstream>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

namespace {

// What docs/plugins.md shows:
using namespace SYLVAR::Suites;

/// The points of all meshes of a scene.
Expected<std::size_t> pointsOfMeshes(const OvHostTable& host, const char* opTreeFile) {
    const Expected<Scene> scene = Scene::find(host);
    if (!scene) {
        return scene.error();
    }
    Expected<Location> root = scene->openFile(opTreeFile);
    if (!root) {
        return root.error();
    }
    std::size_t points = 0;
    std::vector<Location> open;
    open.push_back(*std::move(root));
    while (!open.empty()) {
        const Location here = std::move(open.back());
        open.pop_back();
        if (here.type() == "mesh") {
            points += here.values<float>("geometry.points").size() / 3;
        }
        Location::Children children = here.children();
        for (const Location& child : children) {
            open.push_back(child.share());
        }
        if (children.error()) {
            return *children.error();
        }
    }
    return points;
}
// That is all.

std::string contentOf(const std::string& name) {
    std::ifstream file(OV_TEST_SOURCE_DIR "/" + name);
    return {std::istreambuf_iterator<char>(file), {}};
}

class DocumentedWalk : public ovtest::SceneViewTest {};

TEST_F(DocumentedWalk, CountsThePointsOfAllMeshes) {
    using Sylvar3::internal::OvAttribute::FloatAttribute;
    using Sylvar3::internal::OvAttribute::StringAttribute;
    fake.at("/root", {"a"}).at("/root/a", {"b"}).at("/root/a/b");
    for (const char* const path : {"/root", "/root/a", "/root/a/b"}) {
        fake.set(path, "geometry.points", FloatAttribute({1, 2, 3}, 3));
    }
    fake.set("/root/a", "type", StringAttribute("mesh"));
    fake.set("/root/a/b", "type", StringAttribute("mesh"));
    const Expected<std::size_t> points = pointsOfMeshes(host(), freshFile("ops").c_str());
    ASSERT_TRUE(points);
    EXPECT_EQ(2U, *points);
    EXPECT_FALSE(pointsOfMeshes(host(), freshName("2").c_str()));
}

TEST_F(DocumentedWalk, IsTheOneOfThePage) {
    const std::string source = contentOf("tests/suites/SceneView/DocumentedWalkTest.cpp");
    const std::string before = "// What docs/plugins.md shows:\n";
    const std::size_t from = source.find(before) + before.size();
    const std::string sample = source.substr(from, source.find("// That is all.") - from);
    EXPECT_NE(std::string::npos, contentOf("docs/plugins.md").find(sample));
}

}  // namespace
