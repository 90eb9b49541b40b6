// SPDX-License-Identifier: Apache-2.0
#include "plugins/AssimpImport/Importing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <thread>

using namespace importing;

namespace {

struct Listener {
    std::vector<float> told;
    std::size_t stopAfter = 1000000;
    std::thread::id thread;
};

int listen(void* context, float fraction) {
    auto& listener = *static_cast<Listener*>(context);
    listener.told.push_back(fraction);
    listener.thread = std::this_thread::get_id();
    return listener.told.size() < listener.stopAfter ? 1 : 0;
}

int fail(void* /*context*/, float /*fraction*/) {
    throw std::runtime_error("the listener failed");
}

}  // namespace

TEST(ImportProgress, RisesToOneOnTheImportingThread) {
    Listener listener;
    EXPECT_TRUE(importFile(dataFile("cube.obj"), defaultOptions(), listen, &listener).scene);
    ASSERT_FALSE(listener.told.empty());
    EXPECT_TRUE(std::is_sorted(listener.told.begin(), listener.told.end()));
    EXPECT_LE(0.0F, listener.told.front());
    EXPECT_EQ(1.0F, listener.told.back());
    EXPECT_EQ(std::this_thread::get_id(), listener.thread);
}

TEST(ImportProgress, StopsTheImportAtAnyTime) {
    Listener all;
    const std::string file = dataFile("cube.obj");
    importFile(file, defaultOptions(), listen, &all);
    for (std::size_t after = 1; after <= all.told.size(); ++after) {
        Listener listener;
        listener.stopAfter = after;
        const Import import = importFile(file, defaultOptions(), listen, &listener);
        EXPECT_FALSE(import.scene);
        EXPECT_EQ("Cannot import \"" + file + "\": the import was stopped.", import.message);
        EXPECT_EQ(after, listener.told.size());
    }
}

TEST(ImportProgress, SurvivesAListenerThatThrows) {
    const Import import = importFile(dataFile("cube.obj"), defaultOptions(), fail);
    EXPECT_FALSE(import.scene);
    EXPECT_THAT(import.message, testing::EndsWith(": the listener failed."));
}
