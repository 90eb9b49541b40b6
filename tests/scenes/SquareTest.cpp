// SPDX-License-Identifier: Apache-2.0
// The village square: what a walk through the whole of it finds.
#include <OvSylvarProducers/ClientFactory.h>
#include <OvSylvarProducers/OpTreeSource.h>
#include <OvSylvarProducers/SyncGeometryProducer.h>
#include <SylvarPlatform/Configuration.h>
#include <SylvarPlatform/PluginManager.h>
#include <SylvarPlatform/XFormUtil.h>

#include "support/LocationReading.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <filesystem>
#include <map>
#include <set>
#include <string>

using namespace ovtest;
using namespace Sylvar3::internal::OvAttribute;
using Sylvar3::internal::OvPluginManager::PluginManager;
using Sylvar3::internal::OvSylvarServices::OvXFormUtil;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const std::string kScenes = std::string(OV_TEST_SOURCE_DIR) + "/scenes";
const std::string kModels = "/usr/share/assimp/models";  // Debian's package assimp-testmodels
constexpr const char* kCamera = "/root/world/cameras/main";

/// What is there of each kind.
struct Findings {
    std::map<std::string, int> types;
    std::set<std::string> errors;
    std::set<std::string> moving;
    std::set<std::string> withMaterial;  ///< Their own, or that of a location above.
    std::set<std::string> meshesWithoutMaterial;
    std::set<const void*> geometries;
    std::set<std::string> lights;
};

bool isMoving(const GroupAttribute& transform) {
    for (std::int64_t i = 0; i < transform.getNumberOfChildren(); ++i) {
        const auto child = castAttribute<DoubleAttribute>(transform.getChildByIndex(i));
        if (child.getNumberOfTimeSamples() > 1) {
            return true;
        }
    }
    return false;
}

void note(const std::string& path, const GroupAttribute& attributes, Findings& findings) {
    const std::string type = attributes.getChild<StringAttribute>("type").getValue("");
    ++findings.types[type];
    if (attributes.getChildByName("errorMessage")) {
        findings.errors.insert(path);
    }
    if (isMoving(attributes.getChild<GroupAttribute>("xform"))) {
        findings.moving.insert(path);
    }
    const std::string above = path.substr(0, path.rfind('/'));
    const auto style = attributes.getChild<StringAttribute>("material.style");
    if (style.getValue("") == "network" || findings.withMaterial.count(above) != 0) {
        findings.withMaterial.insert(path);
    } else if (type == "mesh") {
        findings.meshesWithoutMaterial.insert(path);
    }
    if (type == "mesh") {
        findings.geometries.insert(attributes.getChildByName("geometry.points").handle());
    } else if (type == "light") {
        findings.lights.insert(path);
    }
}

/// The point of the world at which a location's own origin stands, as the camera's picture has it:
/// -1 to 1 from left to right, and the same units up; nothing when it is behind the camera.
std::vector<double> inPicture(const SYLVAR::GeometryProducerPtr& root, const std::string& path) {
    const auto matrixOf = [&](const std::string& location) {
        const auto producer = root->getProducerByPath(location, false);
        const SampleAccessor<DoubleAttribute> values(
            OvXFormUtil::CalcTransformMatrixAtTime(producer->getGlobalXFormGroup(), 0.0F).attribute,
            0.0F);
        return std::vector<double>(values.begin(), values.end());
    };
    const std::vector<double> camera = matrixOf(kCamera);
    const std::vector<double> target = matrixOf(path);
    std::array<double, 3> seen = {};
    for (std::size_t axis = 0; axis < 3; ++axis) {
        for (std::size_t i = 0; i < 3; ++i) {
            seen[axis] += (target[12 + i] - camera[12 + i]) * camera[axis * 4 + i];
        }
    }
    const double fov = doublesAt(*root->getClient(), kCamera, "geometry.fov").front();
    const double reach = -seen[2] * std::tan(fov / 2 * std::acos(-1.0) / 180);
    return reach > 0 ? std::vector<double>{seen[0] / reach, seen[1] / reach}
                     : std::vector<double>();
}

class Square : public testing::Test {
protected:
    static void SetUpTestSuite() {
        if (!std::filesystem::exists(kModels)) {
            return;
        }
        Sylvar3::OvConfiguration::v1::Config()->set("SYLVAR_ASSET_PATH", kScenes + ":" + kModels);
        PluginManager::setSearchDirectories({OV_TEST_PLUGIN_DIR});
        root = SYLVAR::CreateSyncGeometryProducer(
            SYLVAR::ClientCreateWithOpTree(
                SYLVAR::OpTreeSource::createFromFile(kScenes + "/square.optree.json")),
            "/root");
        walkFrom(*root->getClient(),
                 "/root",
                 [&](const std::string& path, const SylvarRuntime::LocationData& location) {
                     note(path, location.getAttrs(), findings);
                 });
    }
    static void TearDownTestSuite() {
        root = nullptr;
        PluginManager::setSearchDirectories({});
        Sylvar3::OvConfiguration::v1::Config()->unset("SYLVAR_ASSET_PATH");
    }
    void SetUp() override {
        if (!root) {
            GTEST_SKIP() << "assimp-testmodels is not installed";
        }
    }

    inline static SYLVAR::GeometryProducerPtr root;
    inline static Findings findings;
};

}  // namespace

TEST_F(Square, IsThereAsAWholeAndWithoutErrors) {
    EXPECT_THAT(findings.errors, IsEmpty());
    EXPECT_EQ((std::map<std::string, int>{
                  {"camera", 1}, {"group", 27662}, {"light", 26}, {"mesh", 86055}}),
              findings.types);
}

TEST_F(Square, MovesWhileTheShutterIsOpen) {
    EXPECT_THAT(findings.moving,
                ElementsAre("/root/world/ball",
                            "/root/world/birds",
                            "/root/world/hill/mill/sails",
                            "/root/world/teaHouse/sign/swing"));
}

TEST_F(Square, HasANetworkMaterialForEveryMesh) {
    EXPECT_THAT(findings.meshesWithoutMaterial, IsEmpty());
}

TEST_F(Square, SharesTheGeometryOfItsCopies) {
    EXPECT_GE(1000U, findings.geometries.size());
}

TEST_F(Square, IsLitByTheSunTheSkyAndItsLamps) {
    std::map<std::string, int> types;
    for (const std::string& path : findings.lights) {
        ++types[textAt(*root->getClient(), path, "light.type")];
    }
    EXPECT_EQ((std::map<std::string, int>{{"ambient", 1}, {"distant", 1}, {"point", 24}}), types);
}

TEST_F(Square, IsFramedByTheCameraOfItsRenderSettings) {
    const SylvarRuntime::Client& client = *root->getClient();
    EXPECT_EQ(kCamera, textAt(client, "/root", "renderSettings.cameraName"));
    EXPECT_EQ("camera", textAt(client, kCamera, "type"));
    EXPECT_EQ("hd_720", textAt(client, "/root", "renderSettings.resolution"));
    const double top = doublesAt(client, kCamera, "geometry.top").front();
    for (const char* const path : {"/root/world/middle/fountain/bison",
                                   "/root/world/hill/mill/sails",
                                   "/root/world/teaHouse/sign/swing",
                                   "/root/world/ball"}) {
        SCOPED_TRACE(path);
        const std::vector<double> place = inPicture(root, path);
        ASSERT_EQ(2U, place.size());
        EXPECT_GE(1, std::abs(place[0]));
        EXPECT_GE(top, std::abs(place[1]));
    }
}
