// SPDX-License-Identifier: Apache-2.0
#include "plugins/ImportOp/ImportOp.h"

#include <SylvarPlatform/Configuration.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <vector>

using namespace ovtest;
using namespace Sylvar3::internal::OvAttribute;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const std::string kModels = "/usr/share/assimp/models";

}  // namespace

TEST_F(ImportOp, ShowsTheAssetWhereItIsTold) {
    TestFile file("import_at.obj");
    file.writeBytes(triangle());
    const auto client = open(file.path(), "/root/world/part");
    EXPECT_THAT(childrenOf(client->cookLocation("/root")), ElementsAre("world"));
    EXPECT_THAT(childrenOf(client->cookLocation("/root/world")), ElementsAre("part"));
    EXPECT_FALSE(isThere(client, "/root/world/other"));
    const std::string mesh = findType(client, "/root/world/part", "mesh");
    ASSERT_NE("", mesh);
    const GroupAttribute attributes = client->cookLocation(mesh).getAttrs();
    EXPECT_EQ(9, attributes.getChild<FloatAttribute>("geometry.points").getNumberOfValues());
    EXPECT_EQ(file.path(), attributes.getChild<StringAttribute>("source.file").getValue(""));
    EXPECT_THAT(logs.take(), IsEmpty());
}

TEST_F(ImportOp, ParsesNothingBeforeALocationInsideIsAskedFor) {
    TestFile file("import_lazy.obj");
    file.writeBytes(triangle());
    const int before = host.floatsMade();
    const auto client = open(file.path(), "/root/world/part");
    isThere(client, "/root/world");
    isThere(client, "/root/world/other/part");
    EXPECT_EQ(before, host.floatsMade());
    isThere(client, "/root/world/part");
    EXPECT_LT(before, host.floatsMade());
}

TEST_F(ImportOp, ParsesAFileOnceForAllThatImportIt) {
    TestFile file("import_shared.obj");
    file.writeBytes(triangle());
    const auto here = open(file.path(), "/root/here");
    const std::string mesh = findType(here, "/root/here", "mesh").substr(10);
    const int parsed = host.floatsMade();
    const auto there = open(file.path(), "/root/there/too");
    EXPECT_EQ(here->cookLocation("/root/here" + mesh).getAttrs().handle(),
              there->cookLocation("/root/there/too" + mesh).getAttrs().handle());
    EXPECT_EQ(parsed, host.floatsMade());
}

TEST_F(ImportOp, ParsesAFileAgainForOtherOptionsAndWhenNobodyHoldsIt) {
    TestFile file("import_again.obj");
    file.writeBytes(triangle());
    const auto parsesFor = [&](Args& arguments) {
        const int before = host.floatsMade();
        isThere(open(arguments.set("file", file.path())), "/root");
        return host.floatsMade() != before;
    };
    const auto holder = open(file.path());
    isThere(holder, "/root");
    EXPECT_FALSE(parsesFor(Args().set("at", "/root/a")));
    EXPECT_FALSE(parsesFor(Args().set("lights", 1)));
    EXPECT_TRUE(parsesFor(Args().set("lights", 0)));
    EXPECT_TRUE(parsesFor(Args().set("upAxis", "z")));
    EXPECT_TRUE(parsesFor(Args().set("unitScale", DoubleAttribute(0.01))));
    EXPECT_TRUE(parsesFor(Args().set("maxLocations", 100)));
    EXPECT_TRUE(parsesFor(Args().set("lights", 0)));
}

TEST_F(ImportOp, TakesItsOptions) {
    TestFile file("import_options.obj");
    file.writeBytes(triangle());
    const auto plain = open(file.path());
    EXPECT_TRUE(isThere(plain, "/root/materials"));
    EXPECT_FALSE(plain->cookLocation("/root").getAttrs().getChildByName("xform").isValid());
    const auto turned = open(Args()
                                 .set("file", file.path())
                                 .set("upAxis", "z")
                                 .set("unitScale", FloatAttribute(0.5F))
                                 .set("materials", 0));
    EXPECT_FALSE(isThere(turned, "/root/materials"));
    const auto matrix =
        turned->cookLocation("/root").getAttrs().getChild<DoubleAttribute>("xform.matrix");
    EXPECT_EQ(0.5, matrix.getValue(0, 0));
    EXPECT_EQ(-0.5, matrix.getValue(0, 6));
}

TEST_F(ImportOp, FindsItsFileAlongTheSearchPathOfAssets) {
    TestFile file("import_searched.obj");
    file.writeBytes(triangle());
    auto& settings = *Sylvar3::OvConfiguration::v1::Config();
    settings.set("SYLVAR_ASSET_PATH", "/nowhere:" OV_TEST_OUTPUT_DIR);
    const auto client = open("import_searched.obj");
    settings.unset("SYLVAR_ASSET_PATH");
    EXPECT_NE("", findType(client, "/root", "mesh"));
}

TEST_F(ImportOp, ImportsEveryModelOrTellsWhyNot) {
    if (!std::filesystem::exists(kModels)) {
        GTEST_SKIP() << "the Debian package assimp-testmodels is not there: no model was tried";
    }
    int imported = 0;
    for (const char* const folder : {"OBJ", "PLY", "STL", "Collada", "glTF2"}) {
        for (const auto& entry :
             std::filesystem::recursive_directory_iterator(kModels + "/" + folder)) {
            if (!entry.is_regular_file()) {
                continue;
            }
            const auto client = open(entry.path().string(), "/root/model");
            const std::string error = errorAt(client, "/root/model");
            EXPECT_EQ(error.empty(), countFrom(*client, "/root") > 2) << entry.path();
            imported += error.empty() ? 1 : 0;
        }
    }
    EXPECT_LT(20, imported);
}

TEST_F(ImportOp, IsShownByTheSceneThatComesWithIt) {
    if (!std::filesystem::exists(kModels)) {
        GTEST_SKIP() << "the Debian package assimp-testmodels is not there";
    }
    auto& settings = *Sylvar3::OvConfiguration::v1::Config();
    settings.set("SYLVAR_ASSET_PATH", kModels);
    const auto read = readAttributeFile(OV_TEST_SOURCE_DIR "/scenes/ops/import.optree.json");
    const auto op =
        castAttribute<GroupAttribute>(read.attribute).getChild<GroupAttribute>("spider");
    const auto client = open(op.getChild<GroupAttribute>("opArgs"));
    settings.unset("SYLVAR_ASSET_PATH");
    EXPECT_EQ(48, countFrom(*client, "/root"));
    EXPECT_THAT(logs.take(), IsEmpty());
}
