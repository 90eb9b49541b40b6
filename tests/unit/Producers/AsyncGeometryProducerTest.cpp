// SPDX-License-Identifier: Apache-2.0
#include "Producers/AsyncGeometryProducer.h"

#include <OvSylvarProducers/ClientFactory.h>
#include <SylvarPlatform/SylvarServices.h>

#include "support/RuntimeTest.h"

using namespace SYLVAR;
using namespace Sylvar3::internal::OvAttribute;
using testing::ElementsAre;

namespace {

class Async : public ovtest::RuntimeTest {
protected:
    Async() { fake.at("/root", {"a", "b"}).at("/root/a", {"c"}).at("/root/b").at("/root/a/c"); }

    GeometryProducerPtr open(const std::string& path) {
        return CreateAsyncGeometryProducer(client, path);
    }

    const std::shared_ptr<SylvarRuntime::Client> client = ClientCreateWithOpTree(freshSource());
};

}  // namespace

TEST_F(Async, IsNullWithoutAClient) {
    EXPECT_EQ(nullptr, CreateAsyncGeometryProducer(nullptr, "/root"));
    EXPECT_EQ(nullptr, CreateAsyncGeometryProducer({}, ""));
}

TEST_F(Async, IsNullWhenNothingIsCookedAndStartsNoCook) {
    fake.take();
    EXPECT_EQ(nullptr, open("/root"));
    EXPECT_THAT(fake.take(), ElementsAre("getCachedLocation c1 /root"));
}

TEST_F(Async, NeedsEveryAncestorToBeCooked) {
    client->cookLocation("/root/a/c");
    EXPECT_EQ(nullptr, open("/root/a/c"));
    client->cookLocation("/root");
    EXPECT_EQ(nullptr, open("/root/a/c"));
    client->cookLocation("/root/a");
    EXPECT_TRUE(open("/root/a/c"));
}

TEST_F(Async, IsNullForALocationThatWasCookedAndIsNotThere) {
    client->cookLocation("/other");
    EXPECT_EQ(nullptr, open("/other"));
    fake.put("/gone", GroupBuilder().set("exists", IntAttribute(0)).build());
    client->cookLocation("/gone");
    EXPECT_EQ(nullptr, open("/gone"));
}

TEST_F(Async, FindsAChildOnceItIsCooked) {
    client->cookLocation("/root");
    const GeometryProducerPtr root = open("/root");
    EXPECT_EQ(nullptr, root->getChildByName("a", false));
    client->cookLocation("/root/a");
    const GeometryProducerPtr a = root->getChildByName("a", false);
    ASSERT_TRUE(a);
    EXPECT_EQ("/root/a", a->getFullName());
}

TEST_F(Async, PassesOverWhatIsNotCooked) {
    client->cookLocation("/root");
    const GeometryProducerPtr root = open("/root");
    EXPECT_EQ(nullptr, root->getFirstChild(false));
    client->cookLocation("/root/b");
    const GeometryProducerPtr b = root->getFirstChild(false);
    ASSERT_TRUE(b);
    EXPECT_EQ("/root/b", b->getFullName());
    EXPECT_EQ(nullptr, b->getNextSibling(false));
    client->cookLocation("/root/a");
    EXPECT_EQ("/root/b", root->getFirstChild(false)->getNextSibling(false)->getFullName());
}

TEST_F(Async, EvictsNothingAndCooksNothing) {
    client->cookLocation("/root");
    client->cookLocation("/root/b");
    const GeometryProducerPtr root = open("/root");
    fake.take();
    EXPECT_TRUE(root->getFirstChild(true));
    EXPECT_TRUE(root->getChildByName("b", true));
    EXPECT_TRUE(root->getProducerByPath("root/b", true));
    EXPECT_THAT(fake.take(),
                ElementsAre("getCachedLocation c1 /root/a",
                            "getCachedLocation c1 /root/b",
                            "getCachedLocation c1 /root/b",
                            "getCachedLocation c1 /root/b"));
}

TEST_F(Async, FindsNothingThatWasEvicted) {
    client->cookLocation("/root");
    client->cookLocation("/root/a");
    const GeometryProducerPtr root = open("/root");
    EXPECT_TRUE(root->getFirstChild(false));
    client->getRuntime()->evict("/root/a");
    EXPECT_EQ(nullptr, root->getFirstChild(false));
    EXPECT_EQ(nullptr, open("/root/a"));
}

TEST_F(Async, GivesTheClientThatItWasMadeWith) {
    client->cookLocation("/root");
    client->cookLocation("/root/a");
    const GeometryProducerPtr a = open("/root/a");
    EXPECT_EQ(client, a->getClient());
    EXPECT_EQ(client, a->parent->getClient());
    EXPECT_EQ(client, a->parent->getFirstChild(false)->getClient());
}

TEST_F(Async, KeepsItsClientAndThroughItTheRuntime) {
    const auto transaction =
        Sylvar3::OvSylvarServicesHost::v1::Sylvar().createRuntime()->createTransaction();
    auto own = transaction->createClient();
    own->cookLocation("/root");
    own->cookLocation("/root/a");
    GeometryProducerPtr root = CreateAsyncGeometryProducer(own, "/root");
    own.reset();
    EXPECT_THAT(fake.live(), testing::IsSupersetOf({"c2", "r2"}));
    EXPECT_TRUE(root->getFirstChild(false));
    root.reset();
    EXPECT_THAT(fake.live(), testing::Not(testing::Contains("c2")));
}

TEST_F(Async, ReadsWhatIsNotCookedAsALocationOfItsOwnForm) {
    client->cookLocation("/root");
    const GeometryProducerPtr root = open("/root");
    auto& base = static_cast<BaseGeometryProducer&>(*root);
    const auto missing = base.cookChildLocation("/root/a", true);
    const GroupAttribute told(
        {{"exists", IntAttribute(0)}, {"pc", StringAttribute(std::vector<std::string>())}}, true);
    EXPECT_FALSE(missing.doesLocationExist());
    EXPECT_EQ(told.getHash(), missing.getHash());
    ASSERT_TRUE(missing.getPotentialChildren());
    EXPECT_EQ(0, missing.getPotentialChildren().getNumberOfValues());
    EXPECT_EQ(1, missing.getPotentialChildren().getTupleSize());
    EXPECT_FALSE(missing.getAttrs());
}

TEST_F(Async, GivesWhatIsCookedAsItIs) {
    client->cookLocation("/root");
    client->cookLocation("/other");
    const GeometryProducerPtr root = open("/root");
    auto& base = static_cast<BaseGeometryProducer&>(*root);
    EXPECT_EQ(SylvarRuntime::LocationData().getHash(),
              base.cookChildLocation("/other", false).getHash())
        << "cooked, and not there";
}
