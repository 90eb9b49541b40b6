// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/StaticGeometryProducer.h>
#include <SylvarPlatform/SampleAccessor.h>

#include "support/HeardLogs.h"
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

std::shared_ptr<SylvarRuntime::Client> open(const GroupAttribute& tree, const char* at = "/root") {
    return OpTree().op("s", "scene", Args().set("tree", tree).set("at", at)).open();
}

/// A top location with these children.
GroupAttribute withChildren(const std::vector<GroupAttribute::Child>& children) {
    return GroupAttribute({{"c", GroupAttribute(children, false)}}, false);
}

std::string errorAt(const SylvarRuntime::Client& client, const std::string& path) {
    return client.cookLocation(path)
        .getAttrs()
        .getChild<StringAttribute>("errorMessage")
        .getValue("");
}

/// "path hash", without the hash where there are no attributes.
std::string lineOf(const std::string& path, const Attribute& attributes) {
    const auto group = castAttribute<GroupAttribute>(attributes);
    return group.getNumberOfChildren() == 0 ? path : path + " " + group.getHash().str();
}

/// The line of each location, children after their parent.
Names walked(const SYLVAR::GeometryProducerPtr& top) {
    Names lines;
    std::vector<SYLVAR::GeometryProducerPtr> pending = {top};
    while (!pending.empty()) {
        const SYLVAR::GeometryProducerPtr here = pending.back();
        pending.pop_back();
        lines.push_back(lineOf(here->getFullName(), here->getAttribute("")));
        const SampleAccessor<StringAttribute> children(here->getPotentialChildren(), 0.0F);
        const Names names(children.begin(), children.end());
        for (auto name = names.rbegin(); name != names.rend(); ++name) {
            pending.push_back(here->getChildByName(name->c_str(), false));
        }
    }
    return lines;
}

}  // namespace

TEST(Scene, HasTheLocationsOfItsTree) {
    const StaticScene scene = StaticScene()
                                  .set("/root", "type", "group")
                                  .set("/root/a", "type", "mesh")
                                  .at("/root/a/b")
                                  .at("/root/c");
    const auto client = open(scene.group());
    EXPECT_EQ((Names{"a", "c"}), childrenOf(client->cookLocation("/root")));
    EXPECT_EQ(4, countFrom(*client, "/root"));
    const GroupAttribute attributes = client->cookLocation("/root/a").getAttrs();
    EXPECT_EQ("mesh", attributes.getChild<StringAttribute>("type").getValue(""));
    EXPECT_EQ(0, client->cookLocation("/root/a/b").getAttrs().getNumberOfChildren());
}

TEST(Scene, HandsOnTheVeryAttributesOfItsTree) {
    const GroupAttribute tree = StaticScene().set("/root/a", "x", 1).group();
    EXPECT_EQ(tree.getChildByName("c.a.a").handle(),
              open(tree)->cookLocation("/root/a").getAttrs().handle());
}

TEST(Scene, StandsWhereItIsTold) {
    const auto client = open(StaticScene().set("/x/a", "k", 1).group(), "/world/set/chair");
    EXPECT_FALSE(client->cookLocation("/root").doesLocationExist());
    EXPECT_EQ((Names{"set"}), childrenOf(client->cookLocation("/world")));
    EXPECT_EQ((Names{"chair"}), childrenOf(client->cookLocation("/world/set")));
    EXPECT_EQ((Names{"a"}), childrenOf(client->cookLocation("/world/set/chair")));
    EXPECT_FALSE(client->cookLocation("/world/set/chairs").doesLocationExist());
    EXPECT_FALSE(client->cookLocation("/world/set/chai").doesLocationExist());
    EXPECT_EQ(4, countFrom(*client, "/world"));
}

TEST(Scene, DecodesTheNamesOfChildren) {
    const GroupAttribute leaf({}, false);
    const auto client = open(withChildren(
        {{"a%2Eb", leaf}, {"100%25", leaf}, {"odd%zz", leaf}, {"a.c", leaf}, {"%41", leaf}}));
    EXPECT_EQ((Names{"a.b", "100%", "odd%zz", "a.c", "A"}),
              childrenOf(client->cookLocation("/root")));
    EXPECT_EQ(6, countFrom(*client, "/root"));
    EXPECT_FALSE(client->cookLocation("/root/a%2Eb").doesLocationExist());
    EXPECT_FALSE(client->cookLocation("/root/%41").doesLocationExist());
}

TEST(Scene, FindsAnyKeyThatDecodesToTheName) {
    const auto marked = [](int mark) {
        return GroupAttribute({{"a", GroupAttribute({{"mark", IntAttribute(mark)}}, false)}},
                              false);
    };
    // The key "%2e" is "." in lower case; the key "%25%41" is the name "%A", and not "%41".
    const auto client = open(withChildren({{"%61", marked(1)},
                                           {"b%2e", marked(2)},
                                           {"%25%41", marked(3)},
                                           {"%2541", marked(4)},
                                           {"odd%zz", marked(5)},
                                           {"odd%25z", marked(6)}}));
    int expected = 0;
    for (const char* const name : {"a", "b.", "%A", "%41", "odd%zz", "odd%z"}) {
        const auto location = client->cookLocation(std::string("/root/") + name);
        EXPECT_EQ(++expected, location.getAttrs().getChild<IntAttribute>("mark").getValue(0))
            << name;
    }
    EXPECT_FALSE(client->cookLocation("/root/%61").doesLocationExist());
}

TEST(Scene, FindsEachOfManyEncodedSiblings) {
    constexpr int kCount = 20000;
    std::vector<GroupAttribute::Child> children;
    for (int i = 0; i < kCount; ++i) {
        const GroupAttribute attributes({{"mark", IntAttribute(i)}}, false);
        children.emplace_back("n%2E" + std::to_string(i),
                              GroupAttribute({{"a", attributes}}, false));
    }
    const auto client = open(withChildren(children));
    int wrong = 0;
    int count = 0;
    walkFrom(*client, "/root", [&](const std::string& path, const auto& location) {
        const int mark = location.getAttrs().template getChild<IntAttribute>("mark").getValue(-1);
        wrong += path != "/root" && path != "/root/n." + std::to_string(mark);
        ++count;
    });
    EXPECT_EQ(1 + kCount, count);
    EXPECT_EQ(0, wrong);
}

TEST(Scene, RefusesTwoChildrenOfOneName) {
    HeardLogs logs;
    const GroupAttribute leaf({}, false);
    const GroupAttribute twins = withChildren({{"A", leaf}, {"%41", leaf}});
    const auto client = open(withChildren({{"good", leaf}, {"bad", twins}}));
    EXPECT_EQ("scene (op 1 of 1), /root/bad: two children are named \"A\"",
              errorAt(*client, "/root/bad"));
    EXPECT_FALSE(client->cookLocation("/root/bad/A").doesLocationExist());
    EXPECT_EQ(3, countFrom(*client, "/root"));
}

TEST(Scene, RefusesNamesThatNoPathCanHold) {
    HeardLogs logs;
    const GroupAttribute leaf({}, false);
    for (const std::string& key : {std::string(),
                                   std::string("a%2Fb"),
                                   std::string("a/b"),
                                   std::string("a%00b"),
                                   std::string("a\0b", 3)}) {
        const auto client = open(withChildren({{"good", leaf}, {key, leaf}}));
        EXPECT_THAT(errorAt(*client, "/root"), HasSubstr("has a name that no path can hold"))
            << key;
        EXPECT_EQ(1, countFrom(*client, "/root")) << key;
    }
}

TEST(Scene, TakesAChildThatIsNoGroupForOneWithNothingInIt) {
    const auto client = open(withChildren({{"number", IntAttribute(1)}, {"none", Attribute()}}));
    EXPECT_EQ(3, countFrom(*client, "/root"));
    EXPECT_EQ(0, client->cookLocation("/root/number").getAttrs().getNumberOfChildren());
}

TEST(Scene, IsTheSceneThatAStaticProducerShows) {
    StaticScene scene = StaticScene().set("/root", "type", "group").set("/root", "k.l", 3);
    for (int i = 0; i < 20; ++i) {
        const std::string path = "/root/n" + std::to_string(i % 4) + "/m" + std::to_string(i);
        scene.set(path, "type", "mesh").set(path, "geometry.index", i).at(path + "/leaf");
    }
    const GroupAttribute tree = scene.group();
    Names cooked;
    walkFrom(*open(tree), "/root", [&](const std::string& path, const auto& location) {
        cooked.push_back(lineOf(path, location.getAttrs()));
    });
    EXPECT_EQ(45U, cooked.size());
    EXPECT_EQ(walked(SYLVAR::CreateStaticGeometryProducer("/root", tree, nullptr)), cooked);
}
