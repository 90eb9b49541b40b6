// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/Configuration.h>

#include "support/Threads.h"

#include <gtest/gtest.h>

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

}  // namespace
