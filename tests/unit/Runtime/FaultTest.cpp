// SPDX-License-Identifier: Apache-2.0
#include "support/HeardLogs.h"
#include "support/HookedOp.h"
#include "support/OpTree.h"
#include "support/RuntimeCounts.h"
#include "support/RuntimeWalk.h"
#include "support/StaticScene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

using namespace ovtest;
using namespace Sylvar3::internal::OvAttribute;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

GroupAttribute scene(const char* path) {
    return Args().set("tree", StaticScene().at(path).set(path, "kept", 7).group());
}

std::string errorAt(const SylvarRuntime::Client& client, const std::string& path) {
    return client.cookLocation(path)
        .getAttrs()
        .getChild<StringAttribute>("errorMessage")
        .getValue("");
}

}  // namespace

TEST(Fault, ShowsAtRootWhenTheOpIsInNoPlace) {
    HeardLogs logs;
    const auto client = OpTree().op("a", "sceen").open();
    EXPECT_THAT(errorAt(*client, "/root"),
                AllOf(HasSubstr("sceen"),
                      HasSubstr("op 1 of 1"),
                      HasSubstr("/root"),
                      HasSubstr("there is no op type \"sceen\"")));
    EXPECT_EQ(1, countFrom(*client, "/root"));
}

TEST(Fault, TellsTheOpTypeThatWasProbablyMeant) {
    HeardLogs logs;
    EXPECT_THAT(errorAt(*OpTree().op("a", "scenes").open(), "/root"),
                HasSubstr("there is no op type \"scenes\"; did you mean \"scene\"?"));
}

TEST(Fault, IsLoggedOnce) {
    HeardLogs logs;
    const auto client =
        OpTree()
            .op("g", "generate", Args().set("breadth", 8).set("depth", 1).set("failEvery", 1))
            .open();
    countFrom(*client, "/root");
    countFrom(*client, "/root");
    EXPECT_THAT(logs.take(),
                ElementsAre(AllOf(HasSubstr("SylvarRuntime error"),
                                  HasSubstr("generate (op 1 of 1)"),
                                  HasSubstr("/root/c0: fails as it is told to"))));
}

TEST(Fault, ShowsWhereTheOpIsToStand) {
    HeardLogs logs;
    const auto client = OpTree()
                            .op("s", "scene", scene("/root/a"))
                            .op("u", "vendor.unknown", Args().set("path", "/root/a/lamp"), {"s"})
                            .op("v", "vendor.other", Args().set("at", "/world/b/c"), {"u"})
                            .open();
    EXPECT_THAT(errorAt(*client, "/root/a/lamp"),
                AllOf(HasSubstr("vendor.unknown (op 2 of 3)"), HasSubstr("/root/a/lamp: ")));
    EXPECT_THAT(errorAt(*client, "/world/b/c"), HasSubstr("vendor.other (op 3 of 3)"));
    EXPECT_EQ("", errorAt(*client, "/world/b"));
    EXPECT_EQ("", errorAt(*client, "/root"));
    EXPECT_EQ(
        7, client->cookLocation("/root/a").getAttrs().getChild<IntAttribute>("kept").getValue(0));
    EXPECT_EQ(2U, logs.take().size());
}

TEST(Fault, ShowsAtRootWhenThePlaceIsNone) {
    HeardLogs logs;
    for (const char* const at : {"", "/", "root", "/root/", "//root", "/root//a"}) {
        const auto client = OpTree().op("u", "unknown", Args().set("at", at)).open();
        EXPECT_THAT(errorAt(*client, "/root"), HasSubstr("there is no op type")) << at;
        EXPECT_EQ(1, countFrom(*client, "/root")) << at;
        if (std::string(at) != "/root") {
            EXPECT_FALSE(client->cookLocation(at).doesLocationExist()) << at;
        }
    }
}

TEST(Fault, LeavesTheRestOfTheSceneAndTheLocationItself) {
    HeardLogs logs;
    const auto client = OpTree()
                            .op("s", "scene", scene("/root"))
                            .op("u", "unknown", GroupAttribute(), {"s"})
                            .open();
    EXPECT_NE("", errorAt(*client, "/root"));
    EXPECT_EQ(7,
              client->cookLocation("/root").getAttrs().getChild<IntAttribute>("kept").getValue(0));
}

TEST(Fault, NamesTheArgumentAndWhatWasExpected) {
    struct Row {
        const char* type;
        GroupAttribute arguments;
        const char* reason;
    };
    HeardLogs logs;
    const GroupAttribute empty({}, false);
    for (const Row& row :
         {Row{"generate",
              Args().set("bredth", 2),
              "there is no argument \"bredth\"; did you mean \"breadth\"?"},
          {"generate", Args().set("colour", 2), "there is no argument \"colour\""},
          {"generate",
           Args().set("breadth", "2"),
           "argument \"breadth\": expected int, found string"},
          {"generate",
           Args().set("breadth", 0),
           "argument \"breadth\": expected 1 to 16777216, found 0"},
          {"generate", Args().set("breadth", empty), "expected int, found group"},
          {"generate",
           Args().set("shape", "round"),
           "expected one of \"tree\" \"wide\" \"deep\" \"grid\", found \"round\""},
          {"generate",
           Args().set("enabled", "no"),
           "argument \"enabled\": expected int, found string"},
          {"generate", Args().set("a.b", 1), "there is no argument \"a.b\""},
          {"scene", GroupAttribute(), "argument \"tree\" is missing"},
          {"scene", Args().set("tree", Attribute()), "argument \"tree\" is missing"},
          {"scene",
           Args().set("tree", empty).set("at", "here"),
           "argument \"at\": expected a location's path"},
          {"load", Args().set("file", ""), "argument \"file\": expected a file's name"},
          {"load", GroupAttribute(), "argument \"file\" is missing"}}) {
        const auto client = OpTree().op("op", row.type, row.arguments).open();
        EXPECT_THAT(errorAt(*client, "/root"), HasSubstr(row.reason));
        logs.take();
    }
}

TEST(Fault, IsWhateverAnOpThrows) {
    HeardLogs logs;
    const auto throwing = HookedOpType::hook([](Runtime::Cook& cook, Runtime::LocationWriter& out) {
        if (cook.path() == "/root/a") {
            throw 1;
        }
        if (cook.path() == "/root/b") {
            throw std::logic_error("is broken");
        }
        writeSmallScene(cook, out);
    });
    const auto client = OpTree().op("t", "test.hook", throwing).open();
    EXPECT_EQ("test.hook (op 1 of 1), /root/a: threw something that is no std::exception",
              errorAt(*client, "/root/a"));
    EXPECT_EQ("test.hook (op 1 of 1), /root/b: is broken", errorAt(*client, "/root/b"));
    EXPECT_EQ("", errorAt(*client, "/root"));
    EXPECT_EQ(3, countFrom(*client, "/root"));
    EXPECT_EQ(1U, logs.take().size());
}

TEST(Fault, NamesTheNumberOfInputs) {
    HeardLogs logs;
    const auto tooFew = OpTree().op("m", "merge").open();
    EXPECT_THAT(errorAt(*tooFew, "/root"), HasSubstr("has 0 inputs, and needs at least 1"));
    const auto tooMany =
        OpTree().op("a", "generate").op("b", "generate", GroupAttribute(), {"a"}).open();
    EXPECT_THAT(errorAt(*tooMany, "/root"), HasSubstr("has 1 inputs, and takes at most 0"));
}

TEST(Fault, IsAnOpThatIsItsOwnInput) {
    HeardLogs logs;
    const auto client = OpTree().op("loop", "merge", GroupAttribute(), {"loop"}).open();
    EXPECT_THAT(errorAt(*client, "/root"),
                AllOf(HasSubstr("merge (op 1 of 1)"), HasSubstr("cycle"), HasSubstr("op 1 of 1")));
    EXPECT_EQ(1, countFrom(*client, "/root"));
}

TEST(Fault, IsARoundOfOpsWhileTheRestStands) {
    HeardLogs logs;
    const auto client = OpTree()
                            .op("s", "scene", scene("/root/a"))
                            .op("x", "merge", GroupAttribute(), {"s", "z"})
                            .op("y", "merge", GroupAttribute(), {"x"})
                            .op("z", "merge", GroupAttribute(), {"y"})
                            .op("last", "merge", Args().set("attributes", "deep"), {"s", "z"})
                            .open();
    EXPECT_THAT(errorAt(*client, "/root"), HasSubstr("cycle: the op is an input of itself"));
    EXPECT_TRUE(client->cookLocation("/root/a").doesLocationExist());
    EXPECT_EQ(2, countFrom(*client, "/root"));
    EXPECT_THAT(logs.take(), ElementsAre(HasSubstr("cycle: the op is an input of itself")));
}

TEST(Fault, IsNoRoundThatLeadsThroughAnInputThatAnOpDoesNotRead) {
    HeardLogs logs;
    const auto client = OpTree()
                            .op("s", "scene", scene("/root/a"))
                            .op("pass", "", GroupAttribute(), {"s", "last"})
                            .op("off", "merge", Args().set("enabled", 0), {"pass", "last", "gone"})
                            .op("last", "merge", GroupAttribute(), {"off"})
                            .open();
    EXPECT_EQ("", errorAt(*client, "/root"));
    EXPECT_EQ(2, countFrom(*client, "/root"));
    EXPECT_THAT(logs.take(), IsEmpty());
}

TEST(Fault, IsNoMissingInputButAWarningAndAnEmptyScene) {
    HeardLogs logs;
    const auto client = OpTree()
                            .op("s", "scene", scene("/root/a"))
                            .op("m", "merge", GroupAttribute(), {"gone", "s"})
                            .open();
    EXPECT_EQ(2, countFrom(*client, "/root"));
    EXPECT_EQ(2, countFrom(*client, "/root"));
    EXPECT_THAT(logs.take(),
                ElementsAre(AllOf(HasSubstr("SylvarRuntime warn"),
                                  HasSubstr("merge (op 2 of 2): input 1 is not there"))));
}

TEST(Fault, IsNoMissingInputAndToldOnceForAllRuntimes) {
    HeardLogs logs;
    const OpTree tree = OpTree()
                            .op("s", "scene", scene("/root/once"))
                            .op("m", "merge", GroupAttribute(), {"gone", "s", "lost"});
    const auto first = tree.open();
    EXPECT_THAT(logs.take(),
                ElementsAre(HasSubstr("input 1 is not there"), HasSubstr("input 3 is not there")));
    const auto second = tree.open();
    EXPECT_EQ(2, countFrom(*second, "/root"));
    EXPECT_THAT(logs.take(), IsEmpty());
}

TEST(Fault, IsRemembered) {
    HeardLogs logs;
    const auto client =
        OpTree()
            .op("g", "generate", Args().set("shape", "wide").set("breadth", 4).set("failEvery", 2))
            .open();
    EXPECT_THAT(errorAt(*client, "/root/c1"),
                AllOf(HasSubstr("generate (op 1 of 1), /root/c1: fails as it is told to")));
    EXPECT_EQ("", errorAt(*client, "/root/c0"));
    EXPECT_EQ(0, cooksDuring(*client, "generate", [&] { errorAt(*client, "/root/c1"); }));
}

TEST(Fault, IsMadeAnewWhenItWasDropped) {
    HeardLogs logs;
    const auto client =
        OpTree()
            .op("g", "generate", Args().set("shape", "wide").set("breadth", 4).set("failEvery", 2))
            .open();
    const std::string before = errorAt(*client, "/root/c1");
    client->getRuntime()->evict("/root/c1");
    EXPECT_EQ(1, cooksDuring(*client, "generate", [&] {
                  EXPECT_EQ(before, errorAt(*client, "/root/c1"));
              }));
    EXPECT_EQ(1U, logs.take().size());
}
