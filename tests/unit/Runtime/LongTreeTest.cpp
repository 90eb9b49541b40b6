// SPDX-License-Identifier: Apache-2.0
#include "support/HeardLogs.h"
#include "support/OpTree.h"
#include "support/RuntimeCounts.h"
#include "support/RuntimeWalk.h"
#include "support/StaticScene.h"

#include <gtest/gtest.h>

using namespace ovtest;
using namespace Sylvar3::internal::OvAttribute;

namespace {

/// Each op of the chain sets an attribute of its own name on /root/a.
OpTree chainOf(int length, const char* prefix) {
    OpTree tree;
    tree.op("s", "scene", Args().set("tree", StaticScene().at("/root/a/b").group()));
    std::string last = "s";
    for (int i = 0; i < length; ++i) {
        const std::string name = prefix + std::to_string(i % 10);
        const GroupAttribute values({{name, IntAttribute(i)}}, false);
        const std::string op = prefix + std::string("op") + std::to_string(i);
        tree.op(op, "setAttributes", Args().set("paths", "/root/a").set("values", values), {last});
        last = op;
    }
    return tree;
}

int valueOf(const SylvarRuntime::Client& client, const char* name) {
    return client.cookLocation("/root/a").getAttrs().getChild<IntAttribute>(name).getValue(-1);
}

}  // namespace

TEST(LongTree, CooksThroughTenThousandOpsOneAboveTheOther) {
    constexpr int kLength = 10000;
    const auto client = chainOf(kLength, "x").open();
    EXPECT_EQ(3 * kLength + kLength,
              cooksDuring(*client, "setAttributes", [&] { client->cookLocation("/root/a/b"); }));
    for (int i = 0; i < 10; ++i) {
        EXPECT_EQ(kLength - 10 + i, valueOf(*client, ("x" + std::to_string(i)).c_str()));
    }
    EXPECT_EQ(3, countFrom(*client, "/root"));
}

TEST(LongTree, CooksAgainAfterAnEvict) {
    constexpr int kLength = 3000;
    const auto client = chainOf(kLength, "e").open();
    client->cookLocation("/root/a");
    client->getRuntime()->evict("/root/a");
    EXPECT_EQ(kLength,
              cooksDuring(*client, "setAttributes", [&] { client->cookLocation("/root/a"); }));
    client->getRuntime()->finalize();
    EXPECT_EQ(kLength - 1, valueOf(*client, "e9"));
}

TEST(LongTree, CooksWhereTwoLongOnesMeet) {
    constexpr int kLength = 3000;
    OpTree tree = chainOf(kLength, "p");
    std::string last = "s";
    for (int i = 0; i < kLength - 1; ++i) {
        const std::string op = "q" + std::to_string(i);
        const GroupAttribute values({{"q", IntAttribute(i)}}, false);
        tree.op(op, "setAttributes", Args().set("paths", "/root/a").set("values", values), {last});
        last = op;
    }
    tree.op("m",
            "merge",
            Args().set("attributes", "deep"),
            {"pop" + std::to_string(kLength - 1), last});
    const auto client = tree.open();
    EXPECT_EQ(kLength - 1, valueOf(*client, "p9"));
    EXPECT_EQ(kLength - 2, valueOf(*client, "q"));
}

TEST(LongTree, HandsOnThroughTenThousandOpsWithoutAType) {
    OpTree tree;
    tree.op("op0", "generate", Args().set("depth", 1));
    for (int i = 1; i <= 10000; ++i) {
        tree.op("op" + std::to_string(i), "", GroupAttribute(), {"op" + std::to_string(i - 1)});
    }
    EXPECT_TRUE(tree.open()->cookLocation("/root/c1").doesLocationExist());
}

TEST(LongTree, BreaksARoundOfTenThousandOps) {
    HeardLogs logs;
    OpTree tree;
    constexpr int kLength = 10000;
    for (int i = 0; i < kLength; ++i) {
        tree.op("op" + std::to_string(i),
                "merge",
                GroupAttribute(),
                {"op" + std::to_string((i + 1) % kLength)});
    }
    EXPECT_TRUE(tree.open()->cookLocation("/root").doesLocationExist());
    EXPECT_EQ(1U, logs.take().size());
}

TEST(LongTree, TakesTwoThousandInputsOfOneOp) {
    constexpr int kCount = 2000;
    OpTree tree;
    std::vector<std::string> names;
    for (int i = 0; i < kCount; ++i) {
        names.push_back("s" + std::to_string(i));
        const StaticScene scene = StaticScene().at("/root/c" + std::to_string(i));
        tree.op(names.back(), "scene", Args().set("tree", scene.group()));
    }
    const auto client = tree.op("m", "merge", GroupAttribute(), names).open();
    EXPECT_EQ(static_cast<std::size_t>(kCount), childrenOf(client->cookLocation("/root")).size());
    EXPECT_TRUE(client->cookLocation("/root/c1999").doesLocationExist());
}

TEST(LongTree, CooksAnInputThatManyOpsShareOnce) {
    OpTree tree;
    tree.op("d0", "generate", Args().set("depth", 1).set("seed", 501));
    for (int i = 1; i <= 200; ++i) {
        const std::string below = "d" + std::to_string(i - 1);
        tree.op("d" + std::to_string(i), "merge", GroupAttribute(), {below, below});
    }
    const auto client = tree.open();
    EXPECT_EQ(200 * 3, cooksDuring(*client, "merge", [&] { client->cookLocation("/root/c1"); }));
}

TEST(LongTree, PutsLocationsThatAreCookedWithinOneAnotherSideBySide) {
    const auto client = chainOf(60, "n").open();
    const std::int64_t before = RuntimeCounts(*client).store("bytes");
    client->cookLocation("/root/a/b");
    // 4 * 60 locations of some 200 bytes each; with a page for each they took megabytes.
    EXPECT_GT(200000, RuntimeCounts(*client).store("bytes") - before);
}
