// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/ScenegraphIteratorHost.h>
#include <OvSylvarProducers/StaticGeometryProducer.h>

#include "suites/IteratorTest.h"
#include "support/StaticScene.h"

#include <cstdio>
#include <cstdlib>
#include <utility>
#include <vector>

using testing::Each;

namespace {

class IteratorCount : public ovtest::IteratorTest {};

/// How many objects a producer is held by.
int holdersOf(const SYLVAR::GeometryProducerPtr& producer) {
    return static_cast<int>(producer->use_count());
}

}  // namespace

TEST_F(IteratorCount, OfARootIsOne) {
    EXPECT_EQ(1, ovtest::countOf(openTree()));
    EXPECT_EQ(1, ovtest::countOf(openFile(freshFile("ops"))));
    ::setenv(kConcurrent, "1", 1);
    EXPECT_EQ(1, ovtest::countOf(openFile(freshFile("ops"))));
}

TEST_F(IteratorCount, OfAStepIsZero) {
    const Handle root = openTree();
    const Handle a = table.sgGetFirstChild(root, 0);
    const std::vector<Handle> steps = {a,
                                       table.sgGetNextSibling(a, 0),
                                       table.sgGetParent(a),
                                       table.sgGetRoot(a),
                                       table.sgGetChildByName(root, "a", 0),
                                       table.sgGetByPath(root, "/root/a/x", 0)};
    std::vector<int> counts;
    for (const Handle one : steps) {
        counts.push_back(ovtest::countOf(one));
        step(one);
    }
    EXPECT_THAT(counts, Each(0));
}

TEST_F(IteratorCount, GoesUpWithRetainAndDownWithRelease) {
    const Handle root = openTree();
    table.sgRetain(root);
    table.sgRetain(root);
    EXPECT_EQ(3, ovtest::countOf(root));
    table.sgRelease(root);
    table.sgRelease(root);
    EXPECT_EQ(1, ovtest::countOf(root));
}

TEST_F(IteratorCount, ReleaseFromOneFreesTheIteratorAndLetsItsProducerGo) {
    const SYLVAR::GeometryProducerPtr producer = ovtest::StaticScene().at("/root").open("/root");
    ASSERT_EQ(1, holdersOf(producer));
    const Handle handle = SYLVAR::OvGeometryProducerToHandle(producer);
    EXPECT_EQ(0, ovtest::countOf(handle));
    EXPECT_EQ(2, holdersOf(producer));
    table.sgRetain(handle);
    table.sgRetain(handle);
    table.sgRelease(handle);
    EXPECT_EQ(2, holdersOf(producer));
    table.sgRelease(handle);
    EXPECT_EQ(1, holdersOf(producer));
}

TEST_F(IteratorCount, OfAHandleIsLeftAloneByTheProducerTakenFromIt) {
    const SYLVAR::GeometryProducerPtr producer = ovtest::StaticScene().at("/root").open("/root");
    const Handle handle = step(SYLVAR::OvGeometryProducerToHandle(producer));
    EXPECT_EQ(producer, SYLVAR::OvHandleToGeometryProducer(handle));
    EXPECT_EQ(1, ovtest::countOf(handle));
    EXPECT_EQ(nullptr, SYLVAR::OvGeometryProducerToHandle(nullptr));
    EXPECT_EQ(nullptr, SYLVAR::OvHandleToGeometryProducer(nullptr));
}

TEST_F(IteratorCount, IsUntouchedByAStepAndByFinalize) {
    const Handle root = openTree();
    step(table.sgGetFirstChild(root, 0));
    table.sgFinalize(root);
    EXPECT_EQ(1, ovtest::countOf(root));
}

TEST_F(IteratorCount, AChildKeepsItsChainWhenTheRootIsReleased) {
    const Handle root = table.sgCreateRootFromAttr(freshTree().handle());
    const Handle x = step(table.sgGetByPath(root, "/root/a/x", 0));
    table.sgRelease(root);
    EXPECT_EQ("/root", pathOf(step(table.sgGetRoot(x))));
}

TEST_F(IteratorCount, TheProducerOutlivesACallThatGivesItsIteratorBack) {
    Handle root = table.sgCreateRootFromAttr(freshTree().handle());
    fake.onCall("cookLocation", [this, &root] { table.sgRelease(std::exchange(root, nullptr)); });
    const Handle a = step(table.sgGetFirstChild(root, 0));
    EXPECT_EQ(nullptr, root);
    EXPECT_EQ("/root", pathOf(step(table.sgGetParent(a))));
}

namespace {

/// Releases an iterator that nobody has retained, and looks at what is left of it. It leaks, so
/// this is for a process of its own, which leaves without being asked about that.
[[noreturn]] void releaseFromZero(OvSgIteratorStruct* root) {
    const OvScenegraphIteratorSuite& table = ovtest::iteratorTable();
    OvSgIteratorStruct* const child = table.sgGetFirstChild(root, 0);
    table.sgRelease(child);
    table.sgRelease(child);
    const bool isThere =
        ovtest::countOf(child) == -2 && ovtest::takeString(table.sgGetFullName(child)) == "/root/a";
    table.sgRetain(child);
    table.sgRetain(child);
    table.sgRetain(child);
    const bool isCounted = ovtest::countOf(child) == 1;
    std::fputs(isThere && isCounted ? "there with -2" : "gone", stderr);
    std::_Exit(0);
}

}  // namespace

TEST_F(IteratorCount, ReleaseFromZeroGoesNegativeAndNeverFrees) {
    testing::FLAGS_gtest_death_test_style = "fast";
    const Handle root = openTree();
    EXPECT_EXIT(releaseFromZero(root), testing::ExitedWithCode(0), "there with -2");
}
