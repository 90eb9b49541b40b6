// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/ShadingNodeDescription.h>

#include "plugins/AssimpImport/Importing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace importing;

namespace {

GroupAttribute paint() {
    return locationAt(importFile(dataFile("shared.gltf")).scene, "materials/paint");
}

const std::string kSurface = "material.nodes.surface.";

}  // namespace

TEST(ImportedMaterial, IsANetworkWithASurface) {
    const auto material = paint();
    EXPECT_EQ("material", stringOf(material, "type"));
    EXPECT_EQ("network", stringOf(material, "material.style"));
    EXPECT_EQ("surface", stringOf(material, "material.terminals.surface"));
    EXPECT_EQ("surface", stringOf(material, kSurface + "name"));
    EXPECT_EQ("standard_surface", stringOf(material, kSurface + "type"));
}

TEST(ImportedMaterial, IsReadAsShadingNodes) {
    SYLVAR::ShadingNodeDescription::Nodes nodes;
    SYLVAR::ShadingNodeDescription::GetShadingNetworkNodes(
        attributeOf<GroupAttribute>(paint(), "material"), nodes);
    const auto& surface = nodes.at("surface");
    EXPECT_EQ("standard_surface", surface->getType());
    EXPECT_THAT(surface->getParameterNames(), testing::IsSupersetOf({"base_color", "metalness"}));
    EXPECT_THAT(surface->getConnectionNames(), testing::IsSupersetOf({"base_color", "normal"}));
    EXPECT_EQ("base_color_filter", surface->getConnection("base_color")->getConnectedNodeName());
    EXPECT_EQ("multiply", nodes.at("base_color_filter")->getType());
    EXPECT_TRUE(nodes.at("base_color_image")->getParameter("file"));
}

TEST(ImportedMaterial, HasItsParameters) {
    const auto material = paint();
    const std::string parameters = kSurface + "parameters.";
    EXPECT_EQ((std::vector<float>{0.5F, 0.25F, 1.0F}),
              floatsOf(material, parameters + "base_color"));
    EXPECT_EQ(std::vector<float>{0.75F}, floatsOf(material, parameters + "metalness"));
    EXPECT_EQ(std::vector<float>{0.5F}, floatsOf(material, parameters + "specular_roughness"));
    EXPECT_EQ((std::vector<float>{0, 0.5F, 0}), floatsOf(material, parameters + "emission_color"));
    EXPECT_EQ((std::vector<float>{0.5F, 0.5F, 0.5F}), floatsOf(material, parameters + "opacity"));
}

TEST(ImportedMaterial, FiltersItsColorImage) {
    const auto material = paint();
    EXPECT_EQ("out@base_color_filter", stringOf(material, kSurface + "connections.base_color"));
    EXPECT_EQ("multiply", stringOf(material, "material.nodes.base_color_filter.type"));
    EXPECT_EQ("out@base_color_image",
              stringOf(material, "material.nodes.base_color_filter.connections.in1"));
    const std::string image = "material.nodes.base_color_image.";
    EXPECT_EQ("image", stringOf(material, image + "type"));
    EXPECT_EQ(dataFile("maps/color.png"), stringOf(material, image + "parameters.file"));
    EXPECT_EQ("clamp", stringOf(material, image + "parameters.uaddressmode"));
    EXPECT_EQ("mirror", stringOf(material, image + "parameters.vaddressmode"));
}

TEST(ImportedMaterial, TakesRoughnessAndMetalnessFromTheirChannels) {
    const auto material = paint();
    EXPECT_EQ("out@metalness_channel", stringOf(material, kSurface + "connections.metalness"));
    const std::string channel = "material.nodes.metalness_channel.";
    EXPECT_EQ("extract", stringOf(material, channel + "type"));
    EXPECT_EQ(std::vector<int>{2}, intsOf(material, channel + "parameters.index"));
    EXPECT_EQ("out@roughness_metalness_image", stringOf(material, channel + "connections.in"));
    EXPECT_EQ(std::vector<int>{1},
              intsOf(material, "material.nodes.specular_roughness_channel.parameters.index"));
}

TEST(ImportedMaterial, KeepsAnAbsoluteImageName) {
    const auto material = paint();
    EXPECT_EQ("out@normal_map", stringOf(material, kSurface + "connections.normal"));
    EXPECT_EQ("/maps/normal.png",
              stringOf(material, "material.nodes.normal_image.parameters.file"));
}

TEST(ImportedMaterial, OfAnOlderKindIsTurnedIntoTheNearestLook) {
    const auto material = locationAt(importFile(dataFile("cube.obj")).scene, "materials/red");
    const std::string parameters = kSurface + "parameters.";
    EXPECT_EQ((std::vector<float>{0.9F, 0.1F, 0.2F}),
              floatsOf(material, parameters + "base_color"));
    EXPECT_EQ(std::vector<float>{0.5F}, floatsOf(material, parameters + "specular"));
    EXPECT_EQ((std::vector<float>{1, 0.5F, 0}), floatsOf(material, parameters + "specular_color"));
    EXPECT_NEAR(0.1414F, floatsOf(material, parameters + "specular_roughness").at(0), 1e-3F);
    EXPECT_EQ((std::vector<float>{0.5F, 0.5F, 0.5F}), floatsOf(material, parameters + "opacity"));
    EXPECT_EQ(dataFile("textures/red.png"),
              stringOf(material, "material.nodes.base_color_image.parameters.file"));
    EXPECT_EQ("out@base_color_image", stringOf(material, kSurface + "connections.base_color"));
}

TEST(ImportedMaterial, IsOneHandleForBrowsingAndForTheMeshes) {
    const auto scene = importFile(dataFile("shared.gltf")).scene;
    const auto listed =
        attributeOf<GroupAttribute>(locationAt(scene, "materials/paint"), "material");
    const auto used =
        attributeOf<GroupAttribute>(locationAt(scene, "top/left/triangle"), "material");
    EXPECT_TRUE(used);
    EXPECT_EQ(listed.handle(), used.handle());
    EXPECT_FALSE(used.getGroupInherit());
}

TEST(ImportedMaterial, IsLeftOutWhenNotWanted) {
    OvAssetImportOptions options = defaultOptions();
    options.materials = 0;
    const auto scene = importFile(dataFile("shared.gltf"), options).scene;
    EXPECT_FALSE(locationAt(scene, "materials"));
    EXPECT_FALSE(attributeOf<GroupAttribute>(locationAt(scene, "top/left/triangle"), "material"));
}
