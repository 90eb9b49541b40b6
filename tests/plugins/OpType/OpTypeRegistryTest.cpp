// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/suites/OpType.h>

#include "plugins/OpType/TestOp.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <cstdint>
#include <deque>
#include <new>
#include <stdexcept>

using namespace ovtest;
using Sylvar3::internal::OvPluginManager::PluginManager;
using testing::AllOf;
using testing::Contains;
using testing::HasSubstr;
using testing::Not;

namespace {

int instance = 0;

void* createNothing(OvAttributeStruct*, std::int32_t, char*, std::size_t) {
    return &instance;
}

void cookNothing(void*, OvOpCookStruct*) {}

constexpr OvOpArgument kArgument = {"size", "number", "1", "How large."};
constexpr OvOpSchema kSchema = {"Does nothing.", "At all.", 0, 1, &kArgument, 1};
constexpr OvOpType kTable =
    {OV_OP_TYPE_API_VERSION, 0, &kSchema, createNothing, nullptr, cookNothing, nullptr, nullptr};

/// What the plug-in that is asked next gives.
const void* given = nullptr;
int timesAsked = 0;

/// Adds an op type of the process, which nobody has asked for yet.
void add(const char* name) {
    static std::deque<OvPluginStruct> plugins;
    plugins.push_back({sizeof(OvPluginStruct),
                       OV_PLUGIN_VERSION,
                       name,
                       OV_OP_TYPE_API_NAME,
                       OV_OP_TYPE_API_VERSION,
                       0,
                       nullptr,
                       []() -> const void* {
                           ++timesAsked;
                           return given;
                       },
                       nullptr});
    EXPECT_EQ("", PluginManager::registerPlugin(&plugins.back()));
}

class OpTypeRegistry : public TestOp {
protected:
    static std::string faultOf(const char* name, const GroupAttribute& arguments = {}) {
        const std::string text = errorAt(OpTree().op("a", name, arguments).open());
        const std::size_t reason = text.find("/root: ");
        return reason == std::string::npos ? text : text.substr(reason + 7);
    }

    static std::vector<std::string> registeredTypes() {
        rapidjson::Document registry;
        registry.Parse(
            query(*OpTree().op("g", "generate").open()->getRuntime(), "getAnonymousOpRegistry")
                .c_str());
        std::vector<std::string> names;
        for (const auto& type : registry["opTypes"].GetArray()) {
            names.emplace_back(type["type"].GetString());
        }
        return names;
    }
};

}  // namespace

TEST_F(OpTypeRegistry, AsksThePluginOfThatNameAloneAndWhenItIsNamed) {
    given = &kTable;
    timesAsked = 0;
    add("registry.first");
    add("registry.second");
    EXPECT_EQ(0, timesAsked);
    const auto client = OpTree().op("a", "registry.first").op("b", "merge", {}, {"a"}).open();
    EXPECT_EQ("", errorAt(client));
    EXPECT_EQ(1, timesAsked);
    EXPECT_EQ("", faultOf("registry.first"));
    EXPECT_EQ(1, timesAsked);
}

TEST_F(OpTypeRegistry, TellsTheNameThatWasProbablyMeant) {
    EXPECT_EQ("there is no op type \"test.opp\"; did you mean \"test.op\"?", faultOf("test.opp"));
    EXPECT_EQ("there is no op type \"generat\"; did you mean \"generate\"?", faultOf("generat"));
    EXPECT_EQ("there is no op type \"quite another\"", faultOf("quite another"));
}

TEST_F(OpTypeRegistry, ListsTheTypesOfPluginsWithTheirArguments) {
    given = &kTable;
    add("registry.listed");
    const std::string registry =
        query(*OpTree().op("g", "generate").open()->getRuntime(), "getAnonymousOpRegistry");
    EXPECT_THAT(
        registry,
        HasSubstr(R"({"type":"registry.listed","about":"Does nothing.","remarks":"At all.",)"
                  R"("fewestInputs":0,"mostInputs":1,"arguments":[{"name":"size",)"
                  R"("kind":"number","isNeeded":false,"default":"1","about":"How large."}]})"));
    EXPECT_THAT(registeredTypes(), AllOf(Contains("test.op").Times(1), Contains("merge").Times(1)));
}

TEST_F(OpTypeRegistry, PrefersThePlatformsOwnTypes) {
    given = &kTable;
    timesAsked = 0;
    add("merge");
    EXPECT_EQ("has 0 inputs, and needs at least 1", faultOf("merge"));
    EXPECT_EQ(0, timesAsked);
    EXPECT_THAT(registeredTypes(), Contains("merge").Times(1));
}

TEST_F(OpTypeRegistry, KnowsATypeFromTheMomentThatItIsThere) {
    const auto before = OpTree().op("a", "registry.late").open();
    EXPECT_THAT(errorAt(before), HasSubstr("there is no op type \"registry.late\""));
    given = &kTable;
    add("registry.late");
    EXPECT_EQ("", faultOf("registry.late"));
    EXPECT_THAT(errorAt(before), HasSubstr("there is no op type"));
}

TEST_F(OpTypeRegistry, RefusesHostileTablesWithAReason) {
    static OvOpArgument many[2] = {kArgument, kArgument};
    static const std::string endless(100000, 'a');
    static OvOpSchema schema;
    static OvOpType table;
    struct Row {
        void (*damage)();
        const char* reason;
    };
    const Row rows[] = {
        {[] { table.version = 2; }, "its table has version 2 instead of 1"},
        {[] { table.schema = nullptr; }, "it has no schema"},
        {[] { table.create = nullptr; }, "it has no create"},
        {[] { table.cook = nullptr; }, "it has no cook"},
        {[] { schema.fewestInputs = -1; }, "it claims to take -1 to 1 inputs"},
        {[] { schema.mostInputs = -5; }, "it claims to take 0 to -5 inputs"},
        {[] { schema.argumentCount = -1; }, "it claims to have -1 arguments"},
        {[] { schema.argumentCount = INT32_MAX; }, "it claims to have 2147483647 arguments"},
        {[] { schema.arguments = nullptr; }, "it has no arguments where it has some"},
        {[] { schema.about = nullptr; }, "it does not tell what it is about"},
        {[] { schema.remarks = endless.c_str(); }, "it has a too long text"},
        {[] { many[1].name = nullptr; }, "its argument 1 has no name"},
        {[] { many[1].name = ""; }, "its argument 1 has no name"},
        {[] { many[1].name = "note"; }, "its argument 1 has the name \"note\", which every op has"},
        {[] { many[1].name = "size"; }, "its argument 1 has the name of another one, \"size\""},
        {[] { many[1].kind = nullptr; }, "its argument 1 \"other\" is of no known kind"},
        {[] { many[1].kind = "matrix"; }, "its argument 1 \"other\" is of no known kind"},
        {[] { many[1].about = nullptr; },
         "its argument 1 \"other\" does not tell what it is about"},
        {[] { many[1].defaultText = endless.c_str(); }, "its argument 1 has a too long text"},
    };
    static std::deque<std::string> names;
    for (const Row& row : rows) {
        table = kTable;
        schema = kSchema;
        many[1] = {"other", "int", "", "Another one."};
        table.schema = &schema;
        schema.arguments = many;
        schema.argumentCount = 2;
        row.damage();
        given = &table;
        const std::string& name =
            names.emplace_back("registry.hostile" + std::to_string(names.size()));
        add(name.c_str());
        EXPECT_EQ("the op type \"" + name + "\" cannot be used: " + row.reason,
                  faultOf(name.c_str()));
        EXPECT_THAT(logs.take(), Contains(HasSubstr(row.reason)));
        EXPECT_THAT(registeredTypes(), Not(Contains(name)));
    }
}

TEST_F(OpTypeRegistry, TellsWhyAPluginHasNoTable) {
    given = nullptr;
    add("registry.null");
    EXPECT_EQ(
        "the op type \"registry.null\" cannot be used: its plug-in has no function table: "
        "getSuite returns null",
        faultOf("registry.null"));
}

TEST_F(OpTypeRegistry, TurnsWhatAPluginThrowsIntoErrors) {
    static OvOpType table = kTable;
    table.cook = [](void*, OvOpCookStruct*) { throw std::runtime_error("no cook today"); };
    given = &table;
    add("registry.throwing");
    EXPECT_EQ("cook throws: no cook today", faultOf("registry.throwing"));

    static OvOpType refusing = kTable;
    refusing.create = [](OvAttributeStruct*, std::int32_t, char*, std::size_t) -> void* {
        throw 1;
    };
    refusing.getIdentity = [](OvAttributeStruct*, char*, std::size_t) -> std::int64_t {
        throw std::runtime_error("no identity");
    };
    given = &refusing;
    add("registry.refusing");
    EXPECT_EQ("create throws", faultOf("registry.refusing"));
}

TEST_F(OpTypeRegistry, RemembersNothingWhenMemoryRunsOut) {
    static OvOpType table = kTable;
    static bool isFull = true;
    table.cook = [](void*, OvOpCookStruct*) {
        if (isFull) {
            throw std::bad_alloc();
        }
    };
    given = &table;
    add("registry.full");
    const auto client = OpTree().op("a", "registry.full").open();
    EXPECT_THROW(client->cookLocation("/root"), std::bad_alloc);
    isFull = false;
    EXPECT_EQ("", errorAt(client));
}

TEST_F(OpTypeRegistry, SurvivesAnIdentityOfAnAbsurdLength) {
    static OvOpType table = kTable;
    table.getIdentity = [](OvAttributeStruct*, char* buffer, std::size_t size) -> std::int64_t {
        buffer[size - 1] = 'x';
        return INT64_MAX;
    };
    given = &table;
    add("registry.absurd");
    EXPECT_EQ("", faultOf("registry.absurd"));
}
