// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/PluginManager.h>
#include <SylvarPlatform/suites/OpType.h>

#include "support/HeardLogs.h"
#include "support/OpTree.h"
#include "support/RuntimeWalk.h"
#include "support/Threads.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <deque>
#include <string>
#include <vector>

using namespace ovtest;
using Sylvar3::internal::OvAttribute::StringAttribute;
using Sylvar3::internal::OvPluginManager::PluginManager;
using testing::EndsWith;

namespace {

constexpr int kCount = 80;

const void* getSuite() {
    static constexpr OvOpSchema schema = {"Does nothing.", nullptr, 0, 0, nullptr, 0};
    static int instance = 0;
    static constexpr OvOpType table = {
        OV_OP_TYPE_API_VERSION,
        0,
        &schema,
        [](OvAttributeStruct*, std::int32_t, char*, std::size_t) -> void* { return &instance; },
        nullptr,
        [](void*, OvOpCookStruct*) {},
        nullptr,
        nullptr};
    return &table;
}

const std::deque<std::string>& registeredNames() {
    static std::deque<std::string> names;
    static std::deque<OvPluginStruct> plugins;
    for (int i = static_cast<int>(names.size()); i < kCount; ++i) {
        names.push_back("limit.op" + std::to_string(i));
        plugins.push_back({sizeof(OvPluginStruct),
                           OV_PLUGIN_VERSION,
                           names.back().c_str(),
                           OV_OP_TYPE_API_NAME,
                           OV_OP_TYPE_API_VERSION,
                           0,
                           nullptr,
                           getSuite,
                           nullptr});
        EXPECT_EQ("", PluginManager::registerPlugin(&plugins.back()));
    }
    return names;
}

std::string errorOf(const std::string& type) {
    return OpTree()
        .op("a", type)
        .open()
        ->cookLocation("/root")
        .getAttrs()
        .getChild<StringAttribute>("errorMessage")
        .getValue("");
}

}  // namespace

TEST(OpTypeLimit, IsAnErrorOfTheOpsBeyondItAndOfNothingElse) {
    HeardLogs logs;
    const std::deque<std::string>& names = registeredNames();
    std::vector<std::string> errors(kCount);
    onThreads(8, [&](int thread) {
        for (int i = 0; i < kCount; ++i) {
            const int place = (i + 10 * thread) % kCount;
            const std::string error = errorOf(names[static_cast<std::size_t>(place)]);
            if (thread == 0) {
                errors[static_cast<std::size_t>(place)] = error;
            }
        }
    });
    int refused = 0;
    for (const std::string& error : errors) {
        refused += error.empty() ? 0 : 1;
        EXPECT_THAT(error, testing::AnyOf("", EndsWith("there are 64 op types already")));
    }
    EXPECT_LT(kCount - 64, refused);
    EXPECT_GT(kCount, refused);
    EXPECT_EQ("", errorOf("generate"));
}

TEST(OpTypeLimit, DoesNotHoldForTheRegistry) {
    const std::deque<std::string>& names = registeredNames();
    const std::string registry =
        query(*OpTree().op("g", "generate").open()->getRuntime(), "getAnonymousOpRegistry");
    for (const std::string& name : names) {
        EXPECT_NE(std::string::npos, registry.find("{\"type\":\"" + name + "\"")) << name;
    }
}
