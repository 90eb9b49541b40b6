// SPDX-License-Identifier: Apache-2.0
#include "Producers/ThreadAwareGeometryProducer.h"

#include "support/RuntimeTest.h"

#include <stdexcept>
#include <thread>

using namespace SYLVAR;
using testing::ElementsAre;

namespace {

class ThreadAware : public ovtest::RuntimeTest {
protected:
    ThreadAware() {
        fake.at("/root", {"a", "b"}).at("/root/a", {"c"}).at("/root/b").at("/root/a/c");
    }

    static const ThreadLocalClient* localOf(const GeometryProducerPtr& producer) {
        return static_cast<ThreadAwareGeometryProducer&>(*producer).threadLocalClient().get();
    }

    const GroupAttribute tree = freshTree();
};

template <class Function>
void onAThread(Function function) {
    std::thread(function).join();
}

}  // namespace

TEST_F(ThreadAware, CooksOneLocationForEachLevelWithOneClient) {
    ASSERT_TRUE(CreateThreadAwareGeometryProducer(tree, "/root/a"));
    const Names calls = fake.take();
    EXPECT_EQ("createRuntime ", calls.front());
    EXPECT_EQ(1, std::count(calls.begin(), calls.end(), "createRuntime "));
    EXPECT_EQ("cookLocation c1 /root", calls[calls.size() - 2]);
    EXPECT_EQ("cookLocation c1 /root/a", calls.back());
}

TEST_F(ThreadAware, OpensAnOpTreeFile) {
    const GeometryProducerPtr root = CreateThreadAwareGeometryProducer(freshFile("ops"), "/root");
    ASSERT_TRUE(root);
    EXPECT_EQ("/root", root->getFullName());
    EXPECT_EQ(1U, fake.take("deserializeOps").size());
}

TEST_F(ThreadAware, IsNullForASourceThatIsNotValidAndTellsSoForEachLevel) {
    const std::string line =
        "ThreadLocalClient error src/Filters/ThreadLocalClient/ThreadLocalClient.cpp: "
        "Invalid Op tree source: Empty filename provided.";
    EXPECT_EQ(nullptr, CreateThreadAwareGeometryProducer("", "/root"));
    EXPECT_THAT(logs.take(), ElementsAre(line));
    EXPECT_EQ(nullptr, CreateThreadAwareGeometryProducer("", "/root/a/c"));
    EXPECT_THAT(logs.take(), ElementsAre(line, line, line));
    EXPECT_EQ(nullptr, CreateThreadAwareGeometryProducer(GroupAttribute(), "/root"));
    EXPECT_EQ(1U, logs.take().size());
    EXPECT_EQ(nullptr, CreateThreadAwareGeometryProducer(freshName(), "/root"));
    EXPECT_THAT(fake.take(), ElementsAre());
}

TEST_F(ThreadAware, TestsThePathBeforeTheSource) {
    EXPECT_EQ(nullptr, CreateThreadAwareGeometryProducer("", ""));
    EXPECT_EQ(nullptr, CreateThreadAwareGeometryProducer("", "root"));
    EXPECT_THAT(logs.take(), ElementsAre());
}

TEST_F(ThreadAware, IsNullForASourceThatGivesNoClient) {
    EXPECT_EQ(nullptr, CreateThreadAwareGeometryProducer(freshFile("no tree"), "/root"));
    fake.giveNullFrom("createRuntime");
    EXPECT_EQ(nullptr, CreateThreadAwareGeometryProducer(tree, "/root"));
    EXPECT_EQ(2U, logs.take().size());
}

TEST_F(ThreadAware, FindsNoLocationOnAThreadThatGotNoClient) {
    const GeometryProducerPtr a = CreateThreadAwareGeometryProducer(tree, "/root/a");
    fake.giveNullFrom("createRuntime");
    onAThread([&] {
        EXPECT_EQ(nullptr, a->getClient());
        EXPECT_EQ(nullptr, a->getFirstChild(true));
        EXPECT_EQ(nullptr, a->getChildByName("c", false));
        EXPECT_EQ(nullptr, a->getNextSibling(false));
        auto& base = static_cast<BaseGeometryProducer&>(*a);
        const auto location = base.cookChildLocation("/root", true);
        EXPECT_FALSE(location.doesLocationExist());
        EXPECT_EQ(SylvarRuntime::LocationData().getHash(), location.getHash());
    });
    EXPECT_TRUE(a->getFirstChild(false)) << "on this thread all is well";
}

TEST_F(ThreadAware, LetsThroughThatAFileCannotBeOpened) {
    const std::string name = freshFile("ops");
    fake.onCall("createTransaction", [&] { std::remove(name.c_str()); });
    try {
        CreateThreadAwareGeometryProducer(name, "/root");
        ADD_FAILURE();
    } catch (const std::runtime_error& error) {
        EXPECT_EQ("Error opening file: " + name, error.what());
    }
}

TEST_F(ThreadAware, EvictsALocationJustBeforeItIsCooked) {
    const GeometryProducerPtr root = CreateThreadAwareGeometryProducer(tree, "/root");
    fake.take();
    const GeometryProducerPtr a = root->getFirstChild(true);
    EXPECT_THAT(fake.take(), ElementsAre("evict r1 /root/a", "cookLocation c1 /root/a"));
    a->getNextSibling(true);
    EXPECT_THAT(fake.take(), ElementsAre("evict r1 /root/b", "cookLocation c1 /root/b"));
    root->getChildByName("b", true);
    EXPECT_THAT(fake.take(), ElementsAre("evict r1 /root/b", "cookLocation c1 /root/b"));
    root->getChildByName("a", false);
    EXPECT_THAT(fake.take(), ElementsAre("cookLocation c1 /root/a"));
}

TEST_F(ThreadAware, EvictsTheLastLocationOfAPathAlone) {
    const GeometryProducerPtr root = CreateThreadAwareGeometryProducer(tree, "/root");
    fake.take();
    EXPECT_TRUE(root->getProducerByPath("/root/a/c", true));
    EXPECT_THAT(
        fake.take(),
        ElementsAre("cookLocation c1 /root/a", "evict r1 /root/a/c", "cookLocation c1 /root/a/c"));
}

TEST_F(ThreadAware, CooksWithTheClientOfTheThreadThatMakesTheStep) {
    const GeometryProducerPtr root = CreateThreadAwareGeometryProducer(tree, "/root");
    GeometryProducerPtr a;
    onAThread([&] {
        a = root->getFirstChild(true);
        EXPECT_NE(nullptr, a->getClient());
        fake.take();
        a->getFirstChild(true);
        EXPECT_THAT(fake.take(), ElementsAre("evict r2 /root/a/c", "cookLocation c2 /root/a/c"));
    });
    fake.take();
    a->getFirstChild(false);
    EXPECT_THAT(fake.take(), ElementsAre("cookLocation c1 /root/a/c"));
}

TEST_F(ThreadAware, GivesTheClientOfTheThreadThatAsks) {
    const GeometryProducerPtr root = CreateThreadAwareGeometryProducer(tree, "/root");
    const auto mine = root->getClient();
    EXPECT_EQ(mine, root->getFirstChild(false)->getClient());
    onAThread([&] {
        const auto theirs = root->getClient();
        EXPECT_NE(mine, theirs);
        EXPECT_EQ(theirs, root->getFirstChild(false)->getClient());
    });
    EXPECT_EQ(mine, root->getClient());
}

TEST_F(ThreadAware, SharesOneThreadLocalClientBelowTheProducerThatWasMadeFirst) {
    const GeometryProducerPtr a = CreateThreadAwareGeometryProducer(tree, "/root/a");
    EXPECT_EQ(localOf(a), localOf(a->getFirstChild(false)));
    EXPECT_EQ(localOf(a), localOf(a->getNextSibling(false)));
    EXPECT_EQ(localOf(a), localOf(a->getChildByName("c", false)->getChildByName(".", false)));
    EXPECT_NE(localOf(a), localOf(a->parent)) << "an ancestor made with it has its own";
    EXPECT_EQ(a->getClient(), a->parent->getClient());
}

TEST_F(ThreadAware, GoesOnWithAReplicaOnAnotherThread) {
    const GeometryProducerPtr root = CreateThreadAwareGeometryProducer(tree, "/root");
    onAThread([&] {
        const GeometryProducerPtr a = root->getFirstChild(false);
        EXPECT_NE(localOf(root), localOf(a));
        EXPECT_EQ(localOf(a), localOf(a->getFirstChild(false)));
        EXPECT_EQ(localOf(a), localOf(a->getNextSibling(false)));
        EXPECT_EQ(1U, fake.take("createRuntime").size() - 1);
    });
    EXPECT_THAT(logs.take(), ElementsAre());
}

TEST_F(ThreadAware, ReusesTheClientOfAThreadThatHasEnded) {
    const GeometryProducerPtr root = CreateThreadAwareGeometryProducer(tree, "/root");
    std::shared_ptr<SylvarRuntime::Client> first;
    onAThread([&] { first = root->getFirstChild(false)->getClient(); });
    onAThread([&] { EXPECT_EQ(first, root->getFirstChild(false)->getClient()); });
    EXPECT_EQ(2U, fake.take("createRuntime").size());
}

TEST_F(ThreadAware, SharesAThreadsClientAmongWalksOfEquivalentSources) {
    const auto one = CreateThreadAwareGeometryProducer(tree, "/root");
    const auto two = CreateThreadAwareGeometryProducer(tree, "/root");
    EXPECT_EQ(one->getClient(), two->getClient());
}
