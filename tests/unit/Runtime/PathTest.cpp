// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/DelimiterCodec.h>

#include "support/OpTree.h"
#include "support/RuntimeWalk.h"

#include <gtest/gtest.h>

using namespace ovtest;
using namespace Sylvar3::internal::OvAttribute;

TEST(LocationPath, IsFoundAsItStandsOrIsAbsent) {
    struct Row {
        std::string path;
        bool isThere;
    };
    const auto client = OpTree().op("g", "generate", Args().set("depth", 2)).open();
    const std::string nul(1, '\0');
    for (const Row& row : {Row{"/root", true},
                           {"/root/c0", true},
                           {"/root/c31/c31", true},
                           {"", false},
                           {"/", false},
                           {"//", false},
                           {"root", false},
                           {"root/c0", false},
                           {"/roo", false},
                           {"/rootc0", false},
                           {"/root/", false},
                           {"/root//", false},
                           {"//root", false},
                           {"/root//c0", false},
                           {"/root/c0/", false},
                           {"/root/c00", false},
                           {"/root/c32", false},
                           {"/root/c0/c0/c0", false},
                           {"/root/../root", false},
                           {"/./root", false},
                           {"/root" + nul, false},
                           {nul, false},
                           {"/" + nul, false},
                           {std::string(200000, '/'), false},
                           {"/" + std::string(200000, 'x'), false},
                           {"/root/" + std::string(200000, 'x'), false}}) {
        for (int time = 0; time < 2; ++time) {
            EXPECT_EQ(row.isThere, client->cookLocation(row.path).doesLocationExist())
                << row.path.substr(0, 40);
            const auto cached = client->getCachedLocation(row.path);
            EXPECT_EQ(row.isThere, cached.second && cached.first.doesLocationExist())
                << row.path.substr(0, 40);
        }
        client->getRuntime()->evict(row.path);
    }
}

TEST(LocationPath, MayBeThousandsOfNamesLong) {
    constexpr int kDepth = 5000;
    const auto client =
        OpTree().op("g", "generate", Args().set("shape", "deep").set("depth", kDepth)).open();
    std::string path = "/root";
    for (int i = 0; i < kDepth; ++i) {
        path += "/c0";
    }
    EXPECT_TRUE(client->cookLocation(path).doesLocationExist());
    EXPECT_FALSE(client->cookLocation(path + "/c0").doesLocationExist());
    client->getRuntime()->evict("/root");
    EXPECT_FALSE(client->getCachedLocation(path).second);
}

TEST(LocationPath, MayHoldEveryByteButSlashAndNul) {
    GroupBuilder children(GroupBuilder::Mode::Flat);
    std::vector<std::string> names;
    for (int byte = 1; byte < 256; ++byte) {
        const std::string name(1, static_cast<char>(byte));
        if (name != "/") {
            names.push_back(name);
            children.set(DelimiterEncode(name), GroupAttribute({}, false));
        }
    }
    const GroupAttribute tree({{"c", children.build()}}, false);
    const auto client = OpTree().op("s", "scene", Args().set("tree", tree)).open();
    EXPECT_EQ(names, childrenOf(client->cookLocation("/root")));
    for (const std::string& name : names) {
        EXPECT_TRUE(client->cookLocation("/root/" + name).doesLocationExist()) << name;
        EXPECT_FALSE(client->cookLocation("/root/" + name + name).doesLocationExist()) << name;
    }
}

TEST(LocationPath, FindsEachOfAHundredThousandSiblings) {
    constexpr int kCount = 100000;
    const auto client =
        OpTree()
            .op("g",
                "generate",
                Args().set("shape", "wide").set("breadth", kCount).set("attributes", 0))
            .open();
    const std::vector<std::string> names = childrenOf(client->cookLocation("/root"));
    ASSERT_EQ(static_cast<std::size_t>(kCount), names.size());
    // From the back, and in great steps: no name is next to the one that was found before.
    for (std::size_t i = names.size(); i > 100; i -= 101) {
        EXPECT_TRUE(client->cookLocation("/root/" + names[i - 1]).doesLocationExist());
    }
    EXPECT_FALSE(client->cookLocation("/root/c" + std::to_string(kCount)).doesLocationExist());
}
