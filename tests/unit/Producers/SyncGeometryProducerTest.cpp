// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/ClientFactory.h>
#include <OvSylvarProducers/SyncGeometryProducer.h>
#include <SylvarPlatform/SylvarServices.h>

#include "support/RuntimeTest.h"

using namespace SYLVAR;
using testing::ElementsAre;

namespace {

class Sync : public ovtest::RuntimeTest {
protected:
    Sync() {
        fake.at("/root", {"a", "b"}).at("/root/a", {"c"}).at("/root/b").at("/root/a/c");
        fake.take();
    }

    const std::shared_ptr<SylvarRuntime::Client> client = ClientCreateWithOpTree(freshSource());
};

}  // namespace

TEST_F(Sync, IsNullWithoutAClient) {
    EXPECT_EQ(nullptr, CreateSyncGeometryProducer(nullptr, "/root"));
    EXPECT_EQ(nullptr, CreateSyncGeometryProducer({}, ""));
}

TEST_F(Sync, CooksFromTheTopDownToTheFirstMissingLevel) {
    EXPECT_EQ(nullptr, CreateSyncGeometryProducer(client, "/root/x/y"));
    EXPECT_THAT(fake.take(), ElementsAre("cookLocation c1 /root", "cookLocation c1 /root/x"));
}

TEST_F(Sync, GivesTheClientThatItWasMadeWith) {
    const GeometryProducerPtr a = CreateSyncGeometryProducer(client, "/root/a");
    EXPECT_EQ(client, a->getClient());
    EXPECT_EQ(client, a->parent->getClient());
    EXPECT_EQ(client, a->getFirstChild(false)->getClient());
    EXPECT_EQ(client, a->getNextSibling(false)->getClient());
}

TEST_F(Sync, KeepsItsClientAndThroughItTheRuntime) {
    auto own = Sylvar3::OvSylvarServicesHost::v1::Sylvar().createRuntime()->createTransaction();
    GeometryProducerPtr root = CreateSyncGeometryProducer(own->createClient(), "/root");
    own.reset();
    EXPECT_THAT(fake.live(), ElementsAre("c1", "c2", "r1", "r2"));
    EXPECT_TRUE(root->getFirstChild(false));
    root.reset();
    EXPECT_THAT(fake.live(), ElementsAre("c1", "r1"));
}

TEST_F(Sync, EvictsALocationJustBeforeItIsCooked) {
    const GeometryProducerPtr root = CreateSyncGeometryProducer(client, "/root");
    fake.take();
    const GeometryProducerPtr a = root->getFirstChild(true);
    EXPECT_THAT(fake.take(), ElementsAre("evict r1 /root/a", "cookLocation c1 /root/a"));
    a->getNextSibling(true);
    EXPECT_THAT(fake.take(), ElementsAre("evict r1 /root/b", "cookLocation c1 /root/b"));
    root->getFirstChild(false);
    EXPECT_THAT(fake.take(), ElementsAre("cookLocation c1 /root/a"));
}

TEST_F(Sync, EvictsTheLastLocationOfAPathAlone) {
    const GeometryProducerPtr root = CreateSyncGeometryProducer(client, "/root");
    fake.take();
    EXPECT_TRUE(root->getProducerByPath("root/a/c", true));
    EXPECT_THAT(
        fake.take(),
        ElementsAre("cookLocation c1 /root/a", "evict r1 /root/a/c", "cookLocation c1 /root/a/c"));
    root->getProducerByPath("root", true);
    EXPECT_THAT(fake.take(), ElementsAre());
}
