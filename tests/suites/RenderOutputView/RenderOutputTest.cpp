// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/suites/Plugin.h>

#include "suites/RenderOutputView/RenderOutputViewTest.h"
#include "support/HostWithout.h"
#include "support/InProcessPlugin.h"

#include <functional>
#include <new>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace SYLVAR::Suites;

using ovtest::hostWithout;
using RenderOutputView = ovtest::RenderOutputViewTest;

TEST_F(RenderOutputView, IsFoundThroughTheHost) {
    fake.at("/root");
    const Expected<RenderOutput> found = RenderOutput::find(host());
    ASSERT_TRUE(found);
    EXPECT_EQ("/root/world/cam/camera", told(found->cameraPath(open())));
}

TEST_F(RenderOutputView, TellsWhichSuiteAHostLacks) {
    const Expected<RenderOutput> outputs = RenderOutput::find(hostWithout("RenderOutputUtilsHost"));
    ASSERT_FALSE(outputs);
    EXPECT_EQ("the host has no suite \"RenderOutputUtilsHost\", version 3",
              outputs.error().message());
    const Expected<RenderOutput> attributes = RenderOutput::find(hostWithout("Attribute"));
    ASSERT_FALSE(attributes);
    EXPECT_EQ("the host has no suite \"Attribute\", version 1", attributes.error().message());
}

TEST_F(RenderOutputView, TellsTheArchitectureAndPutsItIntoPaths) {
    EXPECT_EQ("kelnix1", output.archString());
    EXPECT_EQ("/lib/kelnix1/x", output.expandArchPath(std::string("/lib/%ARCH/x")));
    counted.suite.getArchString = []() -> OvAttributeStruct* { throw std::runtime_error("fault"); };
    counted.suite.expandArchPath = [](const char*) -> OvAttributeStruct* { throw 1; };
    EXPECT_EQ("", output.archString());
    EXPECT_EQ("", output.expandArchPath("/lib/%ARCH"));
}

int flushed = 0;

OvPluginStruct cachingPlugin = {sizeof(OvPluginStruct),
                                OV_PLUGIN_VERSION,
                                "Caching",
                                "RenderOutputViewTest",
                                1,
                                0,
                                nullptr,
                                []() -> const void* { return &flushed; },
                                [] { ++flushed; }};

TEST_F(RenderOutputView, HasPluginsDropTheirCaches) {
    static const std::string refused = ovtest::registerPlugin(cachingPlugin);
    ASSERT_EQ("", refused);
    flushed = 0;
    EXPECT_TRUE(output.flushPluginCaches("Nonesuch"));
    EXPECT_EQ(0, flushed);
    EXPECT_TRUE(output.flushPluginCaches("RenderOutputViewTest"));
    EXPECT_EQ(1, flushed);
    EXPECT_TRUE(output.flushPluginCaches(""));
    EXPECT_EQ(2, flushed);
}

/// What a table throws whatever it is asked.
enum class Fault { Error, Number, Memory };
Fault fault = Fault::Error;

[[noreturn]] void throwFault() {
    switch (fault) {
        case Fault::Error:
            throw std::runtime_error("fault");
        case Fault::Number:
            throw 1;
        case Fault::Memory:
            break;
    }
    throw std::bad_alloc();
}

template <class Result, class... Args>
Result throwing(Args...) {
    throwFault();
}

/// All that gives an `Expected` over a table that throws.
class RenderOutputError : public ovtest::RenderOutputViewTest {
protected:
    using Call = std::function<std::string()>;

    RenderOutputError() {
        fake.at("/root");
        root = open();
        OvRenderOutputUtilsSuite& suite = counted.suite;
        suite.getRenderResolution = throwing;
        suite.getCameraPath = throwing;
        suite.getCameraInfo = throwing;
        suite.getPixelAreaThroughCamera = throwing;
        suite.findSampleTimesRelevantToShutterRange = throwing;
        suite.getRenderOutputTempLocation = throwing;
        suite.processTilePath = throwing;
        suite.getFlattenedMaterialAttr = throwing;
        suite.emptyFlattenedMaterialCache = throwing;
        suite.getShadingNetworkNodesFromAttr = throwing;
        suite.getShadingNetworkNodesFromIterator = throwing;
        suite.convertTexturesToArbitraryAttr = throwing;
        suite.buildProceduralArgumentsString = throwing;
        suite.processLocationDelegate = throwing;
        suite.getLocationTypesWithDelegates = throwing;
        suite.flushPluginCaches = throwing;
    }

    template <class T>
    static std::string reasonOf(const Expected<T>& answer) {
        return answer ? "no error" : answer.error().message();
    }

    std::vector<std::pair<const char*, Call>> calls() const {
        const RenderOutput& out = output;
        return {
            {"resolution", [&] { return reasonOf(out.resolution(root)); }},
            {"cameraPath", [&] { return reasonOf(out.cameraPath(root)); }},
            {"camera", [&] { return reasonOf(out.camera(root, "")); }},
            {"pixelArea", [&] { return reasonOf(out.pixelArea(root, "", "")); }},
            {"sampleTimes", [&] { return reasonOf(out.relevantSampleTimes({}, 0, 1)); }},
            {"location", [&] { return reasonOf(out.tempLocation(root, "", "", "", 0)); }},
            {"folder", [&] { return reasonOf(out.tempLocation(root, "", 0)); }},
            {"tilePath", [&] { return reasonOf(out.tilePath(root, "")); }},
            {"material", [&] { return reasonOf(out.flattenedMaterial(root, {})); }},
            {"forget", [&] { return reasonOf(out.forgetFlattenedMaterials()); }},
            {"network", [&] { return reasonOf(out.shadingNetwork(root.attributes())); }},
            {"its network", [&] { return reasonOf(out.shadingNetwork(root)); }},
            {"textures", [&] { return reasonOf(out.texturesAsArbitrary(Value())); }},
            {"arguments",
             [&] {
                 return reasonOf(out.proceduralArguments(root, "", {}, ProceduralStyle::Classic));
             }},
            {"process", [&] { return reasonOf(out.processLocation(root, "", "", nullptr)); }},
            {"types", [&] { return reasonOf(out.locationTypesWithDelegates("")); }},
            {"flush", [&] { return reasonOf(out.flushPluginCaches("")); }},
        };
    }

    Location root;
};

TEST_F(RenderOutputError, IsWhatTheHostThrows) {
    for (const auto& [name, call] : calls()) {
        fault = Fault::Error;
        EXPECT_EQ("fault", call()) << name;
        fault = Fault::Number;
        EXPECT_EQ("the host threw what is no std::exception", call()) << name;
    }
}

TEST_F(RenderOutputError, IsNotTheLackOfMemoryWhichTravels) {
    fault = Fault::Memory;
    for (const auto& [name, call] : calls()) {
        EXPECT_THROW(call(), std::bad_alloc) << name;
    }
}

}  // namespace
