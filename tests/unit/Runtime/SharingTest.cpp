// SPDX-License-Identifier: Apache-2.0
#include "support/OpTree.h"
#include "support/RuntimeCounts.h"
#include "support/RuntimeWalk.h"
#include "support/StaticScene.h"

#include <gtest/gtest.h>

using namespace ovtest;
using namespace Sylvar3::internal::OvAttribute;

namespace {

OpTree generated(int seed, const char* note = nullptr) {
    Args arguments;
    arguments.set("depth", 1).set("seed", seed);
    if (note) {
        arguments.set("note", note);
    }
    return OpTree().op("g", "generate", arguments);
}

const OvAttributeStruct* attributesAt(const SylvarRuntime::Client& client, const char* path) {
    return client.cookLocation(path).getAttrs().handle();
}

}  // namespace

TEST(Sharing, CooksEqualOpsOfTwoRuntimesOnce) {
    const auto first = generated(101).open();
    const auto second = generated(101).open();
    EXPECT_EQ(33 + 1, cooksDuring(*first, "generate", [&] { countFrom(*first, "/root"); }));
    EXPECT_EQ(0, cooksDuring(*first, "generate", [&] { countFrom(*second, "/root"); }));
    EXPECT_EQ(attributesAt(*first, "/root/c5"), attributesAt(*second, "/root/c5"));
}

TEST(Sharing, CooksOpsOfOtherArgumentsByThemselves) {
    const auto first = generated(102).open();
    const auto second = generated(103).open();
    countFrom(*first, "/root");
    EXPECT_EQ(33 + 1, cooksDuring(*first, "generate", [&] { countFrom(*second, "/root"); }));
}

TEST(Sharing, LeavesANoteOutOfAccount) {
    const auto plain = generated(104).open();
    const auto noted = generated(104, "for the morning shots").open();
    countFrom(*plain, "/root");
    EXPECT_EQ(0, cooksDuring(*plain, "generate", [&] { countFrom(*noted, "/root"); }));
}

TEST(Sharing, TakesAnOpWithNothingButANoteForOneWithoutArguments) {
    const auto plain = OpTree().op("g", "generate").open();
    const auto noted = OpTree().op("g", "generate", Args().set("note", "as it comes")).open();
    plain->cookLocation("/root/c0");
    EXPECT_EQ(0, cooksDuring(*plain, "generate", [&] { noted->cookLocation("/root/c0"); }));
}

TEST(Sharing, HandsOnTheVeryLocationsOfAnOpThatIsNotEnabled) {
    const auto plain = generated(105).open();
    const GroupAttribute off =
        Args().set("enabled", 0).set("paths", "/root/**").set("values", GroupAttribute({}, false));
    const auto client = generated(105).op("set", "setAttributes", off, {"g"}).open();
    EXPECT_EQ(plain->cookLocation("/root/c1").getAttrs().handle(),
              client->cookLocation("/root/c1").getAttrs().handle());
    EXPECT_EQ(0, cooksDuring(*client, "setAttributes", [&] { countFrom(*client, "/root"); }));
}

TEST(Sharing, HandsOnTheVeryLocationsOfAnOpWithoutAType) {
    const auto plain = generated(106).open();
    const auto client =
        generated(106).op("x", "generate").op("pass", "", GroupAttribute(), {"g", "x"}).open();
    const auto groupOf = [](const SylvarRuntime::Client& one) {
        return GroupAttribute::adopt(
            one.getRuntime()->suite->cookLocation(one.handle(), "/root/c1", 8));
    };
    EXPECT_EQ(groupOf(*plain).handle(), groupOf(*client).handle());
}

TEST(Sharing, HasNoLocationsWhereAnOpWithoutATypeHasNoInput) {
    EXPECT_EQ(0, countFrom(*OpTree().op("nothing", "").open(), "/root"));
    EXPECT_EQ(0,
              countFrom(*OpTree().op("off", "generate", Args().set("enabled", 0)).open(), "/root"));
}

TEST(Sharing, KeepsWhatWasCookedAsLongAsAnyRuntimeHasTheOp) {
    auto first = generated(107).open();
    const auto second = generated(107).open();
    countFrom(*first, "/root");
    first.reset();
    EXPECT_EQ(0, cooksDuring(*second, "generate", [&] { countFrom(*second, "/root"); }));
}

TEST(Sharing, EndsWithTheLastRuntimeThatHasTheOp) {
    const auto witness = generated(109).open();
    auto client = generated(108).open();
    countFrom(*client, "/root");
    client.reset();
    client = generated(108).open();
    EXPECT_EQ(33 + 1, cooksDuring(*witness, "generate", [&] { countFrom(*client, "/root"); }));
}

TEST(Laziness, CooksTheWayToALocationAndNoMore) {
    const auto client = OpTree()
                            .op("g", "generate", Args().set("depth", 3).set("seed", 110))
                            .op("h", "generate", Args().set("depth", 3).set("seed", 111))
                            .op("pass", "", GroupAttribute(), {"g", "h"})
                            .open();
    EXPECT_EQ(0, cooksDuring(*client, "generate", [] {}));
    EXPECT_EQ(4, cooksDuring(*client, "generate", [&] { client->cookLocation("/root/c1/c2"); }));
    EXPECT_EQ(1, cooksDuring(*client, "generate", [&] { client->cookLocation("/root/c1/c3"); }));
}

TEST(Laziness, DoesNotCookANameThatTheParentDoesNotList) {
    const auto client =
        OpTree().op("g", "generate", Args().set("depth", 2).set("seed", 112)).open();
    client->cookLocation("/root");
    EXPECT_EQ(0, cooksDuring(*client, "generate", [&] {
                  EXPECT_FALSE(client->cookLocation("/root/other").doesLocationExist());
                  EXPECT_FALSE(client->cookLocation("/root/other/c1").doesLocationExist());
              }));
}

TEST(Laziness, RemembersWhatIsAbsent) {
    const auto client = OpTree()
                            .op("g",
                                "generate",
                                Args().set("shape", "wide").set("breadth", 8).set("absentEvery", 2))
                            .open();
    EXPECT_EQ(3, cooksDuring(*client, "generate", [&] { client->cookLocation("/root/c1"); }));
    EXPECT_FALSE(client->cookLocation("/root/c1").doesLocationExist());
    EXPECT_EQ(0, cooksDuring(*client, "generate", [&] { client->cookLocation("/root/c1"); }));
    EXPECT_TRUE(client->getCachedLocation("/root/c1").second);
    EXPECT_FALSE(client->getCachedLocation("/root/c1").first.doesLocationExist());
}
