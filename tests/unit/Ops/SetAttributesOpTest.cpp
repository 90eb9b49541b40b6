// SPDX-License-Identifier: Apache-2.0
#include "support/OpTree.h"
#include "support/RuntimeWalk.h"
#include "support/StaticScene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace ovtest;
using namespace Sylvar3::internal::OvAttribute;
using testing::HasSubstr;

namespace {

using Names = std::vector<std::string>;

/// A scene with x, g.x and g.y on each location, and the op over it.
std::shared_ptr<SylvarRuntime::Client> open(const Names& paths,
                                            const GroupAttribute& values,
                                            const char* mode) {
    StaticScene scene;
    for (const char* const path : {"/root", "/root/a", "/root/a/lamp1", "/root/b/lamp2"}) {
        scene.set(path, "x", 1).set(path, "g.x", 1).set(path, "g.y", 1);
    }
    return OpTree()
        .op("s", "scene", Args().set("tree", scene.group()))
        .op("set",
            "setAttributes",
            Args().set("paths", paths).set("values", values).set("mode", mode),
            {"s"})
        .open();
}

GroupAttribute values() {
    return GroupBuilder()
        .set("x", IntAttribute(2))
        .set("new", IntAttribute(2))
        .set("g.x", IntAttribute(2))
        .set("g.z", IntAttribute(2))
        .build();
}

/// x, new, g.x, g.y, g.z; -1 for what is not there.
std::vector<int> read(const SylvarRuntime::Client& client, const char* path) {
    std::vector<int> found;
    for (const char* const name : {"x", "new", "g.x", "g.y", "g.z"}) {
        found.push_back(
            client.cookLocation(path).getAttrs().getChild<IntAttribute>(name).getValue(-1));
    }
    return found;
}

}  // namespace

TEST(SetAttributes, ReplacesMergesOrAdds) {
    struct Row {
        const char* mode;
        std::vector<int> values;
    };
    for (const Row& row : {Row{"replace", {2, 2, 2, -1, 2}},
                           {"merge", {2, 2, 2, 1, 2}},
                           {"ifMissing", {1, 2, 1, 1, -1}}}) {
        const auto client = open({"/root/a"}, values(), row.mode);
        EXPECT_EQ(row.values, read(*client, "/root/a")) << row.mode;
        EXPECT_EQ((std::vector<int>{1, -1, 1, 1, -1}), read(*client, "/root/a/lamp1")) << row.mode;
        EXPECT_EQ((Names{"lamp1"}), childrenOf(client->cookLocation("/root/a"))) << row.mode;
    }
}

TEST(SetAttributes, SetsOnWhatItsPatternsMatch) {
    const auto client = open({"/root/**/lamp*", "!/root/b/**"}, values(), "replace");
    EXPECT_EQ(2, read(*client, "/root/a/lamp1").front());
    EXPECT_EQ(1, read(*client, "/root/b/lamp2").front());
    EXPECT_EQ(1, read(*client, "/root/a").front());
}

TEST(SetAttributes, HandsOnTheVeryLocationsThatItDoesNotMatch) {
    const auto client = open({"/root/a"}, values(), "replace");
    const auto plain = open({}, values(), "replace");
    EXPECT_EQ(plain->cookLocation("/root/b/lamp2").getAttrs().handle(),
              client->cookLocation("/root/b/lamp2").getAttrs().handle());
}

TEST(SetAttributes, HandsOnTheVeryLocationsThatMissNothing) {
    const GroupAttribute there = GroupBuilder().set("x", IntAttribute(9)).build();
    const auto client = open({"/root/a"}, there, "ifMissing");
    const auto plain = open({}, there, "ifMissing");
    EXPECT_EQ(plain->cookLocation("/root/a").getAttrs().handle(),
              client->cookLocation("/root/a").getAttrs().handle());
}

TEST(SetAttributes, LeavesGroupInheritAsItWas) {
    for (const bool inherits : {false, true}) {
        const GroupAttribute attributes({{"x", IntAttribute(1)}}, inherits);
        const GroupAttribute tree({{"a", attributes}}, false);
        const GroupAttribute others({{"x", IntAttribute(2)}}, !inherits);
        const auto client = OpTree()
                                .op("s", "scene", Args().set("tree", tree))
                                .op("set",
                                    "setAttributes",
                                    Args().set("paths", "/root").set("values", others),
                                    {"s"})
                                .open();
        EXPECT_EQ(2, read(*client, "/root").front());
        EXPECT_EQ(inherits, client->cookLocation("/root").getAttrs().getGroupInherit());
    }
}

TEST(SetAttributes, MakesNoLocations) {
    const auto client = open({"/root/c", "/root/**"}, values(), "replace");
    EXPECT_FALSE(client->cookLocation("/root/c").doesLocationExist());
    EXPECT_EQ(5, countFrom(*client, "/root"));
}

TEST(SetAttributes, LetsANullValueHideWhatWasThere) {
    const GroupAttribute hidden({{"x", Attribute()}}, false);
    const auto client = open({"/root/a"}, hidden, "replace");
    const GroupAttribute attributes = client->cookLocation("/root/a").getAttrs();
    EXPECT_FALSE(attributes.getChildByName("x").isValid());
    EXPECT_EQ("x", attributes.getChildName(0));
}

TEST(SetAttributes, TellsWhatIsWrongWithAPattern) {
    for (const char* const pattern :
         {"root/a", "", "/", "!/", "/root/[a", "/root/{a", "/root//a"}) {
        const auto client = open({"/root/a", pattern}, values(), "replace");
        EXPECT_THAT(client->cookLocation("/root")
                        .getAttrs()
                        .getChild<StringAttribute>("errorMessage")
                        .getValue(""),
                    HasSubstr("setAttributes (op 2 of 2), /root: pattern \"" +
                              std::string(pattern) + "\": "));
        EXPECT_EQ(1, read(*client, "/root/a").front());
    }
}
