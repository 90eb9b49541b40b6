// SPDX-License-Identifier: Apache-2.0
// Reads an attribute in either file form and builds both forms of a procedural's arguments of it,
// with assets of which some cannot be resolved. The line must end as every line does, and the XML
// must read back to the very same arguments.
#include <OvSylvarProducers/CameraInfo.h>
#include <OvSylvarProducers/ProceduralArguments.h>
#include <OvSylvarProducers/StaticGeometryProducer.h>
#include <SylvarPlatform/AssetPlugin.h>
#include <SylvarPlatform/AttributeFile.h>
#include <SylvarPlatform/GroupBuilder.h>

#include "Procedurals/AssetResolution.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <unordered_map>
#include <vector>

namespace {

using namespace Sylvar3::internal::OvAttribute;
using SYLVAR::GeometryProducerPtr;
using SYLVAR::ProceduralOutputContextInfo;

constexpr std::size_t kMostBytes = 1 << 14;
constexpr std::uint64_t kMostWritten = 1 << 10;    // what takes no time to write
constexpr std::uint64_t kSurelyRefused = 1 << 27;  // twice what XML may have
constexpr std::uint64_t kEndOfCount = 1ULL << 32;

void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

class SomeAssets final : public Sylvar3::OvAssetHost::v1::AssetPlugin {
public:
    std::string resolveAsset(const std::string& assetId, int frame, bool) override {
        switch (assetId.size() % 5) {
            case 1:
                throw std::runtime_error(assetId);
            case 2:
                throw frame;
            case 3:
                return assetId + " 'x";
            default:
                return assetId;
        }
    }
};

void useSomeAssets() {
    static SomeAssets assets;
    Sylvar3::OvAssetHost::v1::OvAssetPluginManager::setDefaultAssetPlugin(&assets);
}

GeometryProducerPtr sceneWithCamera() {
    GroupBuilder lens;
    for (const char* name : {"fov", "near", "far", "left", "right", "top", "bottom"}) {
        lens.set(name, DoubleAttribute(0.1));
    }
    const GroupAttribute scene =
        GroupBuilder().set("c.world.c.cam.c.camera.a.geometry", lens.build()).build();
    return SYLVAR::CreateStaticGeometryProducer("/root", scene, nullptr);
}

/// How many attributes a tree has when each place counts, up to an end.
class Expansion {
public:
    std::uint64_t of(const Attribute& attribute) {
        const auto group = castAttribute<GroupAttribute>(attribute);
        if (!group) {
            return 1;
        }
        if (const auto found = counts_.find(group.handle()); found != counts_.end()) {
            return found->second;
        }
        std::uint64_t count = 1;
        for (std::int64_t i = 0; i < group.getNumberOfChildren(); ++i) {
            count = std::min(kEndOfCount, count + of(group.getChildByIndex(i)));
        }
        counts_[group.handle()] = count;
        return count;
    }

private:
    std::unordered_map<OvAttributeStruct*, std::uint64_t> counts_;
};

void ignoreFailure(const std::string& message, GeometryProducerPtr producer) {
    require(message.find("asset resolve failed on '") == 0 ||
            message.find("asset resolve failed on  '") == 0);
    require(producer != nullptr);
}

bool endsWith(const std::string& text, const std::string& end) {
    return text.size() >= end.size() &&
           text.compare(text.size() - end.size(), end.size(), end) == 0;
}

void buildLine(const GeometryProducerPtr& producer, const GroupAttribute& attrs) {
    ProceduralOutputContextInfo context{-7, 0.1F, 1e30F, {0, -1, 0.5F, 2}, 640, 480};
    const std::string text =
        BuildClassicProceduralArgumentsString(producer, context, attrs, &ignoreFailure);
    require(text.front() == ' ');
    require(endsWith(text,
                     " -frame -7 -shutter 0.10000000149 1.00000001505e+30"
                     " -cropwindow 0 -1 0.5 2"));
    require(text == BuildClassicProceduralArgumentsString(producer, context, attrs, nullptr));
}

void requireSameArguments(const std::string& xml,
                          const GroupAttribute& args,
                          const GroupAttribute& systemArgs) {
    const auto read = castAttribute<GroupAttribute>(Attribute::parseXML(xml));
    require(read.isValid() && !read.getGroupInherit());
    require(read.getXML() == xml);
    std::vector<GroupAttribute::Child> children;
    systemArgs.fillChildVector(&children);
    const bool isReplaced = std::any_of(
        children.begin(), children.end(), [](const auto& child) { return child.first == "args"; });
    require(isReplaced || read.getChildByName("args").getHash() == args.getHash());
    require(read.getChild<StringAttribute>("varlinFullName").getValue("") == "/root");
}

void buildXml(const GeometryProducerPtr& producer, const GroupAttribute& attrs) {
    ProceduralOutputContextInfo context{-7, 0.1F, 1e30F, {0, -1, 0.5F, 2}, 640, 480};
    const GroupAttribute args =
        SYLVAR::ResolveAssetsInGroup(attrs.getChild<GroupAttribute>("args"), context.frame);
    const auto systemArgs = attrs.getChild<GroupAttribute>("systemArgs");
    Expansion expansion;
    const std::uint64_t count = expansion.of(args) + expansion.of(systemArgs);
    if (count > kMostWritten && count < kSurelyRefused) {
        return;
    }
    try {
        const std::string xml =
            BuildScenegraphAttrProceduralArgumentsString(producer, context, attrs, &ignoreFailure);
        require(count <= kMostWritten);
        requireSameArguments(xml, args, systemArgs);
    } catch (const std::length_error&) {
        require(count >= kSurelyRefused);
    }
}

void build(const GroupAttribute& attrs) {
    static const GeometryProducerPtr producer = sceneWithCamera();
    buildLine(producer, attrs);
    buildXml(producer, attrs);
    SYLVAR::ClearCameraInfoCache();
}

/// What was read as the arguments, both the user's and the system's, with the camera.
GroupAttribute asArguments(const Attribute& attribute) {
    return GroupAttribute({{"args", attribute},
                           {"systemArgs", attribute},
                           {"includeCameraInfo", StringAttribute("As Parameters")}},
                          false);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    useSomeAssets();
    const AttributeReadResult read = readAttributeBytes(data, std::min(size, kMostBytes));
    if (read.attribute) {
        build(castAttribute<GroupAttribute>(read.attribute));
        build(asArguments(read.attribute));
        build(GroupAttribute({{"args", GroupAttribute({{"a", read.attribute}}, false)}}, false));
    }
    return 0;
}
