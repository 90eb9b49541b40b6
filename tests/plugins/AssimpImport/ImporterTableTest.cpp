// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/PluginManager.h>

#include "plugins/AssimpImport/Importing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace importing;

TEST(ImporterTable, IsListedByThePluginManager) {
    using Sylvar3::internal::OvPluginManager::PluginManager;
    PluginManager::setSearchDirectories({OV_TEST_PLUGIN_DIR});
    std::vector<std::string> names;
    PluginManager::getPluginNames(OV_ASSET_IMPORTER_API_NAME, names, OV_ASSET_IMPORTER_VERSION);
    EXPECT_THAT(names, testing::Contains("AssimpImport"));
    for (const auto& rejected : PluginManager::getRejectedPlugins()) {
        EXPECT_THAT(rejected.file, testing::Not(testing::EndsWith("/AssimpImport.so")));
    }
}

TEST(ImporterTable, NamesItsVersionAndExtensions) {
    EXPECT_EQ(OV_ASSET_IMPORTER_VERSION, importer().version);
    std::vector<std::string> extensions;
    for (const char* const* extension = importer().extensions; *extension; ++extension) {
        extensions.emplace_back(*extension);
    }
    EXPECT_THAT(extensions,
                testing::UnorderedElementsAre(
                    "obj", "gltf", "glb", "fbx", "dae", "ply", "stl", "3ds", "off", "x3d", "ifc"));
}

TEST(ImporterTable, HasEverythingOnByDefault) {
    const OvAssetImportOptions options = defaultOptions();
    EXPECT_EQ(0, options.upAxis);
    EXPECT_EQ(0.0, options.unitScale);
    EXPECT_EQ(1, options.lights);
    EXPECT_EQ(1, options.cameras);
    EXPECT_EQ(1, options.materials);
    EXPECT_EQ(0, options.maxFileBytes);
    EXPECT_EQ(0, options.maxLocations);
}

TEST(ImporterTable, ImportsWithoutOptions) {
    OvAssetImportResult result;
    const std::string file = dataFile("triangle.stl");
    EXPECT_EQ(1,
              importer().importAsset(
                  OvGetAttributeSuite(), file.c_str(), nullptr, nullptr, nullptr, &result));
    EXPECT_TRUE(GroupAttribute::adopt(result.scene).isValid());
    EXPECT_STREQ("", result.message);
}

TEST(ImporterTable, RefusesToWorkWithoutSuiteFileOrResult) {
    OvAssetImportResult result;
    EXPECT_EQ(0, importer().importAsset(nullptr, "a.obj", nullptr, nullptr, nullptr, &result));
    EXPECT_STREQ("Cannot import \"a.obj\": no attribute suite is given.", result.message);
    const OvAttributeSuite* suite = OvGetAttributeSuite();
    EXPECT_EQ(0, importer().importAsset(suite, nullptr, nullptr, nullptr, nullptr, &result));
    EXPECT_STREQ("Cannot import \"\": no file is named.", result.message);
    EXPECT_EQ(0, importer().importAsset(suite, "a.obj", nullptr, nullptr, nullptr, nullptr));
}

TEST(ImporterTable, CutsAMessageThatIsTooLong) {
    const Import import = importFile("/" + std::string(3000, 'x') + ".obj");
    EXPECT_FALSE(import.scene);
    EXPECT_EQ(sizeof(OvAssetImportResult::message) - 1, import.message.size());
}
