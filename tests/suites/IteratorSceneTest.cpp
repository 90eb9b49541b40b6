// SPDX-License-Identifier: Apache-2.0
// The scene table over the platform's own runtime.
#include "support/HeardLogs.h"
#include "support/IteratorScenes.h"
#include "support/IteratorTable.h"
#include "support/OpTree.h"
#include "support/OpTreeFile.h"
#include "support/SmallStack.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

using namespace Sylvar3::internal::OvAttribute;
using ovtest::Args;
using ovtest::OpTree;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr char kConcurrent[] = "RUNTIME_USE_CONCURRENT";
constexpr char kFailed[] = "Sylvar3 producer create failed.\n";
constexpr char kFailedLog[] =
    "ScenegraphIteratorHost error src/Utils/OvScenegraphIteratorHost/RootCreation.cpp: "
    "Sylvar3 producer create failed.";

class IteratorScene : public testing::Test {
protected:
    using Handle = OvSgIteratorStruct*;

    IteratorScene() { ::unsetenv(kConcurrent); }
    ~IteratorScene() override { ::unsetenv(kConcurrent); }

    /// The paths of all locations, each before its children.
    std::vector<std::string> pathsBelow(Handle top) {
        std::vector<std::string> paths;
        std::vector<Handle> waiting = {top};
        while (!waiting.empty()) {
            const Handle here = waiting.back();
            waiting.pop_back();
            paths.push_back(ovtest::takeString(table.sgGetFullName(here)));
            if (const Handle next = here == top ? nullptr : table.sgGetNextSibling(here, 0)) {
                waiting.push_back(iterators.step(next));
            }
            if (const Handle child = table.sgGetFirstChild(here, 0)) {
                waiting.push_back(iterators.step(child));
            }
        }
        return paths;
    }

    static GroupAttribute small() {
        return OpTree()
            .op("gen", "generate", Args().set("shape", "tree").set("breadth", 2).set("depth", 2))
            .group();
    }

    const OvScenegraphIteratorSuite& table = ovtest::iteratorTable();
    ovtest::Iterators iterators;
    ovtest::HeardLogs logs;
};

/// A scene of which the root has that attribute.
GroupAttribute rootWith(const std::string& name) {
    return GroupAttribute({{"a", GroupAttribute({{name, IntAttribute(1)}}, false)}}, false);
}

}  // namespace

TEST_F(IteratorScene, IsTheSameFromAFileFromAGroupAndWithOneClient) {
    const GroupAttribute tree = small();
    ovtest::TestFile binary("iterator_scene.optree");
    ovtest::TestFile text("iterator_scene.optree.json");
    binary.writeOpTree(tree);
    text.writeOpTree(tree);
    const auto expected = pathsBelow(iterators.root(table.sgCreateRootFromAttr(tree.handle())));
    ASSERT_EQ(7U, expected.size());
    EXPECT_EQ("/root", expected.front());
    EXPECT_EQ(expected,
              pathsBelow(iterators.root(table.sgCreateRootFromFile(binary.path().c_str()))));
    EXPECT_EQ(expected,
              pathsBelow(iterators.root(table.sgCreateRootFromFile(text.path().c_str()))));
    ::setenv(kConcurrent, "1", 1);
    EXPECT_EQ(expected,
              pathsBelow(iterators.root(table.sgCreateRootFromFile(binary.path().c_str()))));
    EXPECT_EQ(expected,
              pathsBelow(iterators.root(table.sgCreateRootFromFile(text.path().c_str()))));
    EXPECT_THAT(logs.take(), IsEmpty());
}

TEST_F(IteratorScene, WithOneClientAndAMissingFileFailsWithoutAWordAboutTheFile) {
    ::setenv(kConcurrent, "1", 1);
    testing::internal::CaptureStderr();
    EXPECT_EQ(nullptr, table.sgCreateRootFromFile("/no/such/file.optree"));
    EXPECT_EQ(kFailed, testing::internal::GetCapturedStderr());
    EXPECT_THAT(logs.take(),
                ElementsAre("SylvarRuntime error src/Platform/Embedded/Runtime/Transaction.cpp: "
                            "A stream is no op tree: It is empty.",
                            kFailedLog));
}

TEST_F(IteratorScene, FinalizeDropsWhatWasCookedAndTheSceneStaysGoodToWalk) {
    const Handle root = iterators.root(table.sgCreateRootFromAttr(small().handle()));
    const auto before = pathsBelow(root);
    ASSERT_TRUE(ovtest::isCooked(root, "/root"));
    table.sgFinalize(root);
    EXPECT_FALSE(ovtest::isCooked(root, "/root"));
    EXPECT_EQ(before, pathsBelow(root));
}

TEST_F(IteratorScene, FinalizeWaitsForTheEndOfALiveRender) {
    ovtest::TestFile scene("iterator_live.optree");
    scene.writeScene(rootWith("liveRender"));
    const GroupAttribute tree =
        OpTree().op("load", "load", Args().set("file", scene.path())).group();
    const Handle root = iterators.root(table.sgCreateRootFromAttr(tree.handle()));
    ASSERT_NE(nullptr, root);
    table.sgFinalize(root);
    EXPECT_TRUE(ovtest::isCooked(root, "/root"));
    EXPECT_THAT(logs.take(),
                ElementsAre("ScenegraphIteratorHost info "
                            "src/Utils/OvScenegraphIteratorHost/FinalizeScene.cpp: "
                            "Runtime finalize deferred while live rendering."));
    scene.writeScene(rootWith("ordinary"));
    ovtest::evict(root, "/root");
    table.sgFinalize(root);
    EXPECT_FALSE(ovtest::isCooked(root, "/root"));
    EXPECT_THAT(logs.take(), IsEmpty());
}

TEST_F(IteratorScene, ChildOfALongChainIsReleasedWithoutRecursion) {
    constexpr int kDepth = 4000;
    const GroupAttribute tree =
        OpTree().op("gen", "generate", Args().set("shape", "deep").set("depth", kDepth)).group();
    Handle here = table.sgCreateRootFromAttr(tree.handle());
    int depth = 0;
    while (const Handle child = table.sgGetFirstChild(here, 0)) {
        table.sgRetain(child);
        table.sgRelease(here);
        here = child;
        ++depth;
    }
    EXPECT_EQ(kDepth, depth);
    ovtest::onSmallStack([&] { table.sgRelease(here); });
}
