// SPDX-License-Identifier: Apache-2.0
#include "suites/SceneView/SceneViewTest.h"
#include "support/Threads.h"

#include <string>
#include <utility>
#include <vector>

namespace {

using namespace SYLVAR::Suites;

class SceneThreads : public ovtest::SceneViewTest {
protected:
    static constexpr int kThreads = 8;
    static constexpr int kGroups = 10;

    SceneThreads() {
        Names groups;
        for (int i = 0; i < kGroups; ++i) {
            groups.push_back("g" + std::to_string(i));
            fake.at("/root/" + groups.back(), {"x", "y"});
            fake.at("/root/" + groups.back() + "/x").at("/root/" + groups.back() + "/y");
        }
        fake.at("/root", groups);
        fake.beQuiet();
    }

    static Names pathsFrom(Location root) {
        Names paths;
        std::vector<Location> open;
        open.push_back(std::move(root));
        while (!open.empty()) {
            const Location here = std::move(open.back());
            open.pop_back();
            paths.push_back(here.fullName());
            Location::Children children = here.children();
            for (const Location& child : children) {
                open.push_back(child.share());
            }
            if (children.error()) {
                paths.push_back(children.error()->message());
            }
        }
        return paths;
    }
};

TEST_F(SceneThreads, WalkOneRootEachWithALocationOfItsOwn) {
    const Location root = open();
    const Names expected = pathsFrom(root.share());
    EXPECT_EQ(1U + kGroups * 3U, expected.size());
    std::vector<Names> found(kThreads);
    ovtest::onThreads(kThreads, [&](int i) {
        found[static_cast<std::size_t>(i)] = pathsFrom(scene.share(root.handle()));
    });
    for (const Names& paths : found) {
        EXPECT_EQ(expected, paths);
    }
}

}  // namespace
