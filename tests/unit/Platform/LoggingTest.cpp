// SPDX-License-Identifier: Apache-2.0
#include "Platform/Support/Log.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

namespace {

using namespace OvLoggingHost;
using testing::EndsWith;
using testing::HasSubstr;
using testing::MatchesRegex;

static_assert(sizeof(OvLoggerGlue) == sizeof(const char*));
static_assert(std::is_trivially_copyable_v<OvLoggerGlue>);

struct Heard {
    std::string logger;
    LogLevel level;
    std::string message;
    std::string file;
    int line;
};

/// Hears all messages; after it, levels and the sink are as they were at the start.
class Logging : public testing::Test {
protected:
    Logging() {
        setLogSink([this](const LogMessage& m) {
            heard.push_back({m.logger, m.level, m.message, m.file, m.line});
        });
    }
    ~Logging() override {
        setLogSink({});
        setLevel("", LogLevel::Info);
    }

    std::vector<Heard> heard;
};

TEST_F(Logging, TellsNameLevelTextAndPlace) {
    const OvLoggerGlue logger("Told");
    setLevel("Told", LogLevel::Debug);
    logger.debug("a", "src/A.cpp", 1);
    logger.info("b", "src/B.cpp", 2);
    logger.warn("c", "src/C.cpp", 3);
    logger.error("d", "src/D.cpp", 4);
    ASSERT_EQ(4u, heard.size());
    EXPECT_EQ("Told", heard[0].logger);
    EXPECT_EQ(LogLevel::Debug, heard[0].level);
    EXPECT_EQ(LogLevel::Info, heard[1].level);
    EXPECT_EQ(LogLevel::Warn, heard[2].level);
    EXPECT_EQ(LogLevel::Error, heard[3].level);
    EXPECT_EQ("d", heard[3].message);
    EXPECT_EQ("src/D.cpp", heard[3].file);
    EXPECT_EQ(4, heard[3].line);
}

TEST_F(Logging, TellsInformationAndWorseWhenNothingElseIsSet) {
    const OvLoggerGlue logger("Unset");
    EXPECT_TRUE(logger.errorEnabled());
    EXPECT_TRUE(logger.warnEnabled());
    EXPECT_TRUE(logger.infoEnabled());
    EXPECT_FALSE(logger.debugEnabled());
}

TEST_F(Logging, KeepsALevelForEachName) {
    setLevel("Quiet", LogLevel::Error);  // before there is such a logger
    const OvLoggerGlue quiet("Quiet");
    const OvLoggerGlue other("Other");
    EXPECT_TRUE(quiet.errorEnabled());
    EXPECT_FALSE(quiet.warnEnabled());
    EXPECT_TRUE(other.warnEnabled());
    setLevel("Quiet", LogLevel::Off);
    EXPECT_FALSE(quiet.errorEnabled());
    quiet.error("nobody hears this", "", 0);
    EXPECT_TRUE(heard.empty());
}

TEST_F(Logging, SetsAllLevelsAtOnceThoseOfLaterLoggersToo) {
    const OvLoggerGlue before("Before");
    setLevel("Before", LogLevel::Off);
    setLevel("", LogLevel::Debug);
    const OvLoggerGlue after("After");
    EXPECT_TRUE(before.debugEnabled());
    EXPECT_TRUE(after.debugEnabled());
}

TEST_F(Logging, KnowsOneLoggerByAnyCopyOfItsName) {
    std::string name = "Same";
    const OvLoggerGlue first(name.c_str());
    name = "Gone";
    const OvLoggerGlue second("Same");
    EXPECT_EQ(first.name(), second.name());
    EXPECT_STREQ("Same", first.name());
}

TEST_F(Logging, TakesNullStringsAsEmptyOnes) {
    const OvLoggerGlue logger(nullptr);
    EXPECT_STREQ("", logger.name());
    logger.error(nullptr, nullptr, 0);
    ASSERT_EQ(1u, heard.size());
    EXPECT_EQ("", heard[0].message);
    EXPECT_EQ("", heard[0].file);
}

TEST_F(Logging, DropsWhatASinkThrows) {
    setLogSink([](const LogMessage&) { throw std::runtime_error("full"); });
    EXPECT_NO_THROW(OvLoggerGlue("Thrown").error("x", "", 0));
}

TEST_F(Logging, MayBeDoneByTheSink) {
    const OvLoggerGlue logger("Nested");
    int depth = 0;
    setLogSink([&](const LogMessage&) {
        if (++depth == 1) {
            logger.error("again", "", 0);
        }
    });
    logger.error("once", "", 0);
    EXPECT_EQ(2, depth);
}

TEST_F(Logging, GoesToTheStandardErrorStreamWithoutASink) {
    setLogSink({});
    testing::internal::CaptureStderr();
    OvLoggerGlue("ClientFactory").warn("{} %s plain", "src/Filters/A.cpp", 12);
    const std::string line = testing::internal::GetCapturedStderr();
    EXPECT_THAT(line, EndsWith("warning ClientFactory: {} %s plain (src/Filters/A.cpp:12)\n"));
    EXPECT_THAT(line, MatchesRegex("....-..-.. ..:..:..\\....  *warning(.|\n)*"));
}

TEST_F(Logging, OnTheErrorStreamIsOneLineThatDrivesNoTerminal) {
    setLogSink({});
    struct Row {
        const char* text;
        const char* shown;
    };
    for (const Row& row : {Row{"a\nb\r\tc", "a\\x0Ab\\x0D\\x09c"},
                           {"\x1B[2J\x7F", "\\x1B[2J\\x7F"},
                           {"\xC2\x9B\xFF", "\\xC2\\x9B\\xFF"},
                           {"\\x0A", "\\x5Cx0A"},
                           {"C:\\new \xC3\xA9 \xE2\x82\xAC", "C:\\new \xC3\xA9 \xE2\x82\xAC"}}) {
        testing::internal::CaptureStderr();
        OvLoggerGlue(row.text).warn(row.text, row.text, 3);
        const std::string shown = row.shown;
        EXPECT_THAT(testing::internal::GetCapturedStderr(),
                    EndsWith("warning " + shown + ": " + shown + " (" + shown + ":3)\n"));
    }
}

TEST_F(Logging, GivesASinkTheTextsAsTheyAre) {
    OvLoggerGlue("Raw\n").error("\x1B[2J", "a\tb", 1);
    ASSERT_EQ(1u, heard.size());
    EXPECT_EQ("Raw\n", heard[0].logger);
    EXPECT_EQ("\x1B[2J", heard[0].message);
    EXPECT_EQ("a\tb", heard[0].file);
}

TEST_F(Logging, ByTheMacroMakesTheTextOnlyWhenItIsWanted) {
    const OvLoggerGlue logger("Macro");
    int made = 0;
    const auto text = [&] {
        ++made;
        return 1.5;
    };
    OV_LOG(logger, debug, "never " << text());
    EXPECT_EQ(0, made);
    OV_LOG(logger, warn, "once " << text() << ' ' << 1234567);
    const int line = __LINE__ - 1;
    EXPECT_EQ(1, made);
    ASSERT_EQ(1u, heard.size());
    EXPECT_EQ("once 1.5 1234567", heard[0].message);
    EXPECT_EQ("tests/unit/Platform/LoggingTest.cpp", heard[0].file);
    EXPECT_EQ(line, heard[0].line);
}

}  // namespace
