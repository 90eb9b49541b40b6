// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/Configuration.h>
#include <SylvarPlatform/Logging.h>

#include "plugins/PluginManager/Plugins.h"
#include "plugins/PluginManager/fixtures/ServicesSuite.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace plugins;
using OvLoggingHost::LogLevel;
using OvLoggingHost::LogMessage;
using OvLoggingHost::OvLoggerGlue;
using OvLoggingHost::setLevel;
using OvLoggingHost::setLogSink;
using Sylvar3::OvConfiguration::v1::Config;
using testing::ElementsAre;

const OvHostTable& host() {
    return *OvGetHostTable();
}

std::string lineOf(const LogMessage& m) {
    return std::string(m.logger) + "|" + std::to_string(static_cast<int>(m.level)) + "|" +
           m.message + "|" + m.file + "|" + std::to_string(m.line);
}

/// Hears all messages; after it, levels, the sink and the search are as they were at the start.
class HostServices : public testing::Test {
protected:
    HostServices() {
        setLogSink([this](const LogMessage& m) { heard.push_back(lineOf(m)); });
    }
    ~HostServices() override {
        PluginManager::setSearchDirectories({});
        setLogSink({});
        setLevel("", LogLevel::Info);
        Config()->unset("KEY");
    }

    const ServicesSuite* plugin() {
        PluginManager::setSearchDirectories({folder("services")});
        return static_cast<const ServicesSuite*>(suiteOf("Services", "Services", 1));
    }

    std::vector<std::string> heard;
};

TEST_F(HostServices, BringAPluginsMessagesToTheSinkWithLevelAndPlace) {
    const ServicesSuite* const services = plugin();
    ASSERT_NE(nullptr, services);
    services->tell(OV_LOG_DEBUG, "not wanted");
    const std::string line = std::to_string(services->tell(OV_LOG_WARN, "a warning"));
    services->tell(OV_LOG_ERROR, "an error");
    EXPECT_THAT(heard,
                ElementsAre("ServicesPlugin|2|a warning|ServicesPlugin.c|" + line,
                            "ServicesPlugin|3|an error|ServicesPlugin.c|" + line));
}

TEST_F(HostServices, GiveAPluginTheSettingsOfTheProcess) {
    const ServicesSuite* const services = plugin();
    ASSERT_NE(nullptr, services);
    char buffer[16] = "as was";
    EXPECT_EQ(-1, services->setting("KEY", buffer, sizeof buffer));
    EXPECT_STREQ("as was", buffer);
    Config()->set("KEY", "value");
    EXPECT_EQ(5, services->setting("KEY", buffer, sizeof buffer));
    EXPECT_STREQ("value", buffer);
}

TEST_F(HostServices, TellWhetherALevelIsEnabledForALoggerOfThatName) {
    setLevel("HostServicesQuiet", LogLevel::Error);
    setLevel("HostServicesLoud", LogLevel::Debug);
    struct Row {
        const char* logger;
        std::int32_t level;
        std::int32_t enabled;
    };
    for (const Row& row : {Row{"HostServicesQuiet", OV_LOG_WARN, 0},
                           {"HostServicesQuiet", OV_LOG_ERROR, 1},
                           {"HostServicesLoud", OV_LOG_DEBUG, 1},
                           {"HostServicesUnknown", OV_LOG_DEBUG, 0},
                           {"HostServicesUnknown", OV_LOG_INFO, 1},
                           {"", OV_LOG_ERROR, 1},
                           {nullptr, OV_LOG_ERROR, 0}}) {
        EXPECT_EQ(row.enabled, host().isLogEnabled(row.logger, row.level))
            << (row.logger ? row.logger : "null") << ' ' << row.level;
    }
}

TEST_F(HostServices, FollowTheLevelsAsTheyChange) {
    struct Row {
        const char* name;
        LogLevel level;
        std::int32_t debug;
        std::int32_t error;
    };
    for (const Row& row : {Row{"HostServicesChanging", LogLevel::Debug, 1, 1},
                           {"", LogLevel::Off, 0, 0},
                           {"HostServicesChanging", LogLevel::Error, 0, 1},
                           {"", LogLevel::Debug, 1, 1}}) {
        setLevel(row.name, row.level);
        EXPECT_EQ(row.debug, host().isLogEnabled("HostServicesChanging", OV_LOG_DEBUG));
        EXPECT_EQ(row.error, host().isLogEnabled("HostServicesChanging", OV_LOG_ERROR));
    }
}

TEST_F(HostServices, TakeAnUnknownLevelAsTheNearest) {
    host().log("HostServicesLevels", 99, "grave", nullptr, 1);
    host().log("HostServicesLevels", -1, "slight", nullptr, 2);
    setLevel("HostServicesLevels", LogLevel::Debug);
    host().log("HostServicesLevels", -1, "heard", nullptr, 3);
    EXPECT_THAT(heard,
                ElementsAre("HostServicesLevels|3|grave||1", "HostServicesLevels|0|heard||3"));
}

TEST_F(HostServices, LogNothingWithoutLoggerOrMessage) {
    host().log(nullptr, OV_LOG_ERROR, "message", "file", 1);
    host().log("HostServicesNull", OV_LOG_ERROR, nullptr, "file", 1);
    EXPECT_THAT(heard, ElementsAre());
}

TEST_F(HostServices, LogToTheLoggerThatTheHostKnowsByThatName) {
    const OvLoggerGlue own("HostServicesShared");
    const char* seen = nullptr;
    setLogSink([&](const LogMessage& m) { seen = m.logger; });
    host().log(std::string("HostServicesShared").c_str(), OV_LOG_ERROR, "message", "file", 1);
    EXPECT_EQ(own.name(), seen);
}

TEST_F(HostServices, CutAValueToTheBufferAndTellItsWholeLength) {
    Config()->set("KEY", "value");
    struct Row {
        std::size_t size;
        const char* written;
    };
    for (const Row& row : {Row{8, "value"}, {6, "value"}, {5, "valu"}, {2, "v"}, {1, ""}}) {
        std::string buffer(8, '#');
        EXPECT_EQ(5, host().getConfiguration("KEY", buffer.data(), row.size));
        EXPECT_STREQ(row.written, buffer.c_str());
        EXPECT_EQ(std::string::npos, buffer.find_first_not_of('#', row.size)) << row.size;
    }
}

TEST_F(HostServices, TellTheLengthOfAValueWithoutABuffer) {
    Config()->set("KEY", "value");
    char untouched = '#';
    EXPECT_EQ(5, host().getConfiguration("KEY", &untouched, 0));
    EXPECT_EQ('#', untouched);
    EXPECT_EQ(5, host().getConfiguration("KEY", nullptr, 0));
    EXPECT_EQ(5, host().getConfiguration("KEY", nullptr, 8));
}

TEST_F(HostServices, TellAnEmptyValueFromAKeyThatIsNotSet) {
    char buffer[4] = "#";
    EXPECT_EQ(-1, host().getConfiguration("KEY", nullptr, 0));
    EXPECT_EQ(-1, host().getConfiguration(nullptr, buffer, sizeof buffer));
    EXPECT_STREQ("#", buffer);
    Config()->set("KEY", "");
    EXPECT_EQ(0, host().getConfiguration("KEY", buffer, sizeof buffer));
    EXPECT_STREQ("", buffer);
}

}  // namespace
