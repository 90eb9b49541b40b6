// SPDX-License-Identifier: Apache-2.0
#include "plugins/ImportOp/ImportOp.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace ovtest;
using testing::HasSubstr;

namespace {

/// The height of the one triangle of a scene.
float heightIn(const SylvarRuntime::Client& client, const std::string& mesh) {
    return client.cookLocation(mesh)
        .getAttrs()
        .getChild<Sylvar3::internal::OvAttribute::FloatAttribute>("geometry.points")
        .getValue(0.0F, 7);
}

}  // namespace

TEST_F(ImportOp, SeesAChangedFileAfterAnEvictAndNotBefore) {
    TestFile file("import_changed.obj");
    file.writeBytes(triangle("part", "1"));
    const auto client = open(file.path());
    const auto other = open(file.path(), "/root/other");
    const std::string mesh = findType(client, "/root", "mesh");
    const std::string otherMesh = findType(other, "/root/other", "mesh");
    EXPECT_EQ(1.0F, heightIn(*client, mesh));
    file.writeBytes(triangle("part", "20"));
    EXPECT_EQ(1.0F, heightIn(*client, mesh));
    client->getRuntime()->evict("/root/elsewhere");
    EXPECT_EQ(20.0F, heightIn(*client, mesh));
    EXPECT_EQ(20.0F, heightIn(*other, otherMesh));
}

TEST_F(ImportOp, SeesAChangedFileInARuntimeThatIsMadeLater) {
    TestFile file("import_later.obj");
    file.writeBytes(triangle("part", "1"));
    const auto first = open(file.path());
    const std::string mesh = findType(first, "/root", "mesh");
    file.writeBytes(triangle("part", "20"));
    const auto second = open(file.path());
    EXPECT_EQ(20.0F, heightIn(*second, mesh));
    EXPECT_EQ(1.0F, heightIn(*first, mesh));
}

TEST_F(ImportOp, ParsesNothingAgainAfterAnEvictThatFindsNoChange) {
    TestFile file("import_unchanged.obj");
    file.writeBytes(triangle());
    const auto client = open(file.path());
    const std::string mesh = findType(client, "/root", "mesh");
    const int parsed = host.floatsMade();
    client->getRuntime()->evict("/root");
    EXPECT_EQ(1.0F, heightIn(*client, mesh));
    EXPECT_EQ(parsed, host.floatsMade());
}

TEST_F(ImportOp, MissesADeletedFileAfterAnEvictAndFindsItAgain) {
    TestFile file("import_deleted.obj");
    file.writeBytes(triangle());
    const auto client = open(file.path());
    const std::string mesh = findType(client, "/root", "mesh");
    file.remove();
    EXPECT_TRUE(isThere(client, mesh));
    client->getRuntime()->evict("/root");
    EXPECT_THAT(errorAt(client, "/root"), HasSubstr("there is no such file"));
    file.writeBytes(triangle());
    EXPECT_FALSE(isThere(client, mesh));
    client->getRuntime()->evict("/root");
    EXPECT_TRUE(isThere(client, mesh));
}

TEST_F(ImportOp, IsAnErrorWhereAFileChangesWhileItIsRead) {
    TestFile file("import_while_read.obj");
    file.writeBytes(triangle("part", "1"));
    const auto client = open(file.path());
    // Once when it is found, and once when it has been read.
    host.beforeIdentity(1, [&] { file.writeBytes(triangle("part", "20")); });
    EXPECT_THAT(errorAt(client, "/root"),
                HasSubstr("import_while_read.obj: it changed while it was read"));
    client->getRuntime()->evict("/root");
    EXPECT_EQ("", errorAt(client, "/root"));
    EXPECT_EQ(20.0F, heightIn(*client, findType(client, "/root", "mesh")));
}
