// SPDX-License-Identifier: Apache-2.0
#include <ResolutionTableOv/ResolutionTable.h>
#include <SylvarPlatform/Configuration.h>
#include <SylvarPlatform/Logging.h>

#include "support/Threads.h"

#include <gtest/gtest.h>

#include <atomic>
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
    const OvLoggingHost::OvLoggerGlue logger("changing");
    const auto heard = std::make_shared<std::atomic<int>>(0);
    onThreads(kThreads, [&](int i) {
        for (int round = 0; round < kRounds; ++round) {
            if (i == 0) {
                OvLoggingHost::setLogSink([heard](const auto&) { ++*heard; });
                OvLoggingHost::setLevel("changing", OvLoggingHost::LogLevel::Error);
                OvLoggingHost::setLevel("", OvLoggingHost::LogLevel::Warn);
            } else if (logger.infoEnabled() || logger.debugEnabled()) {
                logger.debug("never told before the sink is there", "", 0);
            }
        }
    });
    OvLoggingHost::setLogSink({});
    OvLoggingHost::setLevel("", OvLoggingHost::LogLevel::Info);
    EXPECT_EQ(0, *heard);
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
