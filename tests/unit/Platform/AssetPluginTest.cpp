// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/AssetPlugin.h>
#include <SylvarPlatform/Configuration.h>

#include <gtest/gtest.h>

#include <climits>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

using namespace Sylvar3::OvAssetHost::v1;
using Sylvar3::OvConfiguration::v1::Config;

std::string resolved(const std::string& assetId, int frame = 7) {
    AssetPlugin* const plugin = OvAssetPluginManager::getDefaultAssetPlugin();
    const std::string answer = plugin->resolveAsset(assetId, frame, true);
    EXPECT_EQ(answer, plugin->resolveAsset(assetId, frame, false)) << "the flag changes nothing";
    return answer;
}

TEST(DefaultAssetPlugin, FillsInFrameNumbers) {
    struct Row {
        const char* assetId;
        int frame;
        const char* path;
    };
    for (const Row& row : {Row{"/a.####.exr", 7, "/a.0007.exr"},
                           {"/a.##.exr", 12345, "/a.12345.exr"},
                           {"/a.####.exr", -7, "/a.-007.exr"},
                           {"/##/a.###", 3, "/03/a.003"},
                           {"/a.%d.exr", 7, "/a.7.exr"},
                           {"/a.%04d.exr", 7, "/a.0007.exr"},
                           {"/a.%04d.exr", -7, "/a.-007.exr"},
                           {"/a.%012d", INT_MIN, "/a.-02147483648"},
                           {"%01d", 7, "7"}}) {
        EXPECT_EQ(row.path, resolved(row.assetId, row.frame)) << row.assetId;
    }
    EXPECT_EQ("/" + std::string(99, '0'), resolved("/%099d", 0));
}

TEST(DefaultAssetPlugin, LeavesAllOtherFormsAsTheyAre) {
    for (const char* assetId :
         {"",         "plain",  "#",      "a#b#c",       "#ff",       "%",     "%%",
          "%%d",      "%s%s%s", "%n",     "%x",          "%4d",       "%-4d",  "%0",
          "%04",      "%0d",    "%00d",   "%0100d",      "%0999999d", "%04ld", "%1$d",
          "100% dry", "%*d",    "/abs/a", "/root/a.b/c", "a b"}) {
        EXPECT_EQ(assetId, resolved(assetId)) << assetId;
    }
    const std::string withNul("a\0b", 3);
    EXPECT_EQ(withNul, resolved(withNul));
}

/// Two directories on the search path; only the first has "a/both", only the second "second.0007".
class AssetSearch : public testing::Test {
protected:
    AssetSearch() {
        for (const std::string& file :
             {first + "/a/both", second + "/a/both", second + "/second.0007"}) {
            std::filesystem::create_directories(std::filesystem::path(file).parent_path());
            std::ofstream(file) << "x";
        }
        Config()->set("SYLVAR_ASSET_PATH", ":/no/such/directory::" + first + ":" + second + ":");
    }
    ~AssetSearch() override { Config()->unset("SYLVAR_ASSET_PATH"); }

    const std::string first = OV_TEST_OUTPUT_DIR "/assets/first";
    const std::string second = OV_TEST_OUTPUT_DIR "/assets/second";
};

TEST_F(AssetSearch, TakesTheFirstDirectoryThatHasIt) {
    EXPECT_EQ(first + "/a/both", resolved("a/both"));
    EXPECT_EQ(second + "/second.0007", resolved("second.####"));
    EXPECT_EQ("second.0008", resolved("second.####", 8));
}

TEST_F(AssetSearch, LeavesWhatIsAbsoluteOrNowhere) {
    EXPECT_EQ("/a/both", resolved("/a/both"));
    EXPECT_EQ("nowhere", resolved("nowhere"));
    EXPECT_EQ("", resolved(""));
    const std::string withNul("a/both\0x", 8);
    EXPECT_EQ(withNul, resolved(withNul));
    const std::string tooLong(100000, 'x');
    EXPECT_EQ(tooLong, resolved(tooLong));
}

struct OtherPlugin : AssetPlugin {
    std::string resolveAsset(const std::string& assetId, int frame, bool flag) override {
        return assetId + std::to_string(frame) + (flag ? "t" : "f");
    }
};

TEST(OvAssetPluginManager, MakesAnotherPluginTheDefaultUntilNullIsSet) {
    static OtherPlugin other;
    AssetPlugin* const ours = OvAssetPluginManager::getDefaultAssetPlugin();
    OvAssetPluginManager::setDefaultAssetPlugin(&other);
    EXPECT_EQ(&other, OvAssetPluginManager::getDefaultAssetPlugin());
    EXPECT_EQ("a7t", OvAssetPluginManager::getDefaultAssetPlugin()->resolveAsset("a", 7, true));
    OvAssetPluginManager::setDefaultAssetPlugin(nullptr);
    EXPECT_EQ(ours, OvAssetPluginManager::getDefaultAssetPlugin());
}

}  // namespace
