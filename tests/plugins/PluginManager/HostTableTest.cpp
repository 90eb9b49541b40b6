// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/PluginManager.h>
#include <SylvarPlatform/suites/AttributeSuite.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <string>

namespace {

using Sylvar3::internal::OvPluginManager::HostServices;
using Sylvar3::internal::OvPluginManager::setHostServices;

const OvHostTable& host() {
    return *OvGetHostTable();
}

TEST(HostTable, TellsItsSizeAndVersionAndKeepsReservedPlacesNull) {
    EXPECT_EQ(sizeof(OvHostTable), host().size);
    EXPECT_EQ(1U, host().version);
    EXPECT_EQ(nullptr, host().reserved6);
    EXPECT_EQ(nullptr, host().reserved7);
    EXPECT_EQ(nullptr, host().reserved8);
    EXPECT_EQ(nullptr, host().reserved9);
}

TEST(HostTable, HasRegisterHostSuiteInTheEleventhPlace) {
    static_assert(offsetof(OvHostTable, registerHostSuite) == 10 * sizeof(void*));
    using Register = int (*)(const void*, const char*, unsigned int);
    Register eleventh = nullptr;
    std::memcpy(
        &eleventh, reinterpret_cast<const char*>(&host()) + 10 * sizeof(void*), sizeof eleventh);
    EXPECT_EQ(host().registerHostSuite, eleventh);
}

TEST(HostTable, FindsTheAttributeSuite) {
    EXPECT_EQ(OvGetAttributeSuite(), host().findSuite("Attribute", 1));
    EXPECT_EQ(nullptr, host().findSuite("Attribute", 2));
    EXPECT_EQ(nullptr, host().findSuite("attribute", 1));
    EXPECT_EQ(nullptr, host().findSuite(nullptr, 1));
}

TEST(HostTable, FindsWhatWasRegisteredByNameAndVersion) {
    static const int second = 2;
    static const int third = 3;
    EXPECT_EQ(0, host().registerHostSuite(&third, "Registered", 3));
    EXPECT_EQ(0, host().registerHostSuite(&second, "Registered", 2));
    EXPECT_EQ(&third, host().findSuite("Registered", 3));
    EXPECT_EQ(&second, host().findSuite("Registered", 2));
    EXPECT_EQ(nullptr, host().findSuite("Registered", 1));
}

TEST(HostTable, KeepsTheFirstSuiteOfANameAndVersion) {
    static const int first = 1;
    static const int other = 2;
    EXPECT_EQ(OV_HOST_SUITE_REGISTERED, host().registerHostSuite(&first, "Kept", 1));
    EXPECT_EQ(OV_HOST_SUITE_REGISTERED, host().registerHostSuite(&first, "Kept", 1));
    EXPECT_EQ(OV_HOST_SUITE_TAKEN, host().registerHostSuite(&other, "Kept", 1));
    EXPECT_EQ(OV_HOST_SUITE_TAKEN, host().registerHostSuite(&other, "Attribute", 1));
    EXPECT_EQ(&first, host().findSuite("Kept", 1));
}

TEST(HostTable, RefusesWhatIsNoSuite) {
    static const int suite = 1;
    EXPECT_EQ(OV_HOST_SUITE_INVALID, host().registerHostSuite(nullptr, "Nothing", 1));
    EXPECT_EQ(OV_HOST_SUITE_INVALID, host().registerHostSuite(&suite, nullptr, 1));
    EXPECT_EQ(OV_HOST_SUITE_INVALID, host().registerHostSuite(&suite, "", 1));
}

TEST(HostTable, LogsNothingAndKnowsNoKeyUntilServicesAreSet) {
    char buffer[8] = "as was";
    EXPECT_EQ(0, host().isLogEnabled("Logger", OV_LOG_ERROR));
    host().log("Logger", OV_LOG_ERROR, "message", "file", 1);
    EXPECT_EQ(-1, host().getConfiguration("KEY", buffer, sizeof buffer));
    EXPECT_STREQ("as was", buffer);
}

TEST(HostTable, HandsLoggingAndConfigurationToTheServicesThatAreSet) {
    static std::string told;
    HostServices services;
    services.isLogEnabled = [](const char*, std::int32_t level) {
        return level >= OV_LOG_WARN ? 1 : 0;
    };
    services.log =
        [](const char* logger, std::int32_t, const char* message, const char*, std::int32_t line) {
            told += std::string(logger) + " " + message + " " + std::to_string(line) + "\n";
        };
    services.getConfiguration = [](const char*, char*, std::size_t) { return std::int64_t{7}; };
    setHostServices(services);
    EXPECT_EQ(1, host().isLogEnabled("Logger", OV_LOG_ERROR));
    EXPECT_EQ(0, host().isLogEnabled("Logger", OV_LOG_INFO));
    EXPECT_EQ(0, host().isLogEnabled(nullptr, OV_LOG_ERROR));
    host().log("Logger", OV_LOG_WARN, "message", nullptr, 7);
    host().log(nullptr, OV_LOG_WARN, "message", nullptr, 8);
    host().log("Logger", OV_LOG_WARN, nullptr, nullptr, 9);
    EXPECT_EQ("Logger message 7\n", told);
    EXPECT_EQ(7, host().getConfiguration("KEY", nullptr, 0));
    EXPECT_EQ(-1, host().getConfiguration(nullptr, nullptr, 0));
    setHostServices({});
    EXPECT_EQ(0, host().isLogEnabled("Logger", OV_LOG_ERROR));
}

}  // namespace
