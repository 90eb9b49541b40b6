// SPDX-License-Identifier: Apache-2.0
#include "support/OpTree.h"
#include "support/RuntimeWalk.h"
#include "support/StaticScene.h"

#include <gtest/gtest.h>

using namespace ovtest;
using namespace Sylvar3::internal::OvAttribute;
using Sylvar3::OvSylvarServicesHost::v1::Sylvar;

namespace {

GroupAttribute sceneOf(const char* name) {
    return Args().set("tree", StaticScene().at("/root/" + std::string(name)).group());
}

bool isThere(const SylvarRuntime::Client& client, const std::string& path) {
    return client.cookLocation(path).doesLocationExist();
}

}  // namespace

TEST(Commit, MakesAClientSeeItsOpAndNotBefore) {
    const auto runtime = Sylvar().createRuntime();
    const auto transaction = runtime->createTransaction();
    const auto op = transaction->createOp();
    transaction->setOpArgs(op, "scene", sceneOf("a"));
    const auto client = transaction->createClient();
    transaction->setClientOp(client, op);
    EXPECT_FALSE(isThere(*client, "/root/a"));
    EXPECT_FALSE(client->getCachedLocation("/root/a").second);
    runtime->commit(transaction);
    EXPECT_TRUE(isThere(*client, "/root/a"));
}

TEST(Commit, KeepsTwoRuntimesApart) {
    const auto a = OpTree().op("s", "scene", sceneOf("a")).open();
    const auto b = OpTree().op("s", "scene", sceneOf("b")).open();
    EXPECT_NE(a->getRuntime(), b->getRuntime());
    EXPECT_TRUE(isThere(*a, "/root/a") && !isThere(*a, "/root/b"));
    EXPECT_TRUE(isThere(*b, "/root/b") && !isThere(*b, "/root/a"));
    a->getRuntime()->finalize();
    EXPECT_FALSE(a->getCachedLocation("/root/a").second);
    EXPECT_TRUE(b->getCachedLocation("/root/b").second);
}

TEST(Commit, ShowsNothingToAClientWithoutAnOp) {
    const auto runtime = Sylvar().createRuntime();
    const auto transaction = runtime->createTransaction();
    const auto never = transaction->createClient();
    const auto none = transaction->createClient();
    transaction->setClientOp(none, nullptr);
    runtime->commit(transaction);
    EXPECT_FALSE(isThere(*never, "/root"));
    EXPECT_FALSE(isThere(*none, "/root"));
    runtime->evict("/root");
    runtime->finalize();
    EXPECT_FALSE(isThere(*none, "/root"));
}

TEST(Commit, TakesAnOpOfAnotherTransactionForNone) {
    const auto runtime = Sylvar().createRuntime();
    const auto other = runtime->createTransaction();
    const auto stranger = other->createOp();
    other->setOpArgs(stranger, "scene", sceneOf("a"));
    const auto transaction = runtime->createTransaction();
    const auto own = transaction->createOp();
    transaction->setOpInputs(own, {stranger});
    transaction->setOpArgs(stranger, "scene", sceneOf("b"));
    const auto throughInput = transaction->createClient();
    const auto directly = transaction->createClient();
    transaction->setClientOp(throughInput, own);
    transaction->setClientOp(directly, stranger);
    runtime->commit(transaction);
    EXPECT_FALSE(isThere(*throughInput, "/root"));
    EXPECT_FALSE(isThere(*directly, "/root"));
}

TEST(Commit, LetsALaterTransactionGiveAClientAnotherOp) {
    const auto runtime = Sylvar().createRuntime();
    const auto client = OpTree().op("s", "scene", sceneOf("a")).open(runtime);
    const auto later = runtime->createTransaction();
    const auto op = later->createOp();
    later->setOpArgs(op, "scene", sceneOf("b"));
    later->setClientOp(client, op);
    EXPECT_TRUE(isThere(*client, "/root/a"));
    runtime->commit(later);
    EXPECT_TRUE(isThere(*client, "/root/b"));
    EXPECT_FALSE(isThere(*client, "/root/a"));
}

TEST(Commit, DoesNothingForAnEmptyTransactionOrASecondTime) {
    const auto runtime = Sylvar().createRuntime();
    runtime->commit(nullptr);
    const auto transaction = runtime->createTransaction();
    const auto op = transaction->createOp();
    transaction->setOpArgs(op, "scene", sceneOf("a"));
    const auto client = transaction->createClient();
    transaction->setClientOp(client, op);
    runtime->commit(transaction);
    runtime->commit(transaction);
    EXPECT_TRUE(isThere(*client, "/root/a"));
}

TEST(Commit, TakesInputsWhoseOwnInputsComeLater) {
    const auto runtime = Sylvar().createRuntime();
    const auto transaction = runtime->createTransaction();
    const auto top = transaction->createOp();
    const auto middle = transaction->createOp();
    const auto bottom = transaction->createOp();
    transaction->setOpInputs(top, {middle});
    transaction->setOpInputs(middle, {bottom});
    transaction->setOpArgs(bottom, "scene", sceneOf("a"));
    const auto client = transaction->createClient();
    transaction->setClientOp(client, top);
    runtime->commit(transaction);
    EXPECT_TRUE(isThere(*client, "/root/a"));
}

TEST(Client, OutlivesEverythingItWasMadeWith) {
    std::shared_ptr<SylvarRuntime::Client> client;
    std::weak_ptr<SylvarRuntime> watched;
    {
        const auto runtime = Sylvar().createRuntime();
        watched = runtime;
        client = OpTree().op("s", "scene", sceneOf("a")).open(runtime);
    }
    EXPECT_TRUE(isThere(*client, "/root/a"));
    EXPECT_EQ(client->getRuntime(), watched.lock());
    client.reset();
    EXPECT_TRUE(watched.expired());
}

TEST(Client, MayEndBeforeItsTransactionIsCommitted) {
    const auto runtime = Sylvar().createRuntime();
    auto transaction = runtime->createTransaction();
    auto op = transaction->createOp();
    transaction->setOpArgs(op, "scene", sceneOf("a"));
    auto client = transaction->createClient();
    transaction->setClientOp(client, op);
    client.reset();
    op.reset();
    runtime->commit(transaction);
    transaction.reset();
    EXPECT_EQ("{\"ops\":[]}", query(*runtime, "getAnonymousOpTree"));
}

TEST(Client, KnowsTheVeryRuntimeThatMadeIt) {
    const auto runtime = Sylvar().createRuntime();
    const auto client = runtime->createTransaction()->createClient();
    EXPECT_EQ(runtime, client->getRuntime());
}

TEST(LocationData, OutlivesItsClientAndItsRuntime) {
    SylvarRuntime::LocationData location;
    {
        const auto client = OpTree().op("g", "generate", Args().set("depth", 1)).open();
        location = client->cookLocation("/root/c1");
        client->getRuntime()->finalize();
    }
    EXPECT_TRUE(location.doesLocationExist());
    EXPECT_EQ("group", location.getAttrs().getChild<StringAttribute>("type").getValue(""));
}

TEST(LocationData, IsAGroupOfThreeKeysAndHasItsHash) {
    const auto client = OpTree().op("g", "generate", Args().set("depth", 1)).open();
    OvAttributeStruct* owned = nullptr;
    ASSERT_EQ(0,
              client->getRuntime()->suite->getCachedLocation(client->handle(), "/root", 5, &owned));
    owned = client->getRuntime()->suite->cookLocation(client->handle(), "/root", 5);
    const GroupAttribute group = GroupAttribute::adopt(owned);
    ASSERT_EQ(3, group.getNumberOfChildren());
    EXPECT_EQ("exists", group.getChildName(0));
    EXPECT_EQ("pc", group.getChildName(1));
    EXPECT_EQ("attrs", group.getChildName(2));
    EXPECT_EQ(1, group.getChild<IntAttribute>("exists").getValue(0));
    EXPECT_EQ(32, group.getChild<StringAttribute>("pc").getNumberOfValues());
    EXPECT_TRUE(group.getChild<GroupAttribute>("attrs").isValid());
    EXPECT_EQ(group.getHash(), client->cookLocation("/root").getHash());
}

TEST(LocationData, ExistsWhenItsGroupSaysSo) {
    struct Row {
        const char* what;
        GroupAttribute group;
        bool exists;
    };
    const std::vector<std::int32_t> none;
    for (const Row& row : {Row{"1", Args().set("exists", 1), true},
                           Row{"0", Args().set("exists", 0), false},
                           Row{"a text", Args().set("exists", "1"), false},
                           Row{"no values", Args().set("exists", IntAttribute(none)), false},
                           Row{"no such key", Args().set("pc", "a"), false},
                           Row{"no group", GroupAttribute(), false}}) {
        EXPECT_EQ(row.exists, SylvarRuntime::LocationData(row.group).doesLocationExist())
            << row.what;
        EXPECT_EQ(row.group.getHash(), SylvarRuntime::LocationData(row.group).getHash());
    }
}

TEST(LocationData, HasNeitherChildrenNorAttributesOfAnotherKind) {
    const SylvarRuntime::LocationData location(
        Args().set("exists", 1).set("pc", 1).set("attrs", "x"));
    EXPECT_FALSE(location.getPotentialChildren());
    EXPECT_FALSE(location.getAttrs());
    EXPECT_FALSE(SylvarRuntime::LocationData().getPotentialChildren());
    EXPECT_FALSE(SylvarRuntime::LocationData().getAttrs());
}
