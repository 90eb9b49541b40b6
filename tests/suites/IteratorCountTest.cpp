// SPDX-License-Identifier: Apache-2.0
#include "support/IteratorTest.h"

#include <cstdio>
#include <cstdlib>
#include <utility>
#include <vector>

using testing::Each;
using testing::ElementsAre;

namespace {

class IteratorCount : public ovtest::IteratorTest {};

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

TEST_F(IteratorCount, OfAStepThatIsRetainedAndReleasedFreesIt) {
    ::setenv(kConcurrent, "1", 1);
    const Handle root = table.sgCreateRootFromFile(freshFile("ops").c_str());
    const Handle a = table.sgGetFirstChild(root, 0);
    table.sgRetain(a);
    table.sgRelease(root);
    EXPECT_THAT(fake.live(), ElementsAre("c1", "r1"));
    table.sgRelease(a);
    EXPECT_THAT(fake.live(), ElementsAre("r1"));
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
