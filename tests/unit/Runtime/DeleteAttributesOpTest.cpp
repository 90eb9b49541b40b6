// SPDX-License-Identifier: Apache-2.0
#include "support/LocationReading.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace ovtest;
using namespace Sylvar3::internal::OvAttribute;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

using Names = std::vector<std::string>;

StaticScene scene() {
    StaticScene scene;
    for (const char* const path : {"/root", "/root/a"}) {
        scene.set(path, "type", "mesh")
            .set(path, "geometry.points", 1)
            .set(path, "geometry.st", 2)
            .set(path, "value1", 3)
            .set(path, "value2", 4);
    }
    return scene;
}

std::shared_ptr<SylvarRuntime::Client> deleteAtA(const Names& names) {
    return openOver(
        scene(), "deleteAttributes", Args().set("paths", "/root/a").set("names", names));
}

}  // namespace

TEST(DeleteAttributes, RemovesAttributesByName) {
    const auto client = deleteAtA({"value1", "geometry"});
    EXPECT_THAT(namesAt(*client, "/root/a"), ElementsAre("type", "value2"));
    EXPECT_THAT(namesAt(*client, "/root"), ElementsAre("type", "geometry", "value1", "value2"));
}

TEST(DeleteAttributes, ReachesIntoGroups) {
    const auto client = deleteAtA({"geometry.st"});
    EXPECT_THAT(namesAt(*client, "/root/a"), ElementsAre("type", "geometry", "value1", "value2"));
    EXPECT_THAT(namesAt(*client, "/root/a", "geometry"), ElementsAre("points"));
}

TEST(DeleteAttributes, TakesPatternsForNames) {
    EXPECT_THAT(namesAt(*deleteAtA({"value*"}), "/root/a"), ElementsAre("type", "geometry"));
    EXPECT_THAT(namesAt(*deleteAtA({"*.{st,points}"}), "/root/a", "geometry"), ElementsAre());
    EXPECT_THAT(namesAt(*deleteAtA({"*"}), "/root/a"), ElementsAre());
}

TEST(DeleteAttributes, TakesOfOverlappingNamesTheWidest) {
    EXPECT_THAT(namesAt(*deleteAtA({"geometry.st", "geometry"}), "/root/a"),
                ElementsAre("type", "value1", "value2"));
}

TEST(DeleteAttributes, HandsOnWhatHasNoneOfThem) {
    const auto plain = OpTree().op("below", "scene", Args().set("tree", scene().group())).open();
    for (const char* const name : {"other", "geometry.other", "type.x", "geometry.st.x"}) {
        EXPECT_EQ(plain->cookLocation("/root/a").getAttrs().handle(),
                  deleteAtA({name})->cookLocation("/root/a").getAttrs().handle())
            << name;
    }
}

TEST(DeleteAttributes, KeepsGroupInherit) {
    const GroupAttribute group({{"x", IntAttribute(1)}, {"y", IntAttribute(2)}}, true);
    const auto client = openOver(StaticScene().set("/root", "g", group),
                                 "deleteAttributes",
                                 Args().set("paths", "/root").set("names", "g.x"));
    const auto left = castAttribute<GroupAttribute>(attributeAt(*client, "/root", "g"));
    EXPECT_EQ(1, left.getNumberOfChildren());
    EXPECT_TRUE(left.getGroupInherit());
}

TEST(DeleteAttributes, KeepsTheChildrenOfTheLocation) {
    const auto client =
        openOver(scene(), "deleteAttributes", Args().set("paths", "/root").set("names", "*"));
    EXPECT_THAT(pathsFrom(*client), ElementsAre("/root", "/root/a"));
}

TEST(DeleteAttributes, TellsWhatIsWrongWithAName) {
    EXPECT_THAT(errorAt(*deleteAtA({"a..b"}), "/root"),
                HasSubstr("attribute name \"a..b\": one of its pieces is empty"));
    EXPECT_THAT(errorAt(*deleteAtA({""}), "/root"),
                HasSubstr("attribute name \"\": one of its pieces is empty"));
    EXPECT_THAT(errorAt(*deleteAtA({"a[b"}), "/root"),
                HasSubstr("attribute name \"a[b\": a \"[\" without its \"]\""));
    std::string deep = "a";
    for (int i = 0; i < 40; ++i) {
        deep += ".a";
    }
    EXPECT_THAT(errorAt(*deleteAtA({deep}), "/root"), HasSubstr("it has more than 32 pieces"));
}
