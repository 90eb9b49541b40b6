// SPDX-License-Identifier: Apache-2.0
#include "support/LocationReading.h"
#include "support/RuntimeCounts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace ovtest;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

using Names = std::vector<std::string>;

/// The scenes in turn, each in a "scene" of its own, and a mount of them.
std::shared_ptr<SylvarRuntime::Client> mount(const std::vector<StaticScene>& scenes,
                                             const Names& at) {
    OpTree tree;
    Names inputs;
    for (const StaticScene& scene : scenes) {
        inputs.push_back("s" + std::to_string(inputs.size()));
        tree.op(inputs.back(), "scene", Args().set("tree", scene.group()));
    }
    return tree.op("m", "mount", Args().set("at", at), inputs).open();
}

StaticScene room() {
    return StaticScene().set("/root", "is", "room").set("/root/table", "is", "table");
}

StaticScene lamp() {
    return StaticScene().set("/root", "is", "lamp").set("/root/bulb", "is", "bulb");
}

}  // namespace

TEST(Mount, PutsAFurtherInputAtAPath) {
    const auto client = mount({room(), lamp()}, {"/root/table/lamp"});
    EXPECT_THAT(pathsFrom(*client),
                ElementsAre("/root", "/root/table", "/root/table/lamp", "/root/table/lamp/bulb"));
    EXPECT_EQ("table", textAt(*client, "/root/table", "is"));
    EXPECT_EQ("lamp", textAt(*client, "/root/table/lamp", "is"));
}

TEST(Mount, TakesThePlaceOfWhatTheFirstInputHasThere) {
    const auto client = mount({room().at("/root/table/cup"), lamp()}, {"/root/table"});
    EXPECT_THAT(pathsFrom(*client), ElementsAre("/root", "/root/table", "/root/table/bulb"));
    EXPECT_EQ("lamp", textAt(*client, "/root/table", "is"));
}

TEST(Mount, MakesWhatIsMissingOnTheWay) {
    const auto client = mount({room(), lamp()}, {"/root/hall/shelf/lamp"});
    EXPECT_THAT(namesAt(*client, "/root/hall/shelf"), ElementsAre());
    EXPECT_THAT(childrenOf(client->cookLocation("/root")), ElementsAre("table", "hall"));
    EXPECT_EQ("bulb", textAt(*client, "/root/hall/shelf/lamp/bulb", "is"));
}

TEST(Mount, PutsAnInputBesideTheTopLocation) {
    const auto client = mount({room(), lamp()}, {"/world"});
    EXPECT_EQ("lamp", textAt(*client, "/world", "is"));
    EXPECT_EQ("room", textAt(*client, "/root", "is"));
}

TEST(Mount, LetsALaterInputLieOverAnEarlierOne) {
    const StaticScene inner = StaticScene().set("/root", "is", "inner");
    const auto inside = mount({room(), lamp(), inner}, {"/root/l", "/root/l/bulb"});
    EXPECT_EQ("inner", textAt(*inside, "/root/l/bulb", "is"));
    EXPECT_EQ("lamp", textAt(*inside, "/root/l", "is"));

    const auto over = mount({room(), inner, lamp()}, {"/root/l/bulb", "/root/l"});
    EXPECT_EQ("bulb", textAt(*over, "/root/l/bulb", "is"));
    EXPECT_THAT(childrenOf(over->cookLocation("/root/l")), ElementsAre("bulb"));

    const auto same = mount({room(), inner, lamp()}, {"/root/l", "/root/l"});
    EXPECT_EQ("lamp", textAt(*same, "/root/l", "is"));
}

TEST(Mount, ReachesDeepBelowAMountedInput) {
    const auto client = mount({room(), lamp(), lamp()}, {"/root/l", "/root/l/bulb/new/socket"});
    EXPECT_THAT(pathsFrom(*client, "/root/l"),
                ElementsAre("/root/l",
                            "/root/l/bulb",
                            "/root/l/bulb/new",
                            "/root/l/bulb/new/socket",
                            "/root/l/bulb/new/socket/bulb"));
    EXPECT_EQ("bulb", textAt(*client, "/root/l/bulb", "is"));
}

TEST(Mount, CooksTheOneInputThatHasTheLocation) {
    const auto client =
        OpTree()
            .op("g", "generate", Args().set("seed", 4101))
            .op("s", "scene", Args().set("tree", StaticScene().at("/root/only_here").group()))
            .op("m", "mount", Args().set("at", "/root/mounted"), {"g", "s"})
            .open();
    client->cookLocation("/root");
    const auto cooks = cooksDuring(*client, "generate", [&] {
        EXPECT_TRUE(client->cookLocation("/root/mounted/only_here").doesLocationExist());
        EXPECT_FALSE(client->cookLocation("/root/mounted/c0").doesLocationExist());
    });
    EXPECT_EQ(0, cooks);
}

TEST(Mount, IsAbsentWhereItsInputIs) {
    const auto client = OpTree()
                            .op("s", "scene", Args().set("tree", room().group()))
                            .op("t", "scene", Args().set("tree", lamp().group()).set("at", "/x"))
                            .op("m", "mount", Args().set("at", "/root/l"), {"s", "t"})
                            .open();
    EXPECT_THAT(pathsFrom(*client), ElementsAre("/root", "/root/table"));
}

TEST(Mount, TakesThousandsOfInputs) {
    Names at;
    for (int i = 0; i < 3000; ++i) {
        at.push_back("/root/row" + std::to_string(i / 100) + "/lamp" + std::to_string(i));
    }
    std::vector<StaticScene> scenes(at.size(), lamp());
    scenes.insert(scenes.begin(), room());
    const auto client = mount(scenes, at);
    EXPECT_EQ(2 + 30 + 2 * 3000, countFrom(*client, "/root"));
}

TEST(Mount, TellsWhatIsWrongWithItsArguments) {
    EXPECT_THAT(errorAt(*mount({room(), lamp()}, {"/root/a", "/root/b"}), "/root/a"),
                HasSubstr("argument \"at\": expected one path for each input behind the first, 1 "
                          "of them, found 2"));
    const auto client = mount({room(), lamp()}, {"lamp"});
    EXPECT_THAT(errorAt(*client, "/root"),
                HasSubstr("argument \"at\": expected a location's path such as /root/world, found "
                          "\"lamp\""));
    EXPECT_EQ("table", textAt(*client, "/root/table", "is"));
    EXPECT_THAT(errorAt(*mount({room()}, {}), "/root"), HasSubstr("needs at least 2"));
}
