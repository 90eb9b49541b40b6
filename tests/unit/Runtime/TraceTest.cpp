// SPDX-License-Identifier: Apache-2.0
// Where values come from.
#include "Platform/Embedded/Runtime/AttributeEdit.h"
#include "support/HeardLogs.h"
#include "support/HookedOp.h"
#include "support/OpTree.h"
#include "support/OpTreeFile.h"
#include "support/RuntimeCounts.h"
#include "support/StaticScene.h"
#include "support/TraceLines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <string>
#include <vector>

using namespace ovtest;
using namespace Sylvar3::internal::OvAttribute;
using Runtime::AttributeEdit;
using Runtime::Cook;
using Runtime::Location;
using Runtime::LocationWriter;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

GroupAttribute sceneArguments(const StaticScene& scene) {
    return Args().set("tree", scene.group());
}

GroupAttribute lampScene() {
    return sceneArguments(StaticScene()
                              .set("/root/lamp", "type", "light")
                              .set("/root/lamp", "light.color", "red")
                              .set("/root/lamp", "light.exposure", 1));
}

GroupAttribute settings(const char* mode, const char* name, const Attribute& value) {
    return Args()
        .set("paths", "/root/lamp")
        .set("values", GroupBuilder().set(name, value).build())
        .set("mode", mode);
}

/// A lamp, and one op that sets an attribute of it.
std::shared_ptr<SylvarRuntime::Client> lampWith(const char* mode,
                                                const char* name,
                                                const Attribute& value) {
    return OpTree()
        .op("s", "scene", lampScene())
        .op("set", "setAttributes", settings(mode, name, value), {"s"})
        .open();
}

/// A location of input 0, wherever the cook is.
void writeCopyOf(const Location& location, LocationWriter& out) {
    out.setAttributes(static_cast<LocationWriter::GroupValue*>(out.keep(*location.attributes())));
}

const char* const kLamp = "/root/lamp";
const std::string kGivenByScene = "gives scene 1/2 /root/lamp";
const std::string kHandedOn = "setAttributes 2/2 /root/lamp";

}  // namespace

TEST(Trace, OfASceneItselfIsTheScene) {
    const auto client = OpTree().op("s", "scene", lampScene()).open();
    for (const char* const name : {"type", "light", "light.color", ""}) {
        EXPECT_THAT(traceOf(*client, kLamp, name), ElementsAre("gives scene 1/1 /root/lamp"));
    }
}

TEST(Trace, GoesThroughAMergeToTheInputThatHadTheValue) {
    const auto client =
        OpTree()
            .op("a", "scene", sceneArguments(StaticScene().set("/root/a", "of", 1)))
            .op("b", "scene", sceneArguments(StaticScene().set("/root/b", "of", 2)))
            .op("both", "scene", sceneArguments(StaticScene().set("/root/a", "of", 3)))
            .op("m", "merge", GroupAttribute(), {"a", "b", "both"})
            .open();
    EXPECT_THAT(traceOf(*client, "/root/b", "of"),
                ElementsAre("gives scene 2/4 /root/b", "merge 4/4 /root/b"));
    EXPECT_THAT(traceOf(*client, "/root/a", "of"),
                ElementsAre("gives scene 1/4 /root/a", "merge 4/4 /root/a"));
}

TEST(Trace, OfWhatWasMergedGoesToEachInput) {
    const auto client =
        OpTree()
            .op("a", "scene", sceneArguments(StaticScene().set("/root/a", "size.x", 1)))
            .op("b", "scene", sceneArguments(StaticScene().set("/root/a", "size.y", 2)))
            .op("m", "merge", Args().set("attributes", "deep"), {"a", "b"})
            .open();
    EXPECT_THAT(traceOf(*client, "/root/a", "size.x"),
                ElementsAre("gives scene 1/3 /root/a", "merge 3/3 /root/a"));
    EXPECT_THAT(traceOf(*client, "/root/a", "size.y"),
                ElementsAre("gives scene 2/3 /root/a", "merge 3/3 /root/a"));
    for (const char* const group : {"size", ""}) {
        EXPECT_THAT(traceOf(*client, "/root/a", group), ElementsAre("gives merge 3/3 /root/a"));
    }
}

TEST(Trace, TellsAValueThatWasReplacedFromOneThatWasNot) {
    const auto client =
        lampWith("replace", "light", GroupBuilder().set("color", IntAttribute(1)).build());
    for (const char* const name : {"light", "light.color", ""}) {
        EXPECT_THAT(traceOf(*client, kLamp, name), ElementsAre("gives " + kHandedOn)) << name;
    }
    EXPECT_THAT(traceOf(*client, kLamp, "type"), ElementsAre(kGivenByScene, kHandedOn));
    EXPECT_THAT(traceOf(*client, "/root", ""),
                ElementsAre("no attribute", "gives scene 1/2 /root", "setAttributes 2/2 /root"));
}

TEST(Trace, TellsAMergedGroupFromItsParts) {
    const auto client =
        lampWith("merge", "light", GroupBuilder().set("exposure", IntAttribute(2)).build());
    EXPECT_THAT(traceOf(*client, kLamp, "light.exposure"), ElementsAre("gives " + kHandedOn));
    EXPECT_THAT(traceOf(*client, kLamp, "light"), ElementsAre("gives " + kHandedOn));
    EXPECT_THAT(traceOf(*client, kLamp, "light.color"), ElementsAre(kGivenByScene, kHandedOn));
}

TEST(Trace, TellsWhetherAValueWasMissing) {
    EXPECT_THAT(traceOf(*lampWith("ifMissing", "type", StringAttribute("x")), kLamp, "type"),
                ElementsAre(kGivenByScene, kHandedOn));
    EXPECT_THAT(traceOf(*lampWith("ifMissing", "other", StringAttribute("x")), kLamp, "other"),
                ElementsAre("gives " + kHandedOn));
}

TEST(Trace, TellsAnEqualValueFromTheVerySame) {
    const auto client = lampWith("replace", "type", StringAttribute("light"));
    EXPECT_THAT(traceOf(*client, kLamp, "type"), ElementsAre("gives " + kHandedOn));
}

TEST(Trace, LeavesOpsOutThatAreTheirInput) {
    const auto client = OpTree()
                            .op("s", "scene", lampScene())
                            .op("none", "", GroupAttribute(), {"s"})
                            .op("off", "merge", Args().set("enabled", 0), {"none"})
                            .op("m", "merge", GroupAttribute(), {"off"})
                            .open();
    EXPECT_THAT(traceOf(*client, kLamp, "type"),
                ElementsAre("gives scene 1/4 /root/lamp", "merge 4/4 /root/lamp"));
}

TEST(Trace, OfAMissingAttributeTellsWhereTheLocationComesFrom) {
    const auto client = lampWith("replace", "size", IntAttribute(1));
    for (const char* const name : {"gone", "light.gone", "type.gone", ".", "light."}) {
        EXPECT_THAT(traceOf(*client, kLamp, name),
                    ElementsAre("no attribute", kGivenByScene, kHandedOn))
            << name;
    }
}

TEST(Trace, OfAMissingAttributeTellsWhichOpHidIt) {
    const auto client = OpTree()
                            .op("s", "scene", lampScene())
                            .op("set", "setAttributes", settings("replace", "type", {}), {"s"})
                            .op("m", "merge", GroupAttribute(), {"set"})
                            .open();
    EXPECT_THAT(traceOf(*client, kLamp, "type"),
                ElementsAre("dropped", "setAttributes 2/3 /root/lamp", "merge 3/3 /root/lamp"));
}

TEST(Trace, OfAMissingAttributeTellsWhichOpDeletedIt) {
    const auto client = OpTree()
                            .op("s", "scene", lampScene())
                            .op("delete",
                                "deleteAttributes",
                                Args().set("paths", kLamp).set("names", "light.color"),
                                {"s"})
                            .open();
    EXPECT_THAT(traceOf(*client, kLamp, "light.color"),
                ElementsAre("dropped", "deleteAttributes 2/2 /root/lamp"));
    EXPECT_THAT(traceOf(*client, kLamp, "light.exposure"),
                ElementsAre(kGivenByScene, "deleteAttributes 2/2 /root/lamp"));
}

TEST(Trace, OfAMissingAttributeTellsWhichMergeLeftItOut) {
    const auto client =
        OpTree()
            .op("a", "scene", sceneArguments(StaticScene().set("/root/a", "of", 1)))
            .op("b", "scene", sceneArguments(StaticScene().set("/root/a", "more", 2)))
            .op("m", "merge", GroupAttribute(), {"a", "b"})
            .open();
    EXPECT_THAT(traceOf(*client, "/root/a", "more"), ElementsAre("dropped", "merge 3/3 /root/a"));
}

TEST(Trace, OfALocationThatIsNotThereIsEmpty) {
    const auto client = lampWith("replace", "size", IntAttribute(1));
    for (const char* const path : {"/root/gone", "/other", "", "/", "root", "/root/lamp/"}) {
        EXPECT_THAT(traceOf(*client, path, "type"), ElementsAre("no location")) << path;
    }
    EXPECT_THAT(traceOf(*OpTree().open(), "/root", "type"), ElementsAre("no location"));
}

TEST(Trace, GoesOnIntoALoadedOpTree) {
    TestFile file("trace_load.optree");
    file.writeOpTree(OpTree()
                         .op("the\n\"lamp\"\xff", "scene", lampScene())
                         .op("brighter",
                             "setAttributes",
                             settings("replace", "light", StringAttribute("on")),
                             {"the\n\"lamp\"\xff"})
                         .group());
    const auto load = [&](const char* at) {
        return OpTree().op("l", "load", Args().set("file", file.path()).set("at", at)).open();
    };
    EXPECT_THAT(traceOf(*load("/root/in"), "/root/in/lamp", "type"),
                ElementsAre("gives scene 1/2 /root/lamp \"the\n\"lamp\"\xff\" in " + file.path(),
                            "setAttributes 2/2 /root/lamp \"brighter\" in " + file.path(),
                            "load 1/1 /root/in/lamp"));
    EXPECT_THAT(traceOf(*load("/root"), "/root/lamp", "light"),
                ElementsAre("gives setAttributes 2/2 /root/lamp \"brighter\" in " + file.path(),
                            "load 1/1 /root/lamp"));
}

TEST(Trace, OfAStoredSceneEndsAtTheOpThatLoadsIt) {
    TestFile file("trace_stored.optree");
    file.writeScene(StaticScene().set("/root/lamp", "type", "light").group());
    for (const std::string at : {"/root", "/root/in"}) {
        const auto client =
            OpTree().op("l", "load", Args().set("file", file.path()).set("at", at)).open();
        EXPECT_THAT(traceOf(*client, at + "/lamp", "type"),
                    ElementsAre("gives load 1/1 " + at + "/lamp"));
    }
}

TEST(Trace, GoesToTheOtherPathThatAnOpReads) {
    const auto client = OpTree()
                            .op("s", "scene", lampScene())
                            .op("copy",
                                "test.hook",
                                HookedOpType::hook([](Cook& cook, LocationWriter& out) {
                                    writeSmallScene(cook, out);
                                    if (cook.path() == "/root/a") {
                                        writeCopyOf(cook.input(0, "/root/lamp"), out);
                                    } else if (cook.path() == "/root/b") {
                                        out.pass(cook.input(0, "/root/lamp"));
                                    }
                                }),
                                {"s"})
                            .open();
    EXPECT_THAT(traceOf(*client, "/root/a", "light.color"),
                ElementsAre("gives scene 1/2 /root/lamp", "test.hook 2/2 /root/a"));
    EXPECT_THAT(traceOf(*client, "/root/b", ""),
                ElementsAre("gives scene 1/2 /root/lamp", "test.hook 2/2 /root/b"));
    EXPECT_THAT(traceOf(*client, "/root/a", "gone"),
                ElementsAre("no attribute", "gives test.hook 2/2 /root/a"));
    EXPECT_THAT(traceOf(*client, "/root/b", "gone"),
                ElementsAre("no attribute", "gives scene 1/2 /root/lamp", "test.hook 2/2 /root/b"));
}

TEST(Trace, RatherGoesToTheSamePathThanToAnother) {
    const IntAttribute shared(7);
    const auto client =
        OpTree()
            .op("s",
                "scene",
                sceneArguments(
                    StaticScene().set("/root/a", "of", shared).set("/root/b", "of", shared)))
            .op("second",
                "test.hook",
                HookedOpType::hook([](Cook& cook, LocationWriter& out) {
                    const Location elsewhere = cook.input(0, "/root/b");
                    if (elsewhere.exists()) {
                        out.pass(cook.input(0));
                    }
                }),
                {"s"})
            .open();
    EXPECT_THAT(traceOf(*client, "/root/a", "of"),
                ElementsAre("gives scene 1/2 /root/a", "test.hook 2/2 /root/a"));
}

TEST(Trace, OfAnErrorIsTheOpThatFails) {
    const HeardLogs logs;
    const auto client = OpTree()
                            .op("s", "scene", lampScene())
                            .op("bad", "no such type", Args().set("at", kLamp), {"s"})
                            .op("m", "merge", GroupAttribute(), {"bad"})
                            .open();
    EXPECT_THAT(traceOf(*client, kLamp, "errorMessage"),
                ElementsAre("gives no such type 2/3 /root/lamp", "merge 3/3 /root/lamp"));
}

TEST(Trace, GoesThroughTenThousandOps) {
    constexpr std::size_t kLength = 10000;
    OpTree tree;
    tree.op("s", "scene", lampScene());
    std::string last = "s";
    for (std::size_t i = 0; i < kLength; ++i) {
        const std::string name = "op" + std::to_string(i);
        tree.op(name,
                "setAttributes",
                settings("replace", "count", IntAttribute(static_cast<int>(i))),
                {last});
        last = name;
    }
    const auto client = tree.open();
    client->cookLocation(kLamp);
    std::vector<std::string> lines;
    EXPECT_EQ(
        static_cast<std::int64_t>(kLength),
        cooksDuring(*client, "setAttributes", [&] { lines = traceOf(*client, kLamp, "type"); }))
        << "each op once more";
    ASSERT_EQ(kLength + 1, lines.size());
    EXPECT_EQ("gives scene 1/10001 /root/lamp", lines.front());
    EXPECT_EQ("setAttributes 10001/10001 /root/lamp", lines.back());
    EXPECT_THAT(traceOf(*client, kLamp, "count"),
                ElementsAre("gives setAttributes 10001/10001 /root/lamp"));
    client->getRuntime()->finalize();
    EXPECT_EQ(lines, traceOf(*client, kLamp, "type"));
}

TEST(Trace, KeepsNothingOfWhatItCooksOnceMore) {
    const auto client = lampWith("replace", "size", IntAttribute(3));
    traceOf(*client, kLamp, "size");
    const RuntimeCounts before(*client);
    for (int i = 0; i < 2000; ++i) {
        traceOf(*client, kLamp, "type");
    }
    const RuntimeCounts after(*client);
    EXPECT_EQ(before.store("entries"), after.store("entries"));
    // Two locations of some 300 bytes each time; all of them would take a megabyte.
    EXPECT_GT(200000, after.store("bytes") - before.store("bytes"));
}

TEST(Trace, TellsWhenTheSceneHasChangedMeanwhile) {
    const auto cooks = std::make_shared<int>(0);
    const auto client =
        OpTree()
            .op("fickle", "test.hook", HookedOpType::hook([cooks](Cook& cook, LocationWriter& out) {
                    writeSmallScene(cook, out);
                    if (cook.path() == "/root/a" && ++*cooks == 1) {
                        AttributeEdit attributes;
                        attributes.set("at first", out.addInt(1));
                        out.setAttributes(attributes.write(out));
                    }
                }))
            .op("m", "merge", GroupAttribute(), {"fickle"})
            .open();
    EXPECT_THAT(traceOf(*client, "/root/a", "at first"),
                ElementsAre(HasSubstr("error: the scene has changed")));
}

TEST(Trace, IsAnsweredOnceWhenMemoryRunsOut) {
    const auto isOut = std::make_shared<bool>(false);
    const auto client =
        OpTree()
            .op("full", "test.hook", HookedOpType::hook([isOut](Cook& cook, LocationWriter& out) {
                    if (*isOut) {
                        throw std::bad_alloc();
                    }
                    writeSmallScene(cook, out);
                }))
            .open();
    client->cookLocation("/root/a");
    *isOut = true;
    int answers = 0;
    const std::string path = "/root/a";
    const SylvarRuntime& runtime = *client->getRuntime();
    runtime.suite->traceAttribute(
        client->handle(),
        path.data(),
        static_cast<std::int64_t>(path.size()),
        nullptr,
        0,
        &answers,
        [](std::int32_t status, const char* data, std::uint64_t length, void* context) {
            EXPECT_NE(0, status);
            EXPECT_EQ(std::bad_alloc().what(), std::string(data, length));
            ++*static_cast<int*>(context);
        });
    EXPECT_EQ(1, answers);
    *isOut = false;
    EXPECT_EQ("no attribute", traceOf(*client, path, "").front());
}
