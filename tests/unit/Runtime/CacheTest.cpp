// SPDX-License-Identifier: Apache-2.0
#include "support/OpTree.h"
#include "support/OpTreeFile.h"
#include "support/RuntimeCounts.h"
#include "support/RuntimeWalk.h"
#include "support/StaticScene.h"

#include <gtest/gtest.h>

using namespace ovtest;
using namespace Sylvar3::internal::OvAttribute;

namespace {

std::shared_ptr<SylvarRuntime::Client> generated(int seed) {
    return OpTree().op("g", "generate", Args().set("depth", 2).set("seed", seed)).open();
}

bool isCached(const SylvarRuntime::Client& client, const char* path) {
    return client.getCachedLocation(path).second;
}

}  // namespace

TEST(Cached, IsWhatWasCookedAndNothingElse) {
    const auto client = generated(801);
    EXPECT_EQ(0, cooksDuring(*client, "generate", [&] {
                  EXPECT_FALSE(isCached(*client, "/root"));
                  EXPECT_FALSE(isCached(*client, "/root/c1/c2"));
              }));
    const Hash hash = client->cookLocation("/root/c1/c2").getHash();
    EXPECT_TRUE(isCached(*client, "/root"));
    EXPECT_TRUE(isCached(*client, "/root/c1"));
    EXPECT_FALSE(isCached(*client, "/root/c1/c3"));
    EXPECT_EQ(hash, client->getCachedLocation("/root/c1/c2").first.getHash());
}

TEST(Cached, IsWhatAnyRuntimeHasCooked) {
    const auto first = generated(802);
    const auto second = generated(802);
    first->cookLocation("/root/c1");
    EXPECT_TRUE(isCached(*second, "/root/c1"));
    first->getRuntime()->evict("/root/c1");
    EXPECT_FALSE(isCached(*second, "/root/c1"));
}

TEST(Cached, KnowsThatANameIsNotListed) {
    const auto client = generated(803);
    client->cookLocation("/root");
    const auto cached = client->getCachedLocation("/root/nobody");
    EXPECT_TRUE(cached.second);
    EXPECT_FALSE(cached.first.doesLocationExist());
}

TEST(Evict, DropsALocationAndWhatIsBelowItAlone) {
    const auto client = generated(804);
    for (const char* const path : {"/root/c1/c1", "/root/c1/c2", "/root/c2/c1"}) {
        client->cookLocation(path);
    }
    client->getRuntime()->evict("/root/c1");
    EXPECT_TRUE(isCached(*client, "/root"));
    EXPECT_FALSE(isCached(*client, "/root/c1"));
    EXPECT_FALSE(isCached(*client, "/root/c1/c2"));
    EXPECT_TRUE(isCached(*client, "/root/c2/c1"));
    EXPECT_EQ(2, cooksDuring(*client, "generate", [&] { client->cookLocation("/root/c1/c2"); }));
}

TEST(Evict, CooksTheSameLocationAgain) {
    const auto client = generated(805);
    const SylvarRuntime::LocationData before = client->cookLocation("/root/c1");
    client->getRuntime()->evict("/root/c1");
    const SylvarRuntime::LocationData after = client->cookLocation("/root/c1");
    EXPECT_NE(before.getAttrs().handle(), after.getAttrs().handle());
    EXPECT_EQ(before.getHash(), after.getHash());
    EXPECT_EQ(after.getAttrs().handle(), client->cookLocation("/root/c1").getAttrs().handle());
}

TEST(Evict, DropsThePathForAllOpsOfTheTree) {
    const GroupAttribute values({{"x", IntAttribute(1)}}, false);
    const auto client =
        OpTree()
            .op("g", "generate", Args().set("depth", 1).set("seed", 806))
            .op("h", "generate", Args().set("depth", 1).set("seed", 807))
            .op("m", "merge", GroupAttribute(), {"g", "h"})
            .op("set", "setAttributes", Args().set("paths", "/root/*").set("values", values), {"m"})
            .open();
    client->cookLocation("/root/c1");
    client->getRuntime()->evict("/root/c1");
    const RuntimeCounts before(*client);
    client->cookLocation("/root/c1");
    const RuntimeCounts after(*client);
    EXPECT_EQ(2, after.cooks("generate") - before.cooks("generate"));
    EXPECT_EQ(1, after.cooks("merge") - before.cooks("merge"));
    EXPECT_EQ(1, after.cooks("setAttributes") - before.cooks("setAttributes"));
}

TEST(Evict, DropsWhatWasReadElsewhereToMakeTheLocation) {
    TestFile file("evict_elsewhere.optree");
    file.writeOpTree(OpTree().op("g", "generate", Args().set("depth", 2).set("seed", 808)).group());
    const auto client =
        OpTree().op("l", "load", Args().set("file", file.path()).set("at", "/root/a/b")).open();
    client->cookLocation("/root/a/b/c1/c1");
    client->cookLocation("/root/a/b/c2");
    client->getRuntime()->evict("/root/a/b/c1");
    const RuntimeCounts before(*client);
    client->cookLocation("/root/a/b/c1");
    client->cookLocation("/root/a/b/c2");
    const RuntimeCounts after(*client);
    EXPECT_EQ(1, after.cooks("generate") - before.cooks("generate"));
    EXPECT_EQ(1, after.cooks("load") - before.cooks("load"));
}

TEST(Evict, ForgetsThatALocationIsAbsent) {
    const auto client = OpTree()
                            .op("g",
                                "generate",
                                Args().set("shape", "wide").set("breadth", 4).set("absentEvery", 2))
                            .open();
    client->cookLocation("/root/c1");
    client->getRuntime()->evict("/root/c1");
    EXPECT_FALSE(isCached(*client, "/root/c1"));
    EXPECT_EQ(1, cooksDuring(*client, "generate", [&] { client->cookLocation("/root/c1"); }));
}

TEST(Evict, DoesNothingForPathsThatWereNeverCooked) {
    const auto client = generated(809);
    client->cookLocation("/root/c1");
    for (const char* const path :
         {"", "/", "root", "/root/c1/", "/root/c2", "/other", "/root/c1/c1"}) {
        client->getRuntime()->evict(path);
        EXPECT_TRUE(isCached(*client, "/root/c1")) << path;
    }
}

TEST(Evict, LeavesOtherTreesAlone) {
    const auto client = generated(810);
    const auto other = generated(811);
    client->cookLocation("/root/c1");
    other->cookLocation("/root/c1");
    client->getRuntime()->evict("/root");
    EXPECT_FALSE(isCached(*client, "/root"));
    EXPECT_TRUE(isCached(*other, "/root/c1"));
}

TEST(Finalize, DropsEverythingAndLeavesTheRuntimeUsable) {
    const auto client = generated(812);
    countFrom(*client, "/root");
    EXPECT_LT(1000, RuntimeCounts(*client).store("entries"));
    client->getRuntime()->finalize();
    EXPECT_FALSE(isCached(*client, "/root"));
    EXPECT_EQ(1 + 1 + 32 + 1024,
              cooksDuring(*client, "generate", [&] { countFrom(*client, "/root"); }));
}

TEST(Finalize, CountsWhatItDrops) {
    const auto client = generated(813);
    const RuntimeCounts before(*client);
    countFrom(*client, "/root");
    client->getRuntime()->finalize();
    const RuntimeCounts after(*client);
    EXPECT_EQ(before.store("entries"), after.store("entries"));
    EXPECT_EQ(1 + 1 + 32 + 1024, after.evictions("generate") - before.evictions("generate"));
}
