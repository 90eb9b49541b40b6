// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/Analytics.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <cstdio>
#include <fstream>
#include <limits>
#include <string>
#include <vector>

namespace {

using Sylvar3::OvRenderServices::v1::AnalyticsManager;
using Sylvar3::OvRenderServices::v1::makeJsonLinesAnalytics;
using testing::MatchesRegex;

std::string freshFile() {
    const auto* const test = testing::UnitTest::GetInstance()->current_test_info();
    std::string filename = OV_TEST_OUTPUT_DIR "/" + std::string(test->name()) + ".jsonl";
    std::remove(filename.c_str());
    return filename;
}

std::vector<std::string> linesOf(const std::string& filename) {
    std::ifstream file(filename);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) {
        lines.push_back(line);
    }
    return lines;
}

TEST(Analytics, AreOffUntilTheHostTurnsThemOn) {
    EXPECT_EQ(nullptr, AnalyticsManager::g_instance);
}

TEST(Analytics, WriteALineForEachRecordAtOnce) {
    const std::string filename = freshFile();
    const auto made = makeJsonLinesAnalytics(filename);
    ASSERT_TRUE(made.manager) << made.error;
    rapidjson::Document value;
    made.manager->addRecord("runtime.opTree", value);
    ASSERT_EQ(1u, linesOf(filename).size());
    value.Parse(R"({"a": [1, 2.5, true, "x\ny"]})");
    made.manager->addRecord("a \"key\"", value);
    const auto lines = linesOf(filename);
    ASSERT_EQ(2u, lines.size());
    EXPECT_THAT(lines[0],
                MatchesRegex(R"(\{"time":[0-9.]+,"key":"runtime.opTree","value":null\})"));
    rapidjson::Document second;
    second.Parse(lines[1]);
    ASSERT_FALSE(second.HasParseError());
    EXPECT_STREQ("a \"key\"", second["key"].GetString());
    EXPECT_TRUE(value == second["value"]);
}

TEST(Analytics, AddToAFileThatIsThere) {
    const std::string filename = freshFile();
    std::ofstream(filename) << "before\n";
    makeJsonLinesAnalytics(filename).manager->addRecord("k", rapidjson::Value(1));
    EXPECT_EQ(2u, linesOf(filename).size());
}

TEST(Analytics, LoseARecordThatJsonCannotTell) {
    const std::string filename = freshFile();
    const auto made = makeJsonLinesAnalytics(filename);
    made.manager->addRecord("k", rapidjson::Value(std::numeric_limits<double>::infinity()));
    made.manager->addRecord("k", rapidjson::Value(1));
    EXPECT_EQ(1u, linesOf(filename).size());
}

TEST(Analytics, NameAFileThatCannotBeWritten) {
    const auto made = makeJsonLinesAnalytics("/no/such/records.jsonl");
    EXPECT_FALSE(made.manager);
    EXPECT_EQ("Cannot write \"/no/such/records.jsonl\": No such file or directory.", made.error);
}

}  // namespace
