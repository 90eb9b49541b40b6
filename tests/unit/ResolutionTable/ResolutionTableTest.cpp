// SPDX-License-Identifier: Apache-2.0
#include <ResolutionTableOv/ResolutionTable.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <stdexcept>

namespace {

using namespace ORM_OV::ResolutionTable::v4;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

std::shared_ptr<ResolutionTable> tableOf(const char* name) {
    return std::make_shared<ResolutionTable>(std::vector<Resolution>{{1, 2, 1.0, name, "", ""}});
}

TEST(ResolutionTable, KnowsTheUsualFormats) {
    const auto table = GetResolutionTable(nullptr);
    ASSERT_TRUE(table);
    struct Row {
        const char* name;
        int width;
        int height;
    };
    for (const Row& row : {Row{"square_512", 512, 512},
                           {"hd_1080", 1920, 1080},
                           {"uhd_4k", 3840, 2160},
                           {"pal", 720, 576},
                           {"cinema_2k_scope", 2048, 858},
                           {"full_aperture_4k", 4096, 3112}}) {
        const Resolution resolution = table->getResolution(row.name);
        EXPECT_EQ(row.name, resolution.name);
        EXPECT_EQ(row.width, resolution.width) << row.name;
        EXPECT_EQ(row.height, resolution.height) << row.name;
        EXPECT_NE("", resolution.group) << row.name;
        EXPECT_NE("", resolution.label) << row.name;
    }
    EXPECT_EQ(2.0, table->getResolution("anamorphic_2k").pixelAspectRatio);
    EXPECT_EQ(1.0, table->getResolution("hd_720").pixelAspectRatio);
}

TEST(ResolutionTable, ThrowsOverANameThatItDoesNotKnow) {
    const auto table = GetResolutionTable(nullptr);
    for (const std::string name : {"", "SQUARE_512", "square_512 ", "512x512"}) {
        try {
            table->getResolution(name);
            ADD_FAILURE() << name;
        } catch (const std::out_of_range& error) {
            EXPECT_EQ("The resolution table knows no \"" + name + "\".", error.what());
        }
    }
}

TEST(GetResolutionTable, GivesTheStandardTableByNameAndByDefault) {
    EXPECT_EQ(GetResolutionTable(nullptr), GetResolutionTable("standard"));
    EXPECT_EQ(nullptr, GetResolutionTable(""));
    EXPECT_EQ(nullptr, GetResolutionTable("no such table"));
}

TEST(GetResolutionTable, GivesAnotherDefaultWhenOneWasSet) {
    const auto mine = tableOf("mine");
    SetResolutionTable(nullptr, mine);
    EXPECT_EQ(mine, GetResolutionTable(nullptr));
    SetResolutionTable(nullptr, nullptr);
    EXPECT_EQ(nullptr, GetResolutionTable(nullptr));
    SetResolutionTable(nullptr, GetResolutionTable("standard"));
    EXPECT_NE(nullptr, GetResolutionTable(nullptr));
}

TEST(GetResolutionTable, GivesTablesByTheNamesTheyWereSetUnder) {
    const auto mine = tableOf("mine");
    SetResolutionTable("show", mine);
    EXPECT_EQ(mine, GetResolutionTable("show"));
    SetResolutionTable("show", nullptr);
    EXPECT_EQ(nullptr, GetResolutionTable("show"));
}

TEST(ResolutionTable, TakesTheFirstOfTwoOfOneName) {
    const ResolutionTable table({{1, 2, 1.0, "a", "", ""}, {3, 4, 1.0, "a", "", ""}});
    EXPECT_EQ(1, table.getResolution("a").width);
}

TEST(ReadResolutionTable, KeepsTheOrderOfTheText) {
    const auto read = readResolutionTable(R"({"resolutions": [
        {"name": "b", "width": 3, "height": 2, "pixelAspectRatio": 1.5, "group": "g", "label": "l"},
        // the others have their defaults
        {"name": "a", "width": 1, "height": 1000000}]})");
    ASSERT_EQ("", read.error);
    EXPECT_THAT(read.table->getNames(), ElementsAre("b", "a"));
    const Resolution b = read.table->getResolution("b");
    EXPECT_EQ(1.5, b.pixelAspectRatio);
    EXPECT_EQ("g", b.group);
    EXPECT_EQ("l", b.label);
    EXPECT_EQ(1.0, read.table->getResolution("a").pixelAspectRatio);
    EXPECT_EQ(1000000, read.table->getResolution("a").height);
}

TEST(ReadResolutionTable, TellsWhereATextIsWrong) {
    struct Row {
        const char* entries;
        const char* place;
    };
    for (const Row& row : {Row{"7", "line 2, column 1: "},
                           {"{}", "line 2, column 1: "},
                           {R"({"name": "a", "width": 1})", "line 2, column 1: "},
                           {R"({"name": "", "width": 1, "height": 1})", "line 2, column 1: "},
                           {R"({"name": 12, "width": 1, "height": 1})", "line 2, column 10: "},
                           {R"({"name": "a", "width": 0})", "line 2, column 24: "},
                           {R"({"name": "a", "width": -5})", "line 2, column 24: "},
                           {R"({"name": "a", "width": 1.5})", "line 2, column 24: "},
                           {R"({"name": "a", "width": 1e3})", "line 2, column 24: "},
                           {R"({"name": "a", "width": "1"})", "line 2, column 24: "},
                           {R"({"name": "a", "width": 1000001})", "line 2, column 24: "},
                           {R"({"name": "a", "width": 99999999999})", "line 2, column 24: "},
                           {R"({"pixelAspectRatio": 0})", "line 2, column 22: "},
                           {R"({"pixelAspectRatio": 1e99})", "line 2, column 22: "},
                           {R"({"wide": true})", "line 2, column 10: "},
                           {R"({"name": "a", "width": })", "line 2, column 24: "},
                           {"{\"name\": \"a\", \"width\": 1, \"height\": 1},\n"
                            "{\"name\": \"a\", \"width\": 1, \"height\": 1}",
                            "line 3, column 1: "}}) {
        const auto read =
            readResolutionTable("{\"resolutions\": [\n" + std::string(row.entries) + "]}");
        EXPECT_FALSE(read.table) << row.entries;
        EXPECT_THAT(read.error, StartsWith(row.place)) << row.entries;
        EXPECT_THAT(read.error, EndsWith(".")) << row.entries;
    }
}

TEST(ReadResolutionTable, RefusesWhatIsNoTable) {
    for (const char* text :
         {"", "[]", "{}", R"({"resolutions": {}})", R"({"resolutions": [], "more": 1})"}) {
        EXPECT_THAT(readResolutionTable(text).error, StartsWith("line 1, column 1: ")) << text;
    }
    EXPECT_EQ("", readResolutionTable(R"({"resolutions": []})").error);
}

TEST(ReadResolutionTableFile, NamesTheFileInItsErrors) {
    const std::string filename = OV_TEST_OUTPUT_DIR "/table.json";
    std::ofstream(filename) << R"({"resolutions": [{"name": "a", "width": 4, "height": 3}]})";
    EXPECT_EQ(4, readResolutionTableFile(filename).table->getResolution("a").width);
    std::ofstream(filename) << "{";
    EXPECT_THAT(readResolutionTableFile(filename).error,
                StartsWith("\"" + filename + "\": line 1, column 2: "));
    EXPECT_THAT(readResolutionTableFile("/no/such/table.json").error,
                HasSubstr("/no/such/table.json"));
}

}  // namespace
