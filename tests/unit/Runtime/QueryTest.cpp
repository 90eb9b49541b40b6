// SPDX-License-Identifier: Apache-2.0
#include "support/HeardLogs.h"
#include "support/OpTree.h"
#include "support/RuntimeCounts.h"
#include "support/RuntimeWalk.h"
#include "support/StaticScene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidjson/document.h>

using namespace ovtest;
using namespace Sylvar3::internal::OvAttribute;
using testing::HasSubstr;
using testing::Not;

namespace {

struct Answers {
    int count = 0;
    std::int32_t status = -1;
    std::string text;

    Answers(const SylvarRuntime& runtime, const std::string& name) {
        runtime.suite->queryRuntimeInfo(
            runtime.handle,
            name.data(),
            name.size(),
            this,
            [](std::int32_t code, const char* data, std::uint64_t length, void* context) {
                auto& self = *static_cast<Answers*>(context);
                ++self.count;
                self.status = code;
                self.text.assign(data, length);
            });
    }
};

rapidjson::Document ask(const SylvarRuntime::Client& client, const char* name) {
    rapidjson::Document json;
    json.Parse(query(*client.getRuntime(), name).c_str());
    EXPECT_FALSE(json.HasParseError());
    return json;
}

/// "type(kinds) <- inputs" of each op of an answer.
std::vector<std::string> opsOf(const rapidjson::Document& json) {
    std::vector<std::string> lines;
    for (const auto& op : json["ops"].GetArray()) {
        std::string line = op["type"].GetString();
        for (const auto& kind : op["arguments"].GetArray()) {
            line += std::string(" ") + kind.GetString();
        }
        for (const auto& input : op["inputs"].GetArray()) {
            line += " <- " + std::to_string(input.GetInt());
        }
        lines.push_back(line);
    }
    return lines;
}

}  // namespace

TEST(Query, IsAnsweredOnceWhateverItsName) {
    const auto runtime = Sylvar3::OvSylvarServicesHost::v1::Sylvar().createRuntime();
    for (const char* const name :
         {"getAnonymousOpTree", "getAnonymousOpRegistry", "getStatistics"}) {
        const Answers answers(*runtime, name);
        EXPECT_EQ(1, answers.count) << name;
        EXPECT_EQ(0, answers.status) << name;
        EXPECT_FALSE(rapidjson::Document().Parse(answers.text.c_str()).HasParseError()) << name;
    }
    for (const std::string& name :
         {std::string(), std::string("getanonymousoptree"), std::string("getStatistics\0", 14)}) {
        const Answers answers(*runtime, name);
        EXPECT_EQ(1, answers.count) << name;
        EXPECT_NE(0, answers.status) << name;
        EXPECT_EQ("", answers.text) << name;
    }
}

TEST(Query, ShowsTypesKindsAndLinksOfAnOpTree) {
    const auto client =
        OpTree()
            .op("g", "generate", Args().set("depth", 1).set("shape", "tree"))
            .op("h", "generate", Args().set("depth", 2))
            .op("m", "merge", GroupAttribute(), {"h", "g", "h"})
            .op("set",
                "setAttributes",
                Args().set("paths", "/root").set("values", GroupAttribute({}, false)),
                {"m"})
            .open();
    const auto lines = opsOf(ask(*client, "getAnonymousOpTree"));
    ASSERT_EQ(4U, lines.size());
    EXPECT_THAT((std::vector<std::string>{lines[0], lines[1]}),
                testing::UnorderedElementsAre("generate int string", "generate int"));
    const bool hIsFirst = lines[0] == "generate int";
    EXPECT_EQ(hIsFirst ? "merge <- 0 <- 1 <- 0" : "merge <- 1 <- 0 <- 1", lines[2]);
    EXPECT_EQ("setAttributes string group <- 2", lines[3]);
}

TEST(Query, ShowsNothingThatTheUserNamed) {
    HeardLogs logs;
    const GroupAttribute values({{"secretAttribute", StringAttribute("secretValue")}}, false);
    const auto client =
        OpTree()
            .op("secretOp", "scene", Args().set("tree", StaticScene().at("/root/secret").group()))
            .op("secretSet",
                "setAttributes",
                Args().set("paths", "/root/secret").set("values", values).set("note", "secret"),
                {"secretOp"})
            .op("secretLast", "secretType", Args().set("secretArgument", 1), {"secretSet"})
            .open();
    countFrom(*client, "/root");
    for (const char* const name :
         {"getAnonymousOpTree", "getAnonymousOpRegistry", "getStatistics"}) {
        EXPECT_THAT(query(*client->getRuntime(), name), Not(HasSubstr("secret"))) << name;
    }
    EXPECT_EQ(
        (std::vector<std::string>{"scene group", "setAttributes string group <- 0", " int <- 1"}),
        opsOf(ask(*client, "getAnonymousOpTree")));
}

TEST(Query, ShowsEachOpOnceForAllClientsOfTheRuntime) {
    const auto runtime = Sylvar3::OvSylvarServicesHost::v1::Sylvar().createRuntime();
    OpTree tree;
    tree.op("g", "generate");
    const auto one = OpTree(tree).open(runtime);
    const auto two = tree.op("m", "merge", GroupAttribute(), {"g"}).open(runtime);
    EXPECT_EQ((std::vector<std::string>{"generate", "merge <- 0"}),
              opsOf(ask(*one, "getAnonymousOpTree")));
}

TEST(Query, TellsTheArgumentsOfEveryOpType) {
    const auto json = ask(*OpTree().op("g", "generate").open(), "getAnonymousOpRegistry");
    std::vector<std::string> types;
    for (const auto& type : json["opTypes"].GetArray()) {
        types.emplace_back(type["type"].GetString());
        EXPECT_NE("", std::string(type["about"].GetString()));
        EXPECT_LE(type["fewestInputs"].GetInt64(), type["mostInputs"].GetInt64());
        for (const auto& argument : type["arguments"].GetArray()) {
            EXPECT_NE("", std::string(argument["name"].GetString())) << types.back();
            EXPECT_NE("", std::string(argument["kind"].GetString())) << types.back();
            EXPECT_NE("", std::string(argument["about"].GetString())) << types.back();
            EXPECT_TRUE(argument["default"].IsString()) << types.back();
        }
    }
    EXPECT_THAT(types,
                testing::IsSupersetOf({"generate", "load", "merge", "scene", "setAttributes"}));
}

TEST(Query, CountsTheCooksAndHitsOfAWalk) {
    const auto client =
        OpTree()
            .op("g", "generate", Args().set("depth", 1).set("breadth", 10).set("seed", 901))
            .open();
    const RuntimeCounts before(*client);
    countFrom(*client, "/root");
    const RuntimeCounts cold(*client);
    EXPECT_EQ(12, cold.cooks("generate") - before.cooks("generate"));
    EXPECT_EQ(12, cold.store("entries") - before.store("entries"));
    EXPECT_EQ(0, cold.hits("generate") - before.hits("generate"));
    EXPECT_LT(0, cold.store("bytes"));
    countFrom(*client, "/root");
    const RuntimeCounts warm(*client);
    EXPECT_EQ(cold.cooks("generate"), warm.cooks("generate"));
    EXPECT_EQ(11, warm.hits("generate") - cold.hits("generate"));
    client->getRuntime()->evict("/root/c1");
    EXPECT_EQ(1, RuntimeCounts(*client).evictions("generate") - warm.evictions("generate"));
}

TEST(Query, AddsUpTheTimeThatCooksTake) {
    const auto client =
        OpTree().op("g", "generate", Args().set("depth", 2).set("seed", 906)).open();
    const double before = RuntimeCounts(*client).seconds("generate");
    countFrom(*client, "/root");
    const double cold = RuntimeCounts(*client).seconds("generate");
    EXPECT_LT(before, cold);
    countFrom(*client, "/root");
    EXPECT_EQ(cold, RuntimeCounts(*client).seconds("generate")) << "nothing was cooked";
}

TEST(Query, KeepsTheCountsOfRuntimesThatEnded) {
    const auto witness = OpTree().op("g", "generate", Args().set("seed", 902)).open();
    EXPECT_EQ(
        2, cooksDuring(*witness, "generate", [] {
            OpTree().op("g", "generate", Args().set("seed", 903)).open()->cookLocation("/root");
        }));
}

TEST(Query, CountsBytesThatSomebodyHoldsByThemselves) {
    const auto witness = OpTree().op("g", "generate", Args().set("seed", 904)).open();
    const std::int64_t before = RuntimeCounts(*witness).store("pinnedBytes");
    SylvarRuntime::LocationData held =
        OpTree().op("g", "generate", Args().set("seed", 905)).open()->cookLocation("/root");
    EXPECT_LT(before, RuntimeCounts(*witness).store("pinnedBytes"));
    held = {};
    EXPECT_EQ(before, RuntimeCounts(*witness).store("pinnedBytes"));
}
