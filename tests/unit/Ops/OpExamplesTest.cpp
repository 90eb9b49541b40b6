// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/AttributeFile.h>
#include <SylvarPlatform/Configuration.h>
#include <SylvarPlatform/PluginManager.h>

#include "support/HeardLogs.h"
#include "support/OpTree.h"
#include "support/RuntimeWalk.h"
#include "support/StaticScene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

using namespace ovtest;
using namespace Sylvar3::internal::OvAttribute;
using Sylvar3::internal::OvPluginManager::PluginManager;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

const std::string kSource = OV_TEST_SOURCE_DIR;
const std::string kModels = "/usr/share/assimp/models";  // Debian's package assimp-testmodels

std::string contentOf(const std::string& file) {
    std::ostringstream content;
    content << std::ifstream(file).rdbuf();
    return content.str();
}

/// The examples of a page: what stands between "```json" and "```".
std::vector<std::string> examplesOf(const std::string& page) {
    const std::string begin = "```json\n";
    std::vector<std::string> examples;
    for (std::size_t at = page.find(begin); at != std::string::npos; at = page.find(begin, at)) {
        at += begin.size();
        examples.push_back(page.substr(at, page.find("```", at) - at));
    }
    return examples;
}

struct Text {
    std::string bytes;

    static long read(void* stream, void* buffer, long size) {
        std::string& bytes = static_cast<Text*>(stream)->bytes;
        const std::size_t count = std::min(static_cast<std::size_t>(size), bytes.size());
        std::memcpy(buffer, bytes.data(), count);
        bytes.erase(0, count);
        return static_cast<long>(count);
    }
};

std::shared_ptr<SylvarRuntime::Client> open(const std::string& text) {
    const auto runtime = Sylvar3::OvSylvarServicesHost::v1::Sylvar().createRuntime();
    const auto transaction = runtime->createTransaction();
    Text stream{text};
    const auto client = transaction->createClient();
    transaction->setClientOp(client, transaction->deserializeOps(&stream, Text::read));
    runtime->commit(transaction);
    return client;
}

/// Examples find one another's files in the folder of scenes, and the asset that the demo imports
/// in a folder with a small one of that name. Those of the op import need its plug-in and models.
class OpExamples : public testing::Test {
protected:
    OpExamples() {
        const std::string folder = std::string(OV_TEST_OUTPUT_DIR) + "/op_examples_assets";
        std::filesystem::create_directories(folder);
        EXPECT_EQ("",
                  writeAttributeFile(StaticScene().set("/root/part", "type", "mesh").group(),
                                     AttributeContent::StaticScene,
                                     AttributeForm::Binary,
                                     folder + "/asset.optree"));
        settings().set("SYLVAR_ASSET_PATH", kSource + "/scenes:" + folder + ":" + kModels);
        PluginManager::setSearchDirectories({OV_TEST_PLUGIN_DIR});
    }
    ~OpExamples() override {
        settings().unset("SYLVAR_ASSET_PATH");
        PluginManager::setSearchDirectories({});
    }

    static Sylvar3::OvConfiguration::v1::Configuration& settings() {
        return *Sylvar3::OvConfiguration::v1::Config();
    }
};

void expectToWork(const std::string& text) {
    if (text.find("\"opType\": \"import\"") != std::string::npos &&
        !std::filesystem::exists(kModels)) {
        std::cout << "Not tried without assimp-testmodels: " << text << '\n';
        return;
    }
    HeardLogs logs;
    const auto client = open(text);
    int count = 0;
    walkFrom(*client, "/root", [&](const std::string& path, const auto& location) {
        ++count;
        EXPECT_FALSE(location.getAttrs().getChildByName("errorMessage").isValid()) << path;
    });
    EXPECT_GT(count, 1) << text;
    EXPECT_THAT(logs.take(), IsEmpty()) << text;
}

}  // namespace

TEST_F(OpExamples, OfThePageOnOpsWork) {
    const std::vector<std::string> examples = examplesOf(contentOf(kSource + "/docs/ops.md"));
    EXPECT_LE(6U, examples.size());
    for (const std::string& example : examples) {
        expectToWork(example);
    }
}

TEST_F(OpExamples, OfEveryOpTypeAreThereAndWork) {
    rapidjson::Document registry;
    registry.Parse(
        query(*OpTree().op("g", "generate").open()->getRuntime(), "getAnonymousOpRegistry")
            .c_str());
    for (const auto& type : registry["opTypes"].GetArray()) {
        const std::string name = type["type"].GetString();
        SCOPED_TRACE(name);
        const std::string example = contentOf(kSource + "/scenes/ops/" + name + ".optree.json");
        EXPECT_THAT(example, HasSubstr("\"opType\": \"" + name + "\""));
        expectToWork(example);
    }
}

TEST_F(OpExamples, OfTheFolderOfScenesWork) {
    for (const char* const name : {"crowd", "room", "table"}) {
        SCOPED_TRACE(name);
        expectToWork(contentOf(kSource + "/scenes/" + name + ".optree.json"));
    }
}

TEST_F(OpExamples, LightEveryLampOfTheTable) {
    const auto client = open(contentOf(kSource + "/scenes/room.optree.json"));
    for (const char* const lamp : {"lamp1", "lamp2"}) {
        const GroupAttribute attributes =
            client->cookLocation(std::string("/root/room/world/table/") + lamp).getAttrs();
        EXPECT_EQ(1.5, attributes.getChild<DoubleAttribute>("light.exposure").getValue(0));
        EXPECT_LE(1.0, attributes.getChild<DoubleAttribute>("light.intensity").getValue(0));
    }
    EXPECT_EQ("the one in front",
              client->cookLocation("/root/crowd/c0/c1")
                  .getAttrs()
                  .getChild<StringAttribute>("label")
                  .getValue(""));
}
