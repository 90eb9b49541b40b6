// SPDX-License-Identifier: Apache-2.0
#include "support/IteratorScenes.h"
#include "support/IteratorTest.h"

#include <thread>

using Sylvar3::internal::OvAttribute::IntAttribute;
using Sylvar3::internal::OvAttribute::StringAttribute;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr char kDeferred[] =
    "ScenegraphIteratorHost info src/Utils/OvScenegraphIteratorHost/FinalizeScene.cpp: "
    "Runtime finalize deferred while live rendering.";

class Finalize : public ovtest::IteratorTest {};

}  // namespace

TEST_F(Finalize, FinalizesTheRuntimeAndGivesNothingBack) {
    const Handle root = openTree();
    fake.take();
    table.sgFinalize(root);
    EXPECT_THAT(fake.take(), ElementsAre("cookLocation c1 /root", "finalize r1"));
    EXPECT_EQ(1, ovtest::countOf(root));
    EXPECT_THAT(logs.take(), IsEmpty());
}

TEST_F(Finalize, AsksForTheRootFromAnyLocation) {
    const Handle x = step(table.sgGetByPath(openTree(), "/root/a/x", 0));
    fake.take();
    table.sgFinalize(x);
    EXPECT_THAT(fake.take(), ElementsAre("cookLocation c1 /root", "finalize r1"));
}

TEST_F(Finalize, LeavesTheRuntimeOfALiveRenderRunning) {
    for (const char* const name : {"liveRender", "liveRenderSettings"}) {
        fake.at("/root").set("/root", name, IntAttribute(0));
        const Handle root = openTree();
        fake.take();
        table.sgFinalize(root);
        EXPECT_THAT(fake.take("finalize"), IsEmpty()) << name;
        EXPECT_THAT(logs.take(), ElementsAre(kDeferred)) << name;
    }
}

TEST_F(Finalize, TakesALiveRenderOfAnyKind) {
    fake.set("/root", "liveRender", GroupAttribute({}, false));
    const Handle root = openTree();
    fake.take();
    table.sgFinalize(root);
    EXPECT_THAT(fake.take("finalize"), IsEmpty());
}

TEST_F(Finalize, FinalizesOnceTheLiveRenderIsOver) {
    fake.set("/root", "liveRender", StringAttribute("yes"));
    const Handle root = openTree();
    table.sgFinalize(root);
    EXPECT_THAT(fake.take("finalize"), IsEmpty());
    fake.at("/root");
    table.sgFinalize(root);
    EXPECT_THAT(fake.take("finalize"), ElementsAre("finalize r1"));
}

TEST_F(Finalize, DefersWithoutAWordWhenTheLevelIsOff) {
    OvLoggingHost::setLevel("ScenegraphIteratorHost", OvLoggingHost::LogLevel::Error);
    fake.set("/root", "liveRender", IntAttribute(1));
    const Handle root = openTree();
    fake.take();
    table.sgFinalize(root);
    EXPECT_THAT(fake.take("finalize"), IsEmpty());
    EXPECT_THAT(logs.take(), IsEmpty());
}

TEST_F(Finalize, FinalizesAlsoWhenTheRootIsNoLongerThere) {
    const Handle root = openTree();
    fake.put("/root", GroupAttribute());
    fake.take();
    table.sgFinalize(root);
    EXPECT_THAT(fake.take("finalize"), ElementsAre("finalize r1"));
}

TEST_F(Finalize, KnowsNoLiveRenderOfARootThatIsNotThere) {
    const Handle root = openTree();
    const GroupAttribute live({{"liveRender", IntAttribute(1)}}, false);
    fake.put("/root", GroupAttribute({{"exists", IntAttribute(0)}, {"attrs", live}}, false));
    fake.take();
    table.sgFinalize(root);
    EXPECT_THAT(fake.take("finalize"), ElementsAre("finalize r1"));
}

TEST_F(Finalize, DoesNothingForASceneWithoutAClient) {
    const Handle root = step(ovtest::staticIterator());
    table.sgFinalize(root);
    EXPECT_THAT(fake.take(), IsEmpty());
}

TEST_F(Finalize, IsForTheClientOfTheCallingThread) {
    const Handle root = openTree();
    std::thread([&] {
        ovtest::Iterators().step(table.sgGetFirstChild(root, 0));
        fake.take();
        table.sgFinalize(root);
    }).join();
    EXPECT_THAT(fake.take("finalize"), ElementsAre("finalize r2"));
}

TEST_F(Finalize, OfAConcurrentSceneIsForItsOwnRuntime) {
    ::setenv(kConcurrent, "1", 1);
    const Handle root = openFile(freshFile("ops"));
    fake.take();
    table.sgFinalize(root);
    EXPECT_THAT(fake.take(), ElementsAre("cookLocation c1 /root", "finalize r1"));
}

TEST_F(Finalize, LeavesHandlesGoodToWalkAndToRelease) {
    const Handle root = openTree();
    table.sgFinalize(root);
    EXPECT_EQ("/root/a", pathOf(step(table.sgGetFirstChild(root, 0))));
}
