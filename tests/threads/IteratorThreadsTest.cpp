// SPDX-License-Identifier: Apache-2.0
#include "support/IteratorTable.h"
#include "support/OpTree.h"
#include "support/OpTreeFile.h"
#include "support/Threads.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <string>
#include <vector>

using ovtest::Args;
using ovtest::OpTree;

namespace {

using Handle = OvSgIteratorStruct*;

constexpr int kThreads = 16;
constexpr int kBreadth = 3;
constexpr int kDepth = 4;
constexpr int kLocations = 1 + 3 + 9 + 27 + 81;

OpTree::GroupAttribute tree(int seed) {
    return OpTree()
        .op("gen",
            "generate",
            Args()
                .set("shape", "tree")
                .set("breadth", kBreadth)
                .set("depth", kDepth)
                .set("seed", seed))
        .group();
}

const OvScenegraphIteratorSuite& table() {
    return ovtest::iteratorTable();
}

/// How many locations there are from one down; each is asked for its name and its attributes.
int countBelow(Handle top) {
    const OvAttributeSuite& attributes = *OvGetAttributeSuite();
    int count = 0;
    std::vector<Handle> waiting = {top};
    table().sgRetain(top);
    while (!waiting.empty()) {
        const Handle here = waiting.back();
        waiting.pop_back();
        ++count;
        attributes.release(table().sgGetFullName(here));
        attributes.release(table().sgGetAttribute(here, "type"));
        for (Handle child = table().sgGetFirstChild(here, 0); child;
             child = table().sgGetNextSibling(child, 0)) {
            table().sgRetain(child);
            waiting.push_back(child);
        }
        table().sgRelease(here);
    }
    return count;
}

/// All threads walk from the one handle, then from handles that others have made.
void walkTogether(Handle root) {
    std::vector<Handle> made(kThreads);
    ovtest::Barrier allMade(kThreads);
    std::atomic<int> counted{0};
    ovtest::onThreads(kThreads, [&](int i) {
        counted += countBelow(root);
        Handle& own = made[static_cast<std::size_t>(i)];
        own = table().sgGetFirstChild(root, 0);
        table().sgRetain(own);
        allMade.wait();
        const Handle other = made[static_cast<std::size_t>((i + 1) % kThreads)];
        counted += countBelow(other);
        allMade.wait();
        table().sgRelease(other);
    });
    EXPECT_EQ(kThreads * (kLocations + (kLocations - 1) / kBreadth), counted);
    EXPECT_EQ(1, ovtest::countOf(root));
    table().sgRelease(root);
}

}  // namespace

TEST(IteratorThreads, ShareTheHandlesOfOneRoot) {
    walkTogether(table().sgCreateRootFromAttr(tree(1).handle()));
}

TEST(IteratorThreads, ShareTheHandlesOfOneRootWithOneClient) {
    ovtest::TestFile file("iterator_threads.optree");
    file.writeOpTree(tree(2));
    ::setenv("RUNTIME_USE_CONCURRENT", "1", 1);
    const Handle root = table().sgCreateRootFromFile(file.path().c_str());
    ::unsetenv("RUNTIME_USE_CONCURRENT");
    ASSERT_NE(nullptr, root);
    walkTogether(root);
}

TEST(IteratorThreads, RetainAndReleaseOneHandleAtOnce) {
    const Handle root = table().sgCreateRootFromAttr(tree(3).handle());
    ovtest::onThreads(kThreads, [&](int /*index*/) {
        for (int i = 0; i < 10'000; ++i) {
            table().sgRetain(root);
            table().sgRelease(root);
        }
    });
    EXPECT_EQ(1, ovtest::countOf(root));
    table().sgRelease(root);
}

TEST(IteratorThreads, TheLastOneToReleaseFreesTheHandle) {
    for (int round = 0; round < 50; ++round) {
        const Handle root = table().sgCreateRootFromAttr(tree(4).handle());
        for (int i = 1; i < kThreads; ++i) {
            table().sgRetain(root);
        }
        ovtest::onThreads(kThreads, [&](int /*index*/) {
            OvGetAttributeSuite()->release(table().sgGetName(root));
            table().sgRelease(root);
        });
    }
}

TEST(IteratorThreads, EachMakesARootOfItsOwn) {
    ovtest::onThreads(kThreads, [&](int i) {
        const Handle root = table().sgCreateRootFromAttr(tree(5 + i % 2).handle());
        EXPECT_EQ(kLocations, countBelow(root));
        table().sgFinalize(root);
        table().sgRelease(root);
    });
}

TEST(IteratorThreads, AllAskForTheTablesAtOnceAndGetTheSame) {
    struct Tables {
        const void* version3;
        const void* version2;
    };
    std::vector<Tables> found(kThreads);
    ovtest::onThreads(kThreads, [&](int i) {
        OvSylvarProducersInitialize(OvGetHostTable());
        const OvHostTable& host = *OvGetHostTable();
        found[static_cast<std::size_t>(i)] = {
            host.findSuite(OV_SCENEGRAPH_ITERATOR_SUITE_NAME, OV_SCENEGRAPH_ITERATOR_SUITE_VERSION),
            host.findSuite(OV_SCENEGRAPH_ITERATOR_SUITE_NAME,
                           OV_SCENEGRAPH_ITERATOR_SUITE_VERSION_2)};
    });
    for (const Tables& one : found) {
        EXPECT_EQ(&table(), one.version3);
        EXPECT_EQ(&ovtest::iteratorTable2(), one.version2);
    }
}
