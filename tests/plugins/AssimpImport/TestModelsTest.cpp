// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/FlattenedMaterial.h>
#include <OvSylvarProducers/ShadingNodeDescription.h>
#include <SylvarPlatform/AttributeFile.h>

#include "plugins/AssimpImport/Importing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <set>

using namespace importing;

// Every model of the Debian package assimp-testmodels whose extension is taken.
namespace {

constexpr char kModels[] = "/usr/share/assimp/models";

bool isTaken(std::string extension) {
    std::transform(extension.begin(), extension.end(), extension.begin(), [](unsigned char c) {
        return static_cast<char>(std::tolower(c));
    });
    for (const char* const* taken = importer().extensions; *taken; ++taken) {
        if (extension == std::string(".") + *taken) {
            return true;
        }
    }
    return false;
}

std::vector<std::string> listModels() {
    namespace fs = std::filesystem;
    std::vector<std::string> models;
    if (fs::exists(kModels)) {
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(kModels)) {
            if (entry.is_regular_file() && isTaken(entry.path().extension().string())) {
                models.push_back(entry.path().string());
            }
        }
    }
    std::sort(models.begin(), models.end());
    return models;
}

int append(void* stream, const void* bytes, long size) {
    static_cast<std::string*>(stream)->append(static_cast<const char*>(bytes),
                                              static_cast<std::size_t>(size));
    return 1;
}

void expectRoundTrip(const GroupAttribute& scene, AttributeForm form) {
    std::string bytes;
    ASSERT_EQ("", writeAttribute(scene, AttributeContent::StaticScene, form, &bytes, append));
    const AttributeReadResult read = readAttributeBytes(bytes.data(), bytes.size());
    EXPECT_EQ("", read.error);
    EXPECT_EQ(scene.getHash(), read.attribute.getHash());
}

void expectSoundMesh(const GroupAttribute& mesh) {
    const std::vector<float> points = floatsOf(mesh, "geometry.points");
    const std::vector<int> indices = intsOf(mesh, "geometry.faceVertexIndices");
    const std::vector<int> counts = intsOf(mesh, "geometry.faceVertexCounts");
    const auto pointCount = static_cast<int>(points.size() / 3);
    std::size_t corners = 0;
    for (const int count : counts) {
        EXPECT_LE(3, count);
        corners += static_cast<std::size_t>(count);
    }
    EXPECT_EQ(indices.size(), corners);
    EXPECT_TRUE(std::all_of(
        indices.begin(), indices.end(), [&](int i) { return i >= 0 && i < pointCount; }));
    EXPECT_TRUE(
        std::all_of(points.begin(), points.end(), [](float v) { return std::isfinite(v); }));
    EXPECT_EQ(6U, doublesOf(mesh, "bound").size());
}

void expectSoundCamera(const GroupAttribute& camera) {
    const double fov = doubleOf(camera, "geometry.fov");
    EXPECT_TRUE(fov > 0.0 && fov < 180.0) << fov;
    EXPECT_LT(0.0, doubleOf(camera, "geometry.near"));
    EXPECT_LT(doubleOf(camera, "geometry.near"), doubleOf(camera, "geometry.far"));
    for (const char* name : {"left", "right", "top", "bottom"}) {
        EXPECT_TRUE(attributeOf<DoubleAttribute>(camera, std::string("geometry.") + name));
    }
}

/// All of it is read as shading nodes, and there is nothing that shading does not read.
void expectSoundMaterial(const GroupAttribute& material) {
    EXPECT_EQ(material.handle(), SYLVAR::MinimizeResolvedMaterialAttr(material).handle());
    SYLVAR::ShadingNodeDescription::Nodes nodes;
    SYLVAR::ShadingNodeDescription::GetShadingNetworkNodes(material, nodes);
    const auto described = material.getChild<GroupAttribute>("nodes");
    EXPECT_EQ(static_cast<std::size_t>(described.getNumberOfChildren()), nodes.size());
    const auto surface = material.getChild<StringAttribute>("terminals.surface");
    EXPECT_EQ(1U, nodes.count(surface.getValue("")));
    for (const auto& [name, node] : nodes) {
        const auto group = described.getChild<GroupAttribute>(name);
        EXPECT_EQ(static_cast<std::size_t>(
                      group.getChild<GroupAttribute>("connections").getNumberOfChildren()),
                  node->getConnectionNames().size());
        for (const std::string& input : node->getConnectionNames()) {
            const auto connection = node->getConnection(input);
            EXPECT_EQ(input, connection->getName());
            EXPECT_EQ("out", connection->getConnectedPortName());
            EXPECT_EQ(1U, nodes.count(connection->getConnectedNodeName()));
        }
    }
}

void expectSoundLocation(const GroupAttribute& location) {
    const std::string type = stringOf(location, "type");
    EXPECT_THAT(type, testing::AnyOf("group", "mesh", "camera", "light", "material"));
    EXPECT_TRUE(attributeOf<StringAttribute>(location, "source.file"));
    EXPECT_TRUE(attributeOf<StringAttribute>(location, "source.name"));
    const std::vector<std::string> names = childNames(location);
    EXPECT_EQ(names.size(), std::set<std::string>(names.begin(), names.end()).size());
    EXPECT_THAT(names, testing::Each(testing::Not(testing::ContainsRegex("[/.%]"))));
    if (type == "mesh") {
        expectSoundMesh(location);
    } else if (type == "camera") {
        expectSoundCamera(location);
    } else if (type == "material") {
        expectSoundMaterial(attributeOf<GroupAttribute>(location, "material"));
    }
}

class TestModels : public testing::TestWithParam<std::string> {};

std::string nameOfModel(const testing::TestParamInfo<std::string>& info) {
    std::string name = info.param.substr(sizeof kModels);
    std::replace_if(
        name.begin(), name.end(), [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
    return name;
}

}  // namespace

TEST_P(TestModels, AreImportedOrRefusedWithAReason) {
    const Import import = importFile(GetParam());
    if (!import.scene) {
        const std::string start = "Cannot import \"" + GetParam() + "\": ";
        EXPECT_THAT(import.message, testing::StartsWith(start));
        EXPECT_LT(start.size() + 1, import.message.size());
        return;
    }
    for (const GroupAttribute& location : allLocations(import.scene)) {
        expectSoundLocation(location);
    }
    expectRoundTrip(import.scene, AttributeForm::Binary);
    expectRoundTrip(import.scene, AttributeForm::Text);
}

TEST(TestModelsPackage, IsInstalled) {
    if (listModels().empty()) {
        GTEST_SKIP() << "the Debian package assimp-testmodels is not there: no model was tried";
    }
}

GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(TestModels);
INSTANTIATE_TEST_SUITE_P(Every, TestModels, testing::ValuesIn(listModels()), nameOfModel);
