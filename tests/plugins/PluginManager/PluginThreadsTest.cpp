// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/Configuration.h>
#include <SylvarPlatform/Logging.h>

#include "plugins/PluginManager/Plugins.h"
#include "support/Threads.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <vector>

namespace {

using namespace plugins;
using ovtest::Barrier;
using ovtest::onThreads;
using testing::Contains;
using testing::ElementsAre;

constexpr int kThreads = 8;

TEST(PluginThreads, AskForOneSuiteAndItIsMadeOnce) {
    static std::atomic<int> calls{0};
    static OvPluginStruct plugin = described("Shared", "Threads", []() -> const void* {
        ++calls;
        return "shared";
    });
    ASSERT_EQ("", PluginManager::registerPlugin(&plugin));
    std::vector<const void*> seen(kThreads);
    onThreads(kThreads, [&](int thread) {
        seen[static_cast<std::size_t>(thread)] = suiteOf("Shared", "Threads", 1);
    });
    EXPECT_EQ(1, calls);
    for (const void* one : seen) {
        EXPECT_STREQ("shared", static_cast<const char*>(one));
    }
}

TEST(PluginThreads, SearchAndAskAtATime) {
    onThreads(kThreads, [&](int thread) {
        for (int round = 0; round < 20; ++round) {
            if (thread % 4 == 0) {
                PluginManager::setSearchDirectories(
                    {folder("first"), folder("second"), folder("faulty")});
            } else {
                const std::vector<std::string> names = namesOf("Fixture", 1);
                ASSERT_TRUE(names.empty() || names.size() == 4U);
                for (const std::string& name : names) {
                    ASSERT_NE(nullptr, suiteOf(name, "Fixture", 1));
                }
                ASSERT_THAT(apiNames(), Contains("SylvarRuntime"));
                PluginManager::getRejectedPlugins();
            }
        }
    });
    EXPECT_THAT(namesOf("Fixture", 1), ElementsAre("Apple", "Zebra", "Aardvark", "Mango"));
    PluginManager::setSearchDirectories({});
}

TEST(PluginThreads, DoNotWaitForeverForTwoPluginsThatAskForEachOther) {
    static Barrier bothAreAsked(2);
    static std::atomic<int> nulls{0};
    static OvPluginStruct left = described("Left", "Threads", nullptr);
    static OvPluginStruct right = described("Right", "Threads", nullptr);
    left.getSuite = []() -> const void* {
        bothAreAsked.wait();
        nulls += PluginManager::getPluginSuite(&right) ? 0 : 1;
        return "left";
    };
    right.getSuite = []() -> const void* {
        bothAreAsked.wait();
        nulls += PluginManager::getPluginSuite(&left) ? 0 : 1;
        return "right";
    };
    ASSERT_EQ("", PluginManager::registerPlugin(&left));
    ASSERT_EQ("", PluginManager::registerPlugin(&right));
    onThreads(2, [&](int thread) { PluginManager::getPluginSuite(thread == 0 ? &left : &right); });
    EXPECT_EQ(1, nulls);
    EXPECT_STREQ("left", static_cast<const char*>(PluginManager::getPluginSuite(&left)));
    EXPECT_STREQ("right", static_cast<const char*>(PluginManager::getPluginSuite(&right)));
}

TEST(PluginThreads, RegisterSuitesWithTheHostAtATime) {
    static const int suites[kThreads] = {};
    onThreads(kThreads, [&](int thread) {
        const OvHostTable& host = *OvGetHostTable();
        const std::string own = "Threads" + std::to_string(thread);
        ASSERT_EQ(0, host.registerHostSuite(&suites[thread], own.c_str(), 1));
        host.registerHostSuite(&suites[thread], "Threads", 1);
        ASSERT_EQ(&suites[thread], host.findSuite(own.c_str(), 1));
        ASSERT_NE(nullptr, host.findSuite("Threads", 1));
    });
}

TEST(PluginThreads, LogAndReadSettingsWhileTheHostChangesBoth) {
    using namespace OvLoggingHost;
    using Sylvar3::OvConfiguration::v1::Config;
    constexpr int kRounds = 200;
    std::atomic<int> errors{0};
    setLogSink([&](const LogMessage& m) { errors += m.level == LogLevel::Error ? 1 : 0; });
    Config()->set("Threads", "a");
    onThreads(kThreads, [&](int thread) {
        const OvHostTable& host = *OvGetHostTable();
        const std::string own = "Threads" + std::to_string(thread % 3);
        for (int round = 0; round < kRounds; ++round) {
            if (thread == 0) {
                setLevel(round % 3 == 0 ? "" : own,
                         round % 2 == 0 ? LogLevel::Debug : LogLevel::Error);
                Config()->set("Threads", round % 2 == 0 ? "bb" : "a");
                continue;
            }
            char value[4] = "";
            const std::int64_t length = host.getConfiguration("Threads", value, sizeof value);
            ASSERT_EQ(length == 1 ? "a" : "bb", std::string(value));
            host.log(own.c_str(), OV_LOG_DEBUG, "may be heard", nullptr, 1);
            ASSERT_EQ(1, host.isLogEnabled(own.c_str(), OV_LOG_ERROR));
            host.log(own.c_str(), OV_LOG_ERROR, "is always heard", nullptr, 2);
        }
    });
    setLogSink({});
    setLevel("", LogLevel::Info);
    Config()->unset("Threads");
    EXPECT_EQ((kThreads - 1) * kRounds, errors);
}

}  // namespace
