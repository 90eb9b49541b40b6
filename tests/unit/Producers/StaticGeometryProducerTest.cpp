// SPDX-License-Identifier: Apache-2.0
#include "Producers/StaticGeometryProducer.h"

#include "support/FakeProducer.h"
#include "support/StaticScene.h"

#include <gtest/gtest.h>

#include <set>
#include <stdexcept>
#include <string>
#include <vector>

using namespace SYLVAR;
using namespace Sylvar3::internal::OvAttribute;
using ovtest::StaticScene;

namespace {

using Names = std::vector<std::string>;

Names textsOf(const StringAttribute& list) {
    Names texts;
    for (std::int64_t i = 0; i < list.getNumberOfValues(); ++i) {
        texts.push_back(list.getValue("none", i));
    }
    return texts;
}

std::set<std::string> attributeNamesOf(const GeometryProducerPtr& producer) {
    std::set<std::string> names;
    producer->getAttributeNames(&names);
    return names;
}

std::string pathOf(const GeometryProducerPtr& producer) {
    return producer ? producer->getFullName() : "none";
}

GeometryProducerPtr bare() {
    return CreateStaticGeometryProducer("/root", GroupAttribute({}, false), nullptr);
}

/// /root with the children a (a group, with a child b), text (a string) and z.
StaticScene family() {
    return StaticScene()
        .at("/root/a/b")
        .replaceBy("/root/text", StringAttribute("x"))
        .at("/root/z");
}

}  // namespace

TEST(CreateStaticGeometryProducer, NeedsAGroupAndAPathThatBeginsWithASlash) {
    const GroupAttribute group({}, false);
    struct Row {
        const char* path;
        GroupAttribute group;
        bool isMade;
    };
    for (const Row& row : {Row{"", group, false},
                           Row{"root", group, false},
                           Row{"root/", group, false},
                           Row{"/root", GroupAttribute(), false},
                           Row{"", GroupAttribute(), false},
                           Row{"/", group, true},
                           Row{"/root", group, true},
                           Row{"//", group, true}}) {
        const auto made = CreateStaticGeometryProducer(row.path, row.group, nullptr);
        EXPECT_EQ(row.isMade, made != nullptr) << row.path;
    }
}

TEST(CreateStaticGeometryProducer, TakesAnyParentWithoutATest) {
    const GeometryProducerPtr parent = bare();
    const auto made =
        CreateStaticGeometryProducer("/elsewhere/x", GroupAttribute({}, false), parent);
    EXPECT_EQ(parent, made->parent);
    EXPECT_EQ("/elsewhere/x", made->getFullName());
}

TEST(CreateStaticGeometryProducer, KeepsTheGroupForTheProducersLife) {
    GroupAttribute group = StaticScene().set("/root", "type", "mesh").group();
    const auto made = CreateStaticGeometryProducer("/root", group, nullptr);
    group = GroupAttribute();
    EXPECT_EQ("mesh", made->getType());
}

TEST(StaticGeometryProducer, HasNoClient) {
    EXPECT_EQ(nullptr, bare()->getClient());
}

TEST(StaticGeometryProducer, IsBareWithoutEitherKey) {
    const GeometryProducerPtr root = bare();
    EXPECT_TRUE(attributeNamesOf(root).empty());
    EXPECT_FALSE(root->getPotentialChildren());
    EXPECT_EQ(nullptr, root->getFirstChild(false));
    EXPECT_FALSE(root->getAttribute(""));
    EXPECT_FALSE(root->getAttribute(nullptr));
    EXPECT_FALSE(root->getAttribute("type"));
    EXPECT_EQ(nullptr, root->getChildByName("a", false));
}

TEST(StaticGeometryProducer, ReadsAWrongKindUnderEitherKeyAsMissing) {
    const GeometryProducerPtr root = StaticScene()
                                         .setKey("/root", "a", IntAttribute(1))
                                         .setKey("/root", "c", StringAttribute("a"))
                                         .open();
    EXPECT_TRUE(attributeNamesOf(root).empty());
    EXPECT_FALSE(root->getAttribute("type"));
    EXPECT_FALSE(root->getPotentialChildren());
    EXPECT_EQ(nullptr, root->getFirstChild(false));
    EXPECT_EQ(nullptr, root->getChildByName("a", false));
}

TEST(StaticGeometryProducer, GivesTheEntryOfAllAttributesAsItIsWhateverItsKind) {
    const GeometryProducerPtr odd = StaticScene().setKey("/root", "a", IntAttribute(1)).open();
    EXPECT_EQ(OV_ATTRIBUTE_INT, odd->getAttribute("").getType());
    EXPECT_EQ(OV_ATTRIBUTE_INT, odd->getAttribute(nullptr).getType());
    const GeometryProducerPtr usual = StaticScene().set("/root", "type", "mesh").open();
    EXPECT_EQ(OV_ATTRIBUTE_GROUP, usual->getAttribute("").getType());
    EXPECT_EQ(usual->getAttribute("").getHash(), usual->getAttribute(nullptr).getHash());
}

TEST(StaticGeometryProducer, LooksAttributesUpByNameDottedOnesIncluded) {
    const GeometryProducerPtr root =
        StaticScene().set("/root", "geometry.points", 5).set("/root", "type", "mesh").open();
    EXPECT_EQ(OV_ATTRIBUTE_STRING, root->getAttribute("type").getType());
    EXPECT_EQ(OV_ATTRIBUTE_GROUP, root->getAttribute("geometry").getType());
    EXPECT_EQ(OV_ATTRIBUTE_INT, root->getAttribute("geometry.points").getType());
    EXPECT_FALSE(root->getAttribute("geometry.absent"));
    EXPECT_FALSE(root->getAttribute("type.points"));
}

TEST(StaticGeometryProducer, AddsItsAttributeNamesToTheSetWithoutClearingIt) {
    const GeometryProducerPtr root = StaticScene().set("/root", "b", 1).set("/root", "a", 2).open();
    std::set<std::string> names{"kept"};
    root->getAttributeNames(&names);
    EXPECT_EQ((std::set<std::string>{"a", "b", "kept"}), names);
}

TEST(StaticGeometryProducer, AddsAttributeNamesAsTheyAreStored) {
    const GroupAttribute attributes({{"x%2Ey", IntAttribute(1)}, {"", IntAttribute(2)}}, false);
    const GeometryProducerPtr root = StaticScene().setKey("/root", "a", attributes).open();
    EXPECT_EQ((std::set<std::string>{"", "x%2Ey"}), attributeNamesOf(root));
}

TEST(StaticGeometryProducer, AddsNoAttributeNamesToANullSet) {
    const GeometryProducerPtr root = StaticScene().set("/root", "a", 1).open();
    EXPECT_NO_THROW(root->getAttributeNames(nullptr));
}

TEST(StaticGeometryProducer, ListsTheDecodedNamesOfItsChildrenInOrder) {
    const GeometryProducerPtr root =
        StaticScene().at("/root/z").at("/root/a%2Fb").at("/root/m%2En").open();
    const StringAttribute list = root->getPotentialChildren();
    EXPECT_EQ((Names{"z", "a/b", "m.n"}), textsOf(list));
    EXPECT_EQ(1, list.getTupleSize());
    EXPECT_EQ(1, list.getNumberOfTimeSamples());
}

TEST(StaticGeometryProducer, ListsChildrenThatAreNoGroups) {
    EXPECT_EQ((Names{"a", "text", "z"}), textsOf(family().open()->getPotentialChildren()));
}

TEST(StaticGeometryProducer, HasAnEmptyListOfChildrenWhenTheKeyIsEmpty) {
    const GeometryProducerPtr root =
        StaticScene().setKey("/root", "c", GroupAttribute({}, false)).open();
    const StringAttribute list = root->getPotentialChildren();
    EXPECT_TRUE(list);
    EXPECT_EQ(0, list.getNumberOfValues());
    EXPECT_EQ(nullptr, root->getFirstChild(false));
}

TEST(StaticGeometryProducer, IsNamedByTheTextBehindTheLastSlash) {
    struct Row {
        const char* path;
        const char* name;
    };
    for (const Row& row :
         {Row{"/root", "root"}, Row{"/root/a", "a"}, Row{"/", ""}, Row{"/root/", ""}}) {
        const auto made =
            CreateStaticGeometryProducer(row.path, GroupAttribute({}, false), nullptr);
        EXPECT_EQ(row.name, made->getName());
        EXPECT_EQ(row.path, made->getFullName());
    }
}

TEST(StaticGeometryProducer, HasNoNameWithoutASlashInItsPath) {
    const GeometryProducerPtr made(new StaticGeometryProducer("root", {}, 0, nullptr));
    EXPECT_EQ("", made->getName());
    EXPECT_EQ("root", made->getFullName());
}

TEST(StaticGeometryProducer, IsHashedWithItsChildren) {
    const auto hashOf = [](const char* type) {
        return StaticScene().set("/root/a/b", "type", type).open()->getHash();
    };
    EXPECT_EQ(hashOf("mesh"), hashOf("mesh"));
    EXPECT_NE(hashOf("mesh"), hashOf("light")) << "a change anywhere below changes the hash";
    const auto scene = StaticScene().set("/root/a", "type", "mesh");
    EXPECT_EQ(scene.group().getHash().str(), scene.open()->getHash());
}

TEST(StaticGetChildByName, TakesOneStepDown) {
    const GeometryProducerPtr root = family().open();
    const GeometryProducerPtr a = root->getChildByName("a", false);
    EXPECT_EQ("/root/a", pathOf(a));
    EXPECT_EQ("a", a->getName());
    EXPECT_EQ(root, a->parent);
    EXPECT_EQ(nullptr, root->getChildByName("absent", false));
}

TEST(StaticGetChildByName, GivesTheParentAndItselfForDots) {
    const GeometryProducerPtr root = family().open();
    const GeometryProducerPtr a = root->getChildByName("a", false);
    EXPECT_EQ(root, a->getChildByName("..", false));
    EXPECT_EQ(a, a->getChildByName(".", false));
    EXPECT_EQ(nullptr, root->getChildByName("..", false)) << "no parent";
    EXPECT_EQ(root, root->getChildByName(".", false));
}

TEST(StaticGetChildByName, ThrowsForANameWithASlash) {
    const GeometryProducerPtr root = family().open();
    for (const char* name : {"a/b", "/", "/a", "a/", "../a", "./a", "absent/x"}) {
        try {
            root->getChildByName(name, false);
            ADD_FAILURE() << name;
        } catch (const std::runtime_error& error) {
            EXPECT_STREQ("getChildByName does not support deep child lookups", error.what());
        }
    }
}

TEST(StaticGetChildByName, IsNullForANullName) {
    EXPECT_EQ(nullptr, family().open()->getChildByName(nullptr, false));
}

TEST(StaticGetChildByName, IsNullForAChildThatIsNoGroup) {
    EXPECT_EQ(nullptr, family().open()->getChildByName("text", false));
}

TEST(StaticGetChildByName, FindsAChildWithAnEmptyName) {
    const GroupAttribute children({{"", GroupAttribute({}, false)}}, false);
    const GeometryProducerPtr root = StaticScene().setKey("/root", "c", children).open();
    EXPECT_EQ("/root/", pathOf(root->getChildByName("", false)));
    EXPECT_EQ(nullptr, family().open()->getChildByName("", false));
}

TEST(StaticGetChildByName, DoesNotFindAnEncodedChildByItsReadableName) {
    const GeometryProducerPtr root = StaticScene().at("/root/m%2En").open();
    EXPECT_EQ(Names{"m.n"}, textsOf(root->getPotentialChildren()));
    EXPECT_EQ(nullptr, root->getChildByName("m.n", false));
    EXPECT_EQ("/root/m%2En", pathOf(root->getChildByName("m%2En", false)));
    EXPECT_EQ("/root/m.n", pathOf(root->getFirstChild(false)));
}

TEST(StaticGetChildByName, WalksIntoSubGroupsOfADottedName) {
    const GeometryProducerPtr root = StaticScene().set("/root/a/b", "type", "mesh").open();
    const GeometryProducerPtr grandchild = root->getChildByName("a.c.b", false);
    EXPECT_EQ("/root/a.c.b", pathOf(grandchild));
    EXPECT_EQ("mesh", grandchild->getType());
    EXPECT_EQ(root, grandchild->parent);
    EXPECT_EQ("/root/a.c", pathOf(root->getChildByName("a.c", false)));
    EXPECT_EQ(nullptr, root->getChildByName("a.b", false));
}

TEST(StaticGetChildByName, FindsNamesLongerThanAnyBuffer) {
    const std::string name(100000, 'n');
    const GeometryProducerPtr root = StaticScene().at("/root/" + name).open();
    EXPECT_EQ("/root/" + name, pathOf(root->getChildByName(name.c_str(), false)));
}

TEST(StaticGeometryProducer, IgnoresEvict) {
    const GeometryProducerPtr root = family().open();
    EXPECT_EQ("/root/a", pathOf(root->getChildByName("a", true)));
    EXPECT_EQ("/root/a", pathOf(root->getFirstChild(true)));
    EXPECT_EQ("text", root->getFirstChild(true)->getNextSibling(true)->getName());
}

TEST(StaticGetFirstChild, GivesTheFirstChildUnderItsDecodedName) {
    const GeometryProducerPtr root = StaticScene().at("/root/a%2Fb").at("/root/c").open();
    const GeometryProducerPtr first = root->getFirstChild(false);
    EXPECT_EQ("/root/a/b", pathOf(first));
    EXPECT_EQ("b", first->getName());
    EXPECT_EQ(root, first->parent);
    EXPECT_EQ("c", first->getNextSibling(false)->getName()) << "its place is known from the start";
}

TEST(StaticGetFirstChild, MakesAProducerWithoutAGroupOfAChildThatIsNone) {
    const GeometryProducerPtr child = StaticScene()
                                          .replaceBy("/root/text", StringAttribute("x"))
                                          .at("/root/next")
                                          .open()
                                          ->getFirstChild(false);
    ASSERT_NE(nullptr, child);
    EXPECT_EQ("/root/text", pathOf(child));
    EXPECT_FALSE(child->getAttribute(""));
    EXPECT_FALSE(child->getAttribute("type"));
    EXPECT_FALSE(child->getPotentialChildren());
    EXPECT_TRUE(attributeNamesOf(child).empty());
    EXPECT_EQ(nullptr, child->getFirstChild(false));
    EXPECT_EQ(nullptr, child->getChildByName("a", false));
    EXPECT_EQ(Hash().str(), child->getHash());
    EXPECT_EQ("next", child->getNextSibling(false)->getName());
}

TEST(StaticGetFirstChild, TakesAnEmptyNameAsAnyOther) {
    const GroupAttribute children({{"", GroupAttribute({}, false)}}, false);
    const auto first = StaticScene().setKey("/root", "c", children).open()->getFirstChild(false);
    ASSERT_NE(nullptr, first);
    EXPECT_EQ("/root/", first->getFullName());
    EXPECT_EQ("", first->getName());
}

TEST(StaticGetFirstChild, MakesAProducerWithoutAGroupOfANullChild) {
    const auto child =
        StaticScene().replaceBy("/root/null", Attribute()).open()->getFirstChild(false);
    ASSERT_NE(nullptr, child);
    EXPECT_EQ("/root/null", pathOf(child));
    EXPECT_FALSE(child->getAttribute(""));
}
