// SPDX-License-Identifier: Apache-2.0
// The example renderers in a host that lacks what they need.
#include <OvSylvarProducers/suites/Initialize.h>
#include <SylvarPlatform/suites/Plugin.h>
#include <SylvarPlatform/suites/Renderer.h>

#include "support/HeardLogs.h"
#include "support/HostWithout.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <dlfcn.h>
#include <ostream>
#include <string>
#include <utility>

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;

struct Example {
    const char* name;
    const char* file;
};

void PrintTo(const Example& example, std::ostream* stream) {
    *stream << example.name;
}

class RendererHost : public testing::TestWithParam<Example> {
protected:
    RendererHost() { EXPECT_EQ(0, OvSylvarProducersInitialize(OvGetHostTable())); }

    /// The plug-in of the example's file, which stays loaded.
    static const OvPluginStruct* plugin() {
        void* const file = dlopen(GetParam().file, RTLD_NOW | RTLD_LOCAL);
        void* const symbol = file ? dlsym(file, OV_PLUGIN_SYMBOL) : nullptr;
        return symbol ? reinterpret_cast<OvGetPluginFunction>(symbol)(0) : nullptr;
    }

    /// Whether it is taken by that host and renders a job without a scene.
    static bool renders(const OvHostTable& host) {
        const OvPluginStruct* const census = plugin();
        if (!census || census->setHost(&host) != 0) {
            return false;
        }
        const auto* const renderer = static_cast<const OvRenderer*>(census->getSuite());
        OvRenderJob job{};
        job.size = sizeof job;
        job.threads = 1;
        return renderer->render(&job) == 0;
    }

    ovtest::HeardLogs logs;
};

TEST_P(RendererHost, ThatLacksASuiteIsToldWhich) {
    ASSERT_NE(nullptr, plugin());
    for (const auto& [suite, version] : {std::pair("RenderOutputUtilsHost", 3),
                                         std::pair("ScenegraphIteratorHost", 3),
                                         std::pair("Attribute", 1)}) {
        EXPECT_FALSE(renders(ovtest::hostWithout(suite)));
        const std::string reason = "the host has no suite \"" + std::string(suite) +
                                   "\", version " + std::to_string(version);
        EXPECT_THAT(logs.take(),
                    ElementsAre(AllOf(HasSubstr(std::string(GetParam().name) + " error"),
                                      HasSubstr(reason))));
    }
}

TEST_P(RendererHost, ThatHasAllIsTaken) {
    ASSERT_NE(nullptr, plugin());
    EXPECT_EQ(0, plugin()->setHost(OvGetHostTable()));
    EXPECT_THAT(logs.take(), testing::IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Examples,
                         RendererHost,
                         testing::Values(Example{"CensusC", OV_TEST_CENSUS_C},
                                         Example{"CensusCpp", OV_TEST_CENSUS_CPP}),
                         [](const auto& example) { return std::string(example.param.name); });

}  // namespace
