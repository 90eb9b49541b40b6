// SPDX-License-Identifier: Apache-2.0
#include <ResolutionTableOv/ResolutionTable.h>
#include <SylvarPlatform/Analytics.h>
#include <SylvarPlatform/AssetPlugin.h>
#include <SylvarPlatform/Configuration.h>
#include <SylvarPlatform/Logging.h>

#include "support/Threads.h"

#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <atomic>
#include <cstdio>
#include <fstream>
#include <memory>
#include <string>

namespace {

using ovtest::onThreads;
using Sylvar3::OvConfiguration::v1::Config;
using Sylvar3::OvConfiguration::v1::Configuration;

constexpr int kThreads = 8;
constexpr int kRounds = 200;

TEST(HostServiceThreads, ReadAndSetOneConfiguration) {
    onThreads(kThreads, [](int i) {
        Configuration* const settings = Config();
        const std::string own = "own" + std::to_string(i);
        for (int round = 0; round < kRounds; ++round) {
            settings->set(own, std::to_string(round));
            settings->set("shared", "one");
            EXPECT_EQ(std::to_string(round), settings->get(own));
            EXPECT_EQ("one", settings->get("shared"));
        }
    });
}

TEST(HostServiceThreads, MakeOneLoggerOfOneName) {
    std::atomic<int> heard{0};
    OvLoggingHost::setLogSink([&](const OvLoggingHost::LogMessage&) { ++heard; });
    onThreads(kThreads, [](int) {
        for (int round = 0; round < kRounds; ++round) {
            const OvLoggingHost::OvLoggerGlue logger(("name" + std::to_string(round)).c_str());
            logger.error("x", "", 0);
        }
    });
    OvLoggingHost::setLogSink({});
    EXPECT_EQ(kThreads * kRounds, heard);
}

TEST(HostServiceThreads, LogWhileLevelsAndTheSinkChange) {
    using namespace OvLoggingHost;
    const OvLoggerGlue logger("changing");
    const auto heard = std::make_shared<std::atomic<int>>(0);
    const auto listen = [heard] { setLogSink([heard](const LogMessage&) { ++*heard; }); };
    listen();
    onThreads(kThreads, [&](int i) {
        for (int round = 0; round < kRounds; ++round) {
            if (i != 0) {
                logger.error("x", "", 0);
                continue;
            }
            listen();
            setLevel("changing", round % 2 == 0 ? LogLevel::Error : LogLevel::Debug);
            setLevel("", LogLevel::Warn);
        }
    });
    setLogSink({});
    setLevel("", LogLevel::Info);
    EXPECT_EQ((kThreads - 1) * kRounds, *heard);
}

TEST(HostServiceThreads, WriteRecordsThatStayWhole) {
    const std::string filename = OV_TEST_OUTPUT_DIR "/records.jsonl";
    std::remove(filename.c_str());
    const auto made = Sylvar3::OvRenderServices::v1::makeJsonLinesAnalytics(filename);
    ASSERT_TRUE(made.manager) << made.error;
    onThreads(kThreads, [&](int i) {
        for (int round = 0; round < kRounds; ++round) {
            made.manager->addRecord("key", rapidjson::Value(i));
        }
    });
    std::ifstream file(filename);
    int lines = 0;
    for (std::string line; std::getline(file, line); ++lines) {
        EXPECT_FALSE(rapidjson::Document().Parse(line.c_str()).HasParseError()) << line;
    }
    EXPECT_EQ(kThreads * kRounds, lines);
}

TEST(HostServiceThreads, ResolveAssetsWhileTheSearchPathChanges) {
    using Sylvar3::OvAssetHost::v1::OvAssetPluginManager;
    onThreads(kThreads, [](int i) {
        for (int round = 0; round < kRounds; ++round) {
            if (i == 0) {
                Config()->set("SYLVAR_ASSET_PATH", round % 2 == 0 ? "/no/such" : "/nor/this");
            } else {
                auto* const plugin = OvAssetPluginManager::getDefaultAssetPlugin();
                EXPECT_EQ("a.0007", plugin->resolveAsset("a.####", 7, true));
            }
        }
    });
    Config()->unset("SYLVAR_ASSET_PATH");
}

TEST(HostServiceThreads, LookUpResolutionsWhileTheDefaultTableChanges) {
    using namespace ORM_OV::ResolutionTable::v4;
    onThreads(kThreads, [](int i) {
        for (int round = 0; round < kRounds; ++round) {
            if (i == 0) {
                SetResolutionTable(nullptr,
                                   round % 2 == 0 ? nullptr : GetResolutionTable("standard"));
            } else if (const auto table = GetResolutionTable(nullptr)) {
                EXPECT_EQ(512, table->getResolution("square_512").width);
            }
        }
    });
    EXPECT_TRUE(GetResolutionTable(nullptr));
}

}  // namespace
