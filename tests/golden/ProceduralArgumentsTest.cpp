// SPDX-License-Identifier: Apache-2.0
// Both forms of a procedural's arguments, byte by byte as the files in procedural_arguments/ have
// them: scripts/approve_arguments.sh writes them anew.
#include <OvSylvarProducers/CameraInfo.h>
#include <OvSylvarProducers/ProceduralArguments.h>
#include <OvSylvarProducers/ThreadAwareGeometryProducer.h>
#include <SylvarPlatform/AssetPlugin.h>
#include <SylvarPlatform/GroupBuilder.h>

#include "support/OpTree.h"
#include "support/StaticScene.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <limits>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

using namespace Sylvar3::internal::OvAttribute;
using ovtest::StaticScene;

namespace {

constexpr const char* kFolder = OV_TEST_SOURCE_DIR "/tests/golden/procedural_arguments/";

/// The frame behind the name, and "missing" cannot be resolved.
class SampleAssets final : public Sylvar3::OvAssetHost::v1::AssetPlugin {
public:
    std::string resolveAsset(const std::string& assetId, int frame, bool flag) override {
        if (assetId == "missing") {
            throw std::runtime_error("no such asset");
        }
        const bool isAsset = assetId.find(".exr") != std::string::npos;
        return isAsset ? assetId + "@" + std::to_string(frame) + (flag ? "+" : "-") : assetId;
    }
};

struct Case {
    const char* name;
    GroupAttribute attrs;
};

void PrintTo(const Case& one, std::ostream* stream) {
    *stream << one.name;
}

using Strings = std::vector<std::string>;

GroupAttribute numbers() {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    return GroupBuilder()
        .set("args.whole", IntAttribute(std::vector<std::int32_t>{0, -1, 2147483647}))
        .set("args.single", FloatAttribute({0.1F, 0.5F, 24, 1e20F, -0.0F, 1e-5F}))
        .set("args.double", DoubleAttribute({0.1, 1.0 / 3, 1e300, 123456789012.5, kInfinity}))
        .set("args.pairs", FloatAttribute({1, 2, 3, 4}, 2))
        .set("args.moving", FloatAttribute(TimedSamples<float>{{-0.25F, {1}}, {0.125F, {2}}}))
        .set("args.none", IntAttribute(std::vector<std::int32_t>()))
        .build();
}

GroupAttribute strings() {
    return GroupBuilder()
        .set("args.plain", StringAttribute("word"))
        .set("args.blank", StringAttribute("two words"))
        .set("args.empty", StringAttribute(""))
        .set("args.list", StringAttribute(Strings{"a.exr", "b c"}))
        .set("args.pairs", StringAttribute(Strings{"a", "b", "c", "d"}, 2))
        .set("args.quote", StringAttribute("it's"))
        .set("args.bytes", StringAttribute("\x1b<&>\xff"))
        .set("args.extraArgs", StringAttribute("-verbose 1 -map a.exr"))
        .set("args.__hidden", StringAttribute("hidden"))
        .build();
}

GroupAttribute failures() {
    return GroupBuilder()
        .set("args.one", StringAttribute("missing"))
        .set("args.list", StringAttribute(Strings{"a.exr", "missing", "b.exr"}))
        .set("args.extraArgs", StringAttribute("missing"))
        .set("args.after", IntAttribute(1))
        .build();
}

GroupAttribute everything() {
    return GroupBuilder()
        .set("args.density", FloatAttribute(0.75F))
        .set("args.map", StringAttribute("a.exr"))
        .set("args.nested.deeper.value", IntAttribute(7))
        .set("args.nested.deeper.__hidden", IntAttribute(8))
        .set("systemArgs.seed", IntAttribute(42))
        .set("systemArgs.cache", StringAttribute("b.exr"))
        .set("includeCameraInfo", StringAttribute("As Parameters"))
        .set("cameraInfo.whichCamera", StringAttribute("Other Camera"))
        .set("cameraInfo.cameraPath", StringAttribute("/root/moving"))
        .build();
}

std::vector<Case> cases() {
    return {{"nothing", GroupBuilder().build()},
            {"numbers", numbers()},
            {"strings", strings()},
            {"failures", failures()},
            {"system_alone", GroupBuilder().set("systemArgs.seed", IntAttribute(42)).build()},
            {"camera",
             GroupBuilder().set("includeCameraInfo", StringAttribute("As Parameters")).build()},
            {"everything", everything()}};
}

GroupAttribute lens(double fov) {
    return GroupBuilder()
        .set("fov", DoubleAttribute(fov))
        .set("near", DoubleAttribute(0.1))
        .set("far", DoubleAttribute(1000.0))
        .set("left", DoubleAttribute(-1.0))
        .set("right", DoubleAttribute(1.0))
        .set("top", DoubleAttribute(0.5625))
        .set("bottom", DoubleAttribute(-0.5625))
        .build();
}

StaticScene scene() {
    const TimedSamples<double> moves = {{-0.25F, {1, 2, 3}}, {0.25F, {1.5, 2, 3}}};
    return StaticScene()
        .set("/root/world/cam/camera", "geometry", lens(45))
        .set("/root/moving", "geometry", lens(70.25))
        .set("/root/moving", "xform.translate", DoubleAttribute(moves, 3))
        .at("/root/world/fur");
}

SYLVAR::GeometryProducerPtr cooked() {
    const auto tree =
        ovtest::OpTree().op("scene", "scene", ovtest::Args().set("tree", scene().group()));
    return SYLVAR::CreateThreadAwareGeometryProducer(tree.group(), "/root")
        ->getProducerByPath("/root/world/fur", false);
}

void expectApproved(const std::string& name, const std::string& text) {
    if (std::getenv("OV_APPROVE")) {
        std::ofstream(kFolder + name, std::ios::binary) << text;
    }
    std::ostringstream approved;
    approved << std::ifstream(kFolder + name, std::ios::binary).rdbuf();
    EXPECT_EQ(approved.str(), text) << name;
}

}  // namespace

class GoldenArguments : public testing::TestWithParam<Case> {
protected:
    GoldenArguments() {
        static SampleAssets assets;
        Sylvar3::OvAssetHost::v1::OvAssetPluginManager::setDefaultAssetPlugin(&assets);
        SYLVAR::ClearCameraInfoCache();
    }
    ~GoldenArguments() override {
        Sylvar3::OvAssetHost::v1::OvAssetPluginManager::setDefaultAssetPlugin(nullptr);
    }

    SYLVAR::ProceduralOutputContextInfo context =
        {12, -0.25F, 0.25F, {0, 0.5F, 0, 0.1F}, 1920, 1080};
};

INSTANTIATE_TEST_SUITE_P(, GoldenArguments, testing::ValuesIn(cases()), [](const auto& one) {
    return std::string(one.param.name);
});

TEST_P(GoldenArguments, AreTheApprovedOnesOverAStaticSceneAndOverARuntime) {
    const Case& one = GetParam();
    for (const auto& producer : {scene().open("/root/world/fur"), cooked()}) {
        expectApproved(
            std::string(one.name) + ".txt",
            BuildClassicProceduralArgumentsString(producer, context, one.attrs, nullptr) + "\n");
        expectApproved(
            std::string(one.name) + ".xml",
            BuildScenegraphAttrProceduralArgumentsString(producer, context, one.attrs, nullptr));
    }
}
