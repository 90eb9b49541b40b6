// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/Configuration.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <string>

namespace {

using Sylvar3::OvConfiguration::v1::Config;
using Sylvar3::OvConfiguration::v1::Configuration;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

std::string fileOf(const std::string& text) {
    const auto* const test = testing::UnitTest::GetInstance()->current_test_info();
    const std::string filename = OV_TEST_OUTPUT_DIR "/" + std::string(test->name()) + ".json";
    std::ofstream(filename, std::ios::binary) << text;
    return filename;
}

TEST(Configuration, OfTheProcessIsAlwaysTheSame) {
    ASSERT_NE(nullptr, Config());
    EXPECT_EQ(Config(), Config());
}

TEST(Configuration, GivesBackWhatWasSet) {
    Configuration settings;
    EXPECT_FALSE(settings.has("A"));
    EXPECT_EQ("", settings.get("A"));
    settings.set("A", "1");
    settings.set("A", "2");
    EXPECT_TRUE(settings.has("A"));
    EXPECT_EQ("2", settings.get("A"));
    settings.unset("A");
    settings.unset("A");
    EXPECT_FALSE(settings.has("A"));
}

TEST(Configuration, KnowsAKeyThatIsSetToNothing) {
    Configuration settings;
    EXPECT_EQ(std::nullopt, settings.find("A"));
    settings.set("A", "");
    EXPECT_EQ("", settings.find("A"));
    EXPECT_TRUE(settings.has("A"));
    EXPECT_EQ("", settings.get("A"));
}

TEST(Configuration, ReadsValuesOfAFileAsText) {
    Configuration settings;
    settings.set("kept", "yes");
    settings.set("size", "1");
    EXPECT_EQ("", settings.loadFile(fileOf(R"({
        // a comment
        "VARLIN_TILE_FILENAME": "@DEFAULT@", "size": 64, "factor": 1.50e1, "on": true, "off": false,
        "tiles": {"order": {"name": "spiral"}}, "a.b": "dotted"})")));
    EXPECT_EQ("@DEFAULT@", settings.get("VARLIN_TILE_FILENAME"));
    EXPECT_EQ("64", settings.get("size"));
    EXPECT_EQ("1.50e1", settings.get("factor"));
    EXPECT_EQ("true", settings.get("on"));
    EXPECT_EQ("false", settings.get("off"));
    EXPECT_EQ("spiral", settings.get("tiles.order.name"));
    EXPECT_EQ("dotted", settings.get("a.b"));
    EXPECT_EQ("yes", settings.get("kept"));
    EXPECT_FALSE(settings.has("tiles"));
}

TEST(Configuration, TellsWhereAFileIsWrongAndSetsNothingOfIt) {
    struct Row {
        const char* text;
        const char* place;
    };
    for (const Row& row : {Row{"", "line 1, column 1: "},
                           {"[]", "line 1, column 1: "},
                           {"7", "line 1, column 1: "},
                           {"{\"a\": 1,\n \"b\": }", "line 2, column 7: "},
                           {"{\"a\": 1,\n \"b\": null}", "line 2, column 7: "},
                           {"{\"a\": 1,\n \"b\": [1]}", "line 2, column 7: "},
                           {"{\"a\": 1,\n \"é\": 1, \"\": \"x\\\"\"}", "line 2, column 14: "},
                           {"{\"a\": 1, \"a\": 2}", "line 1, column 10: "},
                           {"{\"a\": 1,\n\"b\": {\"c\": 1}, \"b.c\": 22}", "line 2, column 23: "},
                           {"{\"a\": 1, \"b\": \"\xFF\"}", "line 1, column 16: "},
                           {"{\"a\": 1, \"b\": \"\\ud800\"}", "line 1, column 16: "},
                           {"{\"a\": 1, \"b\": \"x\\ude00\"}", "line 1, column 15: "},
                           {"{\"a\": 1, \"b\\udc00\": 2}", "line 1, column 10: "},
                           {"{\"a\": 1} x", "line 1, column 10: "}}) {
        Configuration settings;
        const std::string filename = fileOf(row.text);
        const std::string error = settings.loadFile(filename);
        EXPECT_THAT(error, StartsWith("\"" + filename + "\": " + row.place)) << row.text;
        EXPECT_THAT(error, EndsWith(".")) << row.text;
        EXPECT_FALSE(settings.has("a")) << row.text;
    }
}

TEST(Configuration, RefusesAFileThatGoesOnBehindAByteZero) {
    using namespace std::string_literals;
    for (const std::string& text :
         {"{\"a\": 1}\0"s, "{\"a\": 1}\0{\"a\": 2}"s, "{\"a\": 1}//\0"s}) {
        Configuration settings;
        EXPECT_THAT(settings.loadFile(fileOf(text)), HasSubstr("line 1, column "));
        EXPECT_FALSE(settings.has("a"));
    }
}

TEST(Configuration, RefusesAFileThatIsNestedTooDeep) {
    std::string text = "1";
    for (int level = 0; level < 64; ++level) {
        text = "{\"a\":" + text + "}";
    }
    EXPECT_EQ("", Configuration().loadFile(fileOf(text)));
    EXPECT_THAT(Configuration().loadFile(fileOf("{\"a\":" + text + "}")), HasSubstr("64 levels"));
    EXPECT_THAT(Configuration().loadFile(fileOf(std::string(200000, '['))),
                HasSubstr("line 1, column 65: "));
}

TEST(Configuration, NamesAFileThatIsNotThere) {
    EXPECT_EQ("Cannot open \"/no/such/file.json\": No such file or directory.",
              Configuration().loadFile("/no/such/file.json"));
    EXPECT_THAT(Configuration().loadFile("/"), StartsWith("Cannot read \"/\": "));
}

TEST(Configuration, TakesArgumentsOfACommandLine) {
    Configuration settings;
    EXPECT_EQ("", settings.setFromArgument("A=1"));
    EXPECT_EQ("", settings.setFromArgument("B="));
    EXPECT_EQ("", settings.setFromArgument("C=x=y z"));
    EXPECT_EQ("1", settings.get("A"));
    EXPECT_TRUE(settings.has("B"));
    EXPECT_EQ("x=y z", settings.get("C"));
}

TEST(Configuration, RefusesArgumentsWithoutANameOrWithoutAValue) {
    Configuration settings;
    for (const char* argument : {"", "A", "=1", "="}) {
        EXPECT_EQ("\"" + std::string(argument) + "\" is no setting; NAME=VALUE is expected.",
                  settings.setFromArgument(argument));
    }
}

}  // namespace
