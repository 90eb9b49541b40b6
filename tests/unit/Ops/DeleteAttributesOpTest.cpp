// SPDX-License-Identifier: Apache-2.0
#include "support/LocationReading.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

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

TEST(DeleteAttributes, TakesAStarForNoMoreThanOneName) {
    EXPECT_THAT(namesAt(*deleteAtA({"**"}), "/root/a"), ElementsAre());
    EXPECT_THAT(namesAt(*deleteAtA({"**.st"}), "/root/a", "geometry"), ElementsAre("points"));
    EXPECT_THAT(namesAt(*deleteAtA({"**.**.st"}), "/root/a", "geometry"),
                ElementsAre("points", "st"));
}

TEST(DeleteAttributes, TakesANameWithDotsOrSlashesAsOne) {
    const GroupAttribute group({{"x.y", IntAttribute(1)}, {"x/y", IntAttribute(2)}}, false);
    const auto left = [&](const char* const name) {
        const auto client = openOver(StaticScene().set("/root", "g", group),
                                     "deleteAttributes",
                                     Args().set("paths", "/root").set("names", name));
        return namesAt(*client, "/root", "g");
    };
    EXPECT_THAT(left("g.x.y"), ElementsAre("x.y", "x/y"));
    EXPECT_THAT(left("g.x/y"), ElementsAre("x.y"));
    EXPECT_THAT(left("g.x?y"), ElementsAre());
}

TEST(DeleteAttributes, TakesVeryManyNames) {
    StaticScene scene;
    Names names;
    for (int i = 0; i < 2000; ++i) {
        const std::string number = std::to_string(i);
        const std::string group = "group" + std::to_string(i % 10);
        scene.set("/root", group + ".in" + number, i).set("/root", "own" + number, i);
        const Names kinds = {
            group + ".in" + number, "own" + number, "*.[ij]n" + number, "{own,other}" + number};
        names.push_back(kinds[static_cast<std::size_t>(i) % kinds.size()]);
    }
    const auto client =
        openOver(scene, "deleteAttributes", Args().set("paths", "/root").set("names", names));
    for (int i = 0; i < 2000; ++i) {
        const bool isOwn = i % 2 == 1;
        const std::string number = std::to_string(i);
        const std::string group = "group" + std::to_string(i % 10);
        EXPECT_EQ(isOwn ? i : -1, intAt(*client, "/root", group + ".in" + number)) << i;
        EXPECT_EQ(isOwn ? -1 : i, intAt(*client, "/root", "own" + number)) << i;
    }
}

TEST(DeleteAttributes, RefusesNamesWhoseBracesStandForTooMuch) {
    const std::string ten = "{0,1,2,3,4,5,6,7,8,9}";
    const Names names(100, ten + ten + ten + std::string(200, 'x'));
    EXPECT_THAT(errorAt(*deleteAtA(names), "/root"),
                HasSubstr("with it the list's braces stand for more than 16777216 bytes"));
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

TEST(DeleteAttributes, GivesUpWhereGroupsStandInVeryManyPlaces) {
    Attribute group = IntAttribute(1);
    std::string name = "g";
    for (int level = 0; level < 25; ++level) {
        group = GroupAttribute({{"a", group}, {"b", group}}, false);
        name += ".*";
    }
    const auto client = openOver(StaticScene().set("/root", "g", group),
                                 "deleteAttributes",
                                 Args().set("paths", "/root").set("names", name + ".none"));
    EXPECT_THAT(errorAt(*client, "/root"), HasSubstr("more than 100000 groups lie in one another"));
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
