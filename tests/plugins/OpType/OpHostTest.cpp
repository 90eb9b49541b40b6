// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/AssetPlugin.h>
#include <SylvarPlatform/Configuration.h>
#include <SylvarPlatform/suites/HostTable.h>
#include <SylvarPlatform/suites/OpType.h>

#include "support/OpTreeFile.h"

#include <gtest/gtest.h>

#include <string>

using namespace ovtest;

namespace {

const OvOpHost& host() {
    return *static_cast<const OvOpHost*>(
        OvGetHostTable()->findSuite(OV_OP_HOST_SUITE_NAME, OV_OP_HOST_SUITE_VERSION));
}

std::string identityOf(const std::string& path) {
    std::string text(4096, '\0');
    const auto length = host().getFileIdentity(path.c_str(), text.data(), text.size());
    return text.substr(0, static_cast<std::size_t>(length));
}

}  // namespace

TEST(OpHost, KnowsThePathsOfLocations) {
    for (const char* const path : {"/root", "/root/a b/c"}) {
        EXPECT_EQ(1, host().isLocationPath(path)) << path;
    }
    for (const char* const text : {"", "/", "root", "/root/", "//root"}) {
        EXPECT_EQ(0, host().isLocationPath(text)) << text;
    }
    EXPECT_EQ(0, host().isLocationPath(nullptr));
}

TEST(OpHost, ResolvesAssetsIntoABufferOfAnySize) {
    TestFile file("op_host_asset.txt");
    file.writeBytes("something");
    auto& settings = *Sylvar3::OvConfiguration::v1::Config();
    settings.set("SYLVAR_ASSET_PATH", OV_TEST_OUTPUT_DIR);
    char buffer[4096];
    char small[4] = "???";
    const auto length = static_cast<std::int64_t>(file.path().size());
    EXPECT_EQ(length, host().resolveAsset("op_host_asset.txt", buffer, sizeof buffer));
    EXPECT_EQ(length, host().resolveAsset("op_host_asset.txt", small, sizeof small));
    EXPECT_EQ(length, host().resolveAsset("op_host_asset.txt", nullptr, 0));
    settings.unset("SYLVAR_ASSET_PATH");
    EXPECT_EQ(file.path(), buffer);
    EXPECT_EQ(file.path().substr(0, 3), small);
    EXPECT_EQ(-1, host().resolveAsset(nullptr, buffer, sizeof buffer));
}

TEST(OpHost, TellsFilesApart) {
    TestFile file("op_host_identity");
    TestFile other("op_host_identity_other");
    const std::string missing = identityOf(file.path());
    EXPECT_NE("", missing);
    EXPECT_NE(missing, identityOf(other.path()));
    file.writeBytes("1");
    const std::string first = identityOf(file.path());
    EXPECT_NE(missing, first);
    EXPECT_EQ(first, identityOf(file.path()));
    file.writeBytes("22");
    EXPECT_NE(first, identityOf(file.path()));
    EXPECT_EQ(-1, host().getFileIdentity(nullptr, nullptr, 0));
}
