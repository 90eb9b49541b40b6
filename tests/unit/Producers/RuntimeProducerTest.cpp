// SPDX-License-Identifier: Apache-2.0
#include "Producers/BaseGeometryProducer.h"
#include "unit/Producers/RuntimeProducers.h"

#include <cstddef>
#include <cstring>
#include <set>

using namespace SYLVAR;
using namespace Sylvar3::internal::OvAttribute;
using ovtest::Kind;
using ovtest::pathOf;
using testing::ElementsAre;

namespace {

using ovtest::RuntimeProducer;

template <class Function>
std::ptrdiff_t slotOf(Function function) {
    std::ptrdiff_t place = 0;
    std::memcpy(&place, &function, sizeof place);
    return (place - 1) / static_cast<std::ptrdiff_t>(sizeof(void*));
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(EveryKind,
                         RuntimeProducer,
                         testing::Values(Kind::ThreadAware, Kind::Sync, Kind::Async),
                         ovtest::nameOf);

TEST_P(RuntimeProducer, IsNullForAPathThatDoesNotBeginWithASlash) {
    at("").at("root").at("/root");
    for (const char* const path : {"", "root", "root/a", " /root"}) {
        EXPECT_EQ(nullptr, open(path)) << path;
        EXPECT_THAT(asked(), ElementsAre()) << path;
    }
}

TEST_P(RuntimeProducer, IsNullForALocationThatIsNotThere) {
    at("/root");
    EXPECT_EQ(nullptr, open("/other"));
    EXPECT_EQ(nullptr, open("/root/a"));
    fake.put("/gone", GroupBuilder().set("exists", IntAttribute(0)).build());
    cooked.emplace_back("/gone");
    EXPECT_EQ(nullptr, open("/gone"));
}

TEST_P(RuntimeProducer, IsMadeWithAllItsAncestorsFromTheTopDown) {
    at("/root").at("/root/a").at("/root/a/b");
    const GeometryProducerPtr b = open("/root/a/b");
    EXPECT_THAT(asked(), ElementsAre("/root", "/root/a", "/root/a/b"));
    EXPECT_EQ("/root/a/b", pathOf(b));
    EXPECT_EQ("/root/a", pathOf(b->parent));
    EXPECT_EQ("/root", pathOf(b->parent->parent));
    EXPECT_EQ(nullptr, b->parent->parent->parent);
}

TEST_P(RuntimeProducer, HasNoParentOnTheTop) {
    at("/root").at("/root/a").at("/");
    EXPECT_EQ(nullptr, open("/root")->parent);
    EXPECT_EQ(nullptr, open("/")->parent);
    EXPECT_EQ(nullptr, open("/root/a")->parent->parent);
}

TEST_P(RuntimeProducer, TakesEmptyNamesInAPathAsTheyStand) {
    at("/root").at("/root/").at("/").at("//a");
    EXPECT_EQ("/root", pathOf(open("/root/")->parent));
    EXPECT_EQ("", open("/root/")->getName());
    EXPECT_EQ("/", pathOf(open("//a")->parent));
}

TEST_P(RuntimeProducer, StopsAtTheFirstMissingLevel) {
    at("/root").at("/root/a/b/c");
    EXPECT_EQ(nullptr, open("/root/a/b/c"));
    EXPECT_THAT(asked(), ElementsAre("/root", "/root/a"));
}

TEST_P(RuntimeProducer, OpensALocationOfAThousandLevels) {
    std::string path;
    for (int i = 0; i < 1000; ++i) {
        path += "/x";
        at(path);
    }
    EXPECT_EQ(path, pathOf(open(path)));
}

TEST_P(RuntimeProducer, TellsNameAndPath) {
    at("/root").at("/root/a");
    EXPECT_EQ("a", open("/root/a")->getName());
    EXPECT_EQ("/root/a", open("/root/a")->getFullName());
    EXPECT_EQ("root", open("/root")->getName());
}

TEST_P(RuntimeProducer, GivesTheAttributesOfItsLocation) {
    at("/root");
    fake.set("/root", "type", StringAttribute("group")).set("/root", "a.b", IntAttribute(3));
    const GeometryProducerPtr root = open();
    EXPECT_EQ("group", root->getType());
    EXPECT_EQ(3, castAttribute<IntAttribute>(root->getAttribute("a.b")).getValue(0));
    EXPECT_FALSE(root->getAttribute("missing"));
    EXPECT_EQ(2, castAttribute<GroupAttribute>(root->getAttribute(nullptr)).getNumberOfChildren());
    EXPECT_EQ(root->getAttribute(nullptr).handle(), root->getAttribute("").handle());
}

TEST_P(RuntimeProducer, AddsTheNamesOfItsAttributesAsTheyAreStored) {
    at("/root");
    fake.put("/root",
             GroupBuilder(GroupBuilder::Mode::Flat)
                 .set("exists", IntAttribute(1))
                 .set("attrs", GroupAttribute({{"a%2Eb", Attribute()}, {"c.d", Attribute()}}, true))
                 .build());
    std::set<std::string> names{"before"};
    open()->getAttributeNames(&names);
    EXPECT_THAT(names, ElementsAre("a%2Eb", "before", "c.d"));
    open()->getAttributeNames(nullptr);
}

TEST_P(RuntimeProducer, HasNoAttributesAndChildrenWhenItsLocationTellsNone) {
    fake.put("/root", GroupBuilder().set("exists", IntAttribute(1)).build());
    cooked.emplace_back("/root");
    const GeometryProducerPtr root = open();
    std::set<std::string> names;
    root->getAttributeNames(&names);
    EXPECT_TRUE(names.empty());
    EXPECT_FALSE(root->getAttribute(""));
    EXPECT_FALSE(root->getAttribute("a"));
    EXPECT_FALSE(root->getPotentialChildren());
    EXPECT_EQ(nullptr, root->getFirstChild(false));
    EXPECT_EQ(nullptr, root->getChildByName("a", false));
}

TEST_P(RuntimeProducer, TellsTheHashOfItsLocation) {
    at("/root", {"a"}).at("/root/a");
    EXPECT_EQ(client->cookLocation("/root").getHash().str(), open()->getHash());
    EXPECT_NE(open()->getHash(), open()->getFirstChild(false)->getHash());
}

TEST_P(RuntimeProducer, ListsItsPotentialChildrenWhetherTheyExistOrNot) {
    at("/root", {"a", "b"});
    EXPECT_EQ("b", open()->getPotentialChildren().getValue("", 1));
}

TEST_P(RuntimeProducer, AsksTheRuntimeNothingForWhatItHolds) {
    at("/root", {"a"});
    const GeometryProducerPtr root = open();
    fake.take();
    std::set<std::string> names;
    root->getAttributeNames(&names);
    root->getAttribute("a");
    root->getHash();
    root->getPotentialChildren();
    root->getChildByName("missing", false);
    EXPECT_THAT(fake.take(), ElementsAre());
}

TEST_P(RuntimeProducer, KeepsShowingWhatWasCooked) {
    at("/root", {"a"}).at("/root/a");
    fake.set("/root", "version", IntAttribute(1));
    const GeometryProducerPtr root = open();
    const std::string hash = root->getHash();
    fake.at("/root").set("/root", "version", IntAttribute(2));
    EXPECT_EQ(1, castAttribute<IntAttribute>(root->getAttribute("version")).getValue(0));
    EXPECT_EQ(hash, root->getHash());
    EXPECT_EQ("/root/a", pathOf(root->getFirstChild(false)));
    EXPECT_EQ(2, castAttribute<IntAttribute>(open()->getAttribute("version")).getValue(0));
}

TEST_P(RuntimeProducer, GetsAnyLocationByItsPath) {
    at("/root").at("/other/place");
    const GeometryProducerPtr root = open();
    auto& base = static_cast<BaseGeometryProducer&>(*root);
    EXPECT_TRUE(base.cookChildLocation("/other/place", false).doesLocationExist());
    EXPECT_FALSE(base.cookChildLocation("/nowhere", false).doesLocationExist());
}

TEST_P(RuntimeProducer, KeepsItsOwnOperationsBehindThoseOfAnyProducer) {
    EXPECT_EQ(12, slotOf(&BaseGeometryProducer::cookChildLocation));
    EXPECT_EQ(13, slotOf(&BaseGeometryProducer::createProducer));
}

TEST_P(RuntimeProducer, InheritsAttributesDownItsChain) {
    at("/root", {"a"}).at("/root/a");
    fake.set("/root", "color", IntAttribute(5));
    EXPECT_EQ(
        5, castAttribute<IntAttribute>(open("/root/a")->getGlobalAttribute("color")).getValue(0));
}
