// SPDX-License-Identifier: Apache-2.0
// Clients of the factory over the runtime that is built in.
#include <OvSylvarProducers/AsyncGeometryProducer.h>
#include <OvSylvarProducers/ClientFactory.h>
#include <OvSylvarProducers/SyncGeometryProducer.h>
#include <OvSylvarProducers/ThreadAwareGeometryProducer.h>

#include "support/HeardLogs.h"
#include "support/HeardRecords.h"
#include "support/OpTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

using namespace ovtest;
using namespace SYLVAR;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

/// A scene of two levels that no other test has.
OpTree generated(int seed) {
    return OpTree().op("g", "generate", Args().set("depth", 1).set("seed", seed));
}

OpTreeSource sourceOf(const OpTree& tree) {
    return OpTreeSource::createFromGroupAttribute(tree.group());
}

}  // namespace

TEST(EmbeddedClient, IsRecordedWithItsOpTreeAndTheOpRegistry) {
    const HeardRecords heard;
    ASSERT_TRUE(ClientCreateWithOpTree(sourceOf(generated(1))));
    EXPECT_THAT(heard.records,
                ElementsAre(StartsWith(R"(runtime.opTree {"ops":[{"type":"generate")"),
                            StartsWith(R"(runtime.opRegistry {"opTypes":[{"type":)")));
}

TEST(EmbeddedClient, CooksForTheNextWhoGetsItAfterItsRuntimeWasFinalized) {
    const OpTreeSource source = sourceOf(generated(2));
    const auto client = ClientCreateWithOpTree(source);
    EXPECT_TRUE(client->cookLocation("/root/c1").doesLocationExist());
    client->getRuntime()->finalize();
    ClientInvalidate(client);
    const auto again = ClientCreateWithOpTree(source);
    ASSERT_EQ(client, again);
    EXPECT_FALSE(again->getCachedLocation("/root/c1").second);
    EXPECT_TRUE(again->cookLocation("/root/c1").doesLocationExist());
}

TEST(EmbeddedClient, IsNoneForAFileThatHoldsNoOpTree) {
    HeardLogs logs;
    const std::string name = OV_TEST_OUTPUT_DIR "/embedded_client.optree";
    std::ofstream(name) << "no op tree";
    EXPECT_EQ(nullptr, ClientCreateWithOpTree(OpTreeSource::createFromFile(name)));
    EXPECT_THAT(logs.take(),
                ElementsAre(HasSubstr("A stream is no op tree: "),
                            HasSubstr("Could not parse OpTree from '" + name + "'.")));
}

TEST(EmbeddedClient, ShowsAnAsyncProducerWhatIsCookedAndNothingThatWasEvicted) {
    const auto client = ClientCreateWithOpTree(sourceOf(generated(3)));
    EXPECT_EQ(nullptr, CreateAsyncGeometryProducer(client, "/root"));
    EXPECT_FALSE(client->getCachedLocation("/root").second) << "no cook was begun";
    client->cookLocation("/root/c1");
    const GeometryProducerPtr root = CreateAsyncGeometryProducer(client, "/root");
    ASSERT_TRUE(root);
    EXPECT_EQ("/root/c1", root->getFirstChild(false)->getFullName()) << "the others are not cooked";
    EXPECT_EQ(nullptr, root->getChildByName("c0", false));
    client->getRuntime()->evict("/root/c1");
    EXPECT_EQ(nullptr, root->getFirstChild(false));
    client->cookLocation("/root/c0");
    EXPECT_TRUE(root->getChildByName("c0", false));
}

TEST(EmbeddedClient, CooksALocationAgainThatAProducerEvicts) {
    const auto client = ClientCreateWithOpTree(sourceOf(generated(4)));
    const OpTree tree = generated(4);
    for (const GeometryProducerPtr& root :
         {CreateSyncGeometryProducer(client, "/root"),
          CreateThreadAwareGeometryProducer(tree.group(), "/root")}) {
        const auto held = [&](bool evict) {
            return root->getChildByName("c1", evict)->getAttribute(nullptr);
        };
        const auto first = held(false);
        EXPECT_EQ(first.handle(), held(false).handle());
        const auto fresh = held(true);
        EXPECT_NE(first.handle(), fresh.handle());
        EXPECT_EQ(first.getHash(), fresh.getHash());
        EXPECT_EQ(fresh.handle(), held(false).handle());
    }
}

TEST(EmbeddedClient, WarnsOfAMissingInputOnceWhoeverGetsAClient) {
    HeardLogs logs;
    const OpTreeSource source =
        sourceOf(generated(5).op("m", "merge", OpTree::GroupAttribute(), {"g", "missing"}));
    const auto one = ClientCreateWithOpTree(source);
    const auto two = ClientCreateWithOpTree(source);
    ASSERT_NE(one, two);
    EXPECT_TRUE(two->cookLocation("/root/c1").doesLocationExist());
    EXPECT_THAT(logs.take(), ElementsAre(HasSubstr("merge (op 2 of 2): input 2 is not there")));
}
