// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/PluginManager.h>
#include <SylvarPlatform/SylvarServices.h>

#include "support/OpTree.h"

#include <gtest/gtest.h>

using namespace ovtest;
using Sylvar3::internal::OvPluginManager::PluginManager;
using Sylvar3::OvSylvarServicesHost::v1::GetRuntimeInstance;
using Sylvar3::OvSylvarServicesHost::v1::RegisterRuntimeInstance;
using Sylvar3::OvSylvarServicesHost::v1::Sylvar;

namespace {

std::vector<std::string> runtimePlugins() {
    std::vector<std::string> names;
    PluginManager::getPluginNames(OV_RUNTIME_API_NAME, names, OV_RUNTIME_API_VERSION);
    return names;
}

const OvRuntimeSuite& embeddedSuite() {
    const auto* const suite = PluginManager::getPluginSuite(
        PluginManager::getPlugin("EmbeddedRuntime", OV_RUNTIME_API_NAME, OV_RUNTIME_API_VERSION));
    return *static_cast<const OvRuntimeSuite*>(suite);
}

bool givesNoRuntime = false;
OvRuntimeSuite ownSuite = {};

OvPluginStruct pluginNamed(const char* name, const void* (*getSuite)()) {
    return {sizeof(OvPluginStruct),
            OV_PLUGIN_VERSION,
            name,
            OV_RUNTIME_API_NAME,
            OV_RUNTIME_API_VERSION,
            0,
            nullptr,
            getSuite,
            nullptr};
}

/// Adds, once in the process, a plug-in without a suite and behind it one with the embedded
/// runtime's entries, of which `createRuntime` can be told to give none.
void addPlugins() {
    static OvPluginStruct silent = pluginNamed("A", []() -> const void* { return nullptr; });
    static OvPluginStruct own = pluginNamed("B", []() -> const void* { return &ownSuite; });
    ownSuite = embeddedSuite();
    ownSuite.createRuntime = [] {
        return givesNoRuntime ? nullptr : embeddedSuite().createRuntime();
    };
    PluginManager::registerPlugin(&silent);
    PluginManager::registerPlugin(&own);
    givesNoRuntime = false;
}

}  // namespace

// The first test, since plug-ins stay.
TEST(RuntimeService, GivesTheEmbeddedRuntimeWhereThereIsNoOther) {
    const auto runtime = Sylvar().createRuntime();
    ASSERT_TRUE(runtime);
    EXPECT_EQ("EmbeddedRuntime", runtimePlugins().back());
    EXPECT_NE(&ownSuite, runtime->suite);
    EXPECT_NE(runtime, Sylvar().createRuntime());
}

TEST(RuntimeService, PassesAPluginWithoutASuiteOverAndTakesTheFirstOneThatHasOne) {
    addPlugins();
    EXPECT_EQ((std::vector<std::string>{"A", "B", "EmbeddedRuntime"}), runtimePlugins());
    const auto runtime = Sylvar().createRuntime();
    EXPECT_EQ(&ownSuite, runtime->suite);
    EXPECT_TRUE(
        OpTree().op("g", "generate").open(runtime)->cookLocation("/root").doesLocationExist());
}

TEST(RuntimeService, GivesNoneWhereTheFirstPluginGivesNone) {
    addPlugins();
    givesNoRuntime = true;
    EXPECT_EQ(nullptr, Sylvar().createRuntime());
    givesNoRuntime = false;
}

TEST(RuntimeService, FindsARuntimeUnderTheNameThatItWasPublishedUnder) {
    const auto runtime = Sylvar().createRuntime();
    RegisterRuntimeInstance(runtime, "renderRuntime");
    EXPECT_EQ(runtime, GetRuntimeInstance("renderRuntime"));
    EXPECT_EQ(nullptr, GetRuntimeInstance("renderruntime"));
    EXPECT_EQ(nullptr, GetRuntimeInstance(""));
    const auto other = Sylvar().createRuntime();
    RegisterRuntimeInstance(other, "renderRuntime");
    EXPECT_EQ(other, GetRuntimeInstance("renderRuntime"));
    RegisterRuntimeInstance(nullptr, "renderRuntime");
    EXPECT_EQ(nullptr, GetRuntimeInstance("renderRuntime"));
    RegisterRuntimeInstance(nullptr, "neverPublished");
    EXPECT_EQ(nullptr, GetRuntimeInstance("neverPublished"));
}

TEST(RuntimeService, HoldsAPublishedRuntimeUntilAnotherTakesItsPlace) {
    auto runtime = Sylvar().createRuntime();
    const std::weak_ptr<SylvarRuntime> watched = runtime;
    RegisterRuntimeInstance(runtime, "held");
    runtime.reset();
    EXPECT_FALSE(watched.expired());
    RegisterRuntimeInstance(nullptr, "held");
    EXPECT_TRUE(watched.expired());
}
