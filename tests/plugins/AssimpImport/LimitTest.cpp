// SPDX-License-Identifier: Apache-2.0
#include "plugins/AssimpImport/Importing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace importing;

TEST(ImportLimits, BoundTheFile) {
    OvAssetImportOptions options = defaultOptions();
    options.maxFileBytes = 10;
    const std::string file = dataFile("cube.obj");
    EXPECT_THAT(importFile(file, options).message,
                testing::MatchesRegex("Cannot import \"" + file +
                                      "\": it holds [0-9]+ bytes, more than the limit of 10."));
    options.maxFileBytes = 1000;
    EXPECT_EQ("", importFile(file, options).message);
}

TEST(ImportLimits, BoundTheFilesThatAnAssetRefersTo) {
    const std::string file = writeFile("bounded.gltf", gltfTriangle("bounded.bin", 3000));
    writeFile("bounded.bin", std::string(3000, '\0'));
    EXPECT_EQ("", importFile(file).message);
    OvAssetImportOptions options = defaultOptions();
    options.maxFileBytes = 1000;
    EXPECT_THAT(importFile(file, options).message, testing::HasSubstr("bounded.bin"));
}

TEST(ImportLimits, BoundTheLocations) {
    const std::string file = dataFile("shared.gltf");
    const auto count = static_cast<std::int64_t>(allLocations(importFile(file).scene).size());
    OvAssetImportOptions options = defaultOptions();
    options.maxLocations = count;
    EXPECT_EQ("", importFile(file, options).message);
    options.maxLocations = count - 1;
    EXPECT_EQ("Cannot import \"" + file + "\": it makes more locations than the limit of " +
                  std::to_string(count - 1) + ".",
              importFile(file, options).message);
    options.maxLocations = 2;
    EXPECT_FALSE(importFile(file, options).scene);
}

TEST(ImportOptions, OutOfRangeAreRefused) {
    const std::string file = dataFile("cube.obj");
    OvAssetImportOptions options = defaultOptions();
    options.upAxis = 'w';
    EXPECT_THAT(importFile(file, options).message,
                testing::EndsWith(": the up axis must be x, y or z."));
    options = defaultOptions();
    options.unitScale = -1.0;
    EXPECT_THAT(importFile(file, options).message,
                testing::EndsWith(": the unit scale must be a positive number."));
    options = defaultOptions();
    options.maxLocations = -1;
    EXPECT_THAT(importFile(file, options).message,
                testing::EndsWith(": a limit must not be negative."));
}
