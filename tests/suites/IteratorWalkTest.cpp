// SPDX-License-Identifier: Apache-2.0
#include "support/IteratorTest.h"
#include "support/OpTreeFile.h"

#include <cstring>
#include <string>
#include <vector>

using Sylvar3::internal::OvAttribute::Attribute;
using Sylvar3::internal::OvAttribute::FloatAttribute;
using Sylvar3::internal::OvAttribute::GroupAttribute;
using Sylvar3::internal::OvAttribute::IntAttribute;
using Sylvar3::internal::OvAttribute::StringAttribute;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class IteratorWalk : public ovtest::IteratorTest {
protected:
    Attribute take(OvAttributeStruct* owned) const { return Attribute::adopt(owned); }

    const Handle root = openTree();
};

}  // namespace

TEST_F(IteratorWalk, FirstChildIsTheFirstThatExists) {
    EXPECT_EQ("/root/a", pathOf(step(table.sgGetFirstChild(root, 0))));
    fake.put("/root/a", GroupAttribute());
    EXPECT_EQ("/root/b", pathOf(step(table.sgGetFirstChild(root, 0))));
}

TEST_F(IteratorWalk, FirstChildIsNullWhereThereIsNone) {
    const Handle b = step(table.sgGetChildByName(root, "b", 0));
    EXPECT_EQ(nullptr, table.sgGetFirstChild(b, 0));
}

TEST_F(IteratorWalk, NextSiblingPassesOverThoseThatDoNotExist) {
    const Handle b = step(table.sgGetChildByName(root, "b", 0));
    const Handle c = step(table.sgGetNextSibling(b, 0));
    EXPECT_EQ("/root/c", pathOf(c));
    EXPECT_EQ(nullptr, table.sgGetNextSibling(c, 0));
}

TEST_F(IteratorWalk, NextSiblingOfTheRootIsNull) {
    EXPECT_EQ(nullptr, table.sgGetNextSibling(root, 0));
}

TEST_F(IteratorWalk, ParentOfTheRootIsNull) {
    EXPECT_EQ(nullptr, table.sgGetParent(root));
}

TEST_F(IteratorWalk, ParentOfAChildIsANewHandle) {
    const Handle a = step(table.sgGetFirstChild(root, 0));
    const Handle parent = step(table.sgGetParent(a));
    EXPECT_NE(root, parent);
    EXPECT_EQ("/root", pathOf(parent));
}

TEST_F(IteratorWalk, RootIsANewHandleAlsoOfTheRootItself) {
    const Handle x = step(table.sgGetByPath(root, "/root/a/x", 0));
    EXPECT_EQ("/root", pathOf(step(table.sgGetRoot(x))));
    const Handle same = step(table.sgGetRoot(root));
    EXPECT_NE(root, same);
    EXPECT_EQ("/root", pathOf(same));
}

TEST_F(IteratorWalk, ChildByNameTakesDotsAndDoubleDots) {
    const Handle a = step(table.sgGetChildByName(root, "a", 0));
    EXPECT_EQ("/root/a", pathOf(a));
    EXPECT_EQ("/root", pathOf(step(table.sgGetChildByName(a, "..", 0))));
    EXPECT_EQ("/root/a", pathOf(step(table.sgGetChildByName(a, ".", 0))));
    EXPECT_EQ(nullptr, table.sgGetChildByName(a, "none", 0));
    EXPECT_EQ(nullptr, table.sgGetChildByName(a, nullptr, 0));
}

TEST_F(IteratorWalk, ByPathBeginsWithTheOwnName) {
    const Handle x = step(table.sgGetByPath(root, "/root/a/x", 0));
    EXPECT_EQ("/root/a/x", pathOf(x));
    EXPECT_EQ("/root/b", pathOf(step(table.sgGetByPath(root, "root/b", 0))));
    EXPECT_EQ(nullptr, table.sgGetByPath(root, "/other/b", 0));
    EXPECT_EQ(nullptr, table.sgGetByPath(root, "/root/none", 0));
}

TEST_F(IteratorWalk, EveryStepMakesAHandleOfItsOwn) {
    const Handle one = step(table.sgGetFirstChild(root, 0));
    const Handle other = step(table.sgGetFirstChild(root, 0));
    EXPECT_NE(one, other);
    EXPECT_EQ(pathOf(one), pathOf(other));
}

TEST_F(IteratorWalk, AnyByteButZeroEvicts) {
    const auto evictedBy = [this](std::uint8_t flag) {
        fake.take();
        const Handle a = step(table.sgGetFirstChild(root, flag));
        step(table.sgGetNextSibling(a, flag));
        step(table.sgGetChildByName(root, "c", flag));
        step(table.sgGetByPath(root, "root/a/x", flag));
        return fake.take("evict");
    };
    const Names all = {
        "evict r1 /root/a", "evict r1 /root/b", "evict r1 /root/c", "evict r1 /root/a/x"};
    EXPECT_THAT(evictedBy(0), IsEmpty());
    EXPECT_EQ(all, evictedBy(1));
    EXPECT_EQ(all, evictedBy(2));
    EXPECT_EQ(all, evictedBy(255));
}

TEST_F(IteratorWalk, NameOfTheRootIsAStringThatHoldsRoot) {
    EXPECT_THAT(ovtest::takeStrings(table.sgGetName(root)), ElementsAre("root"));
    EXPECT_THAT(ovtest::takeStrings(table.sgGetFullName(root)), ElementsAre("/root"));
}

TEST_F(IteratorWalk, EmptyNameIsAStringWithAnEmptyValue) {
    fake.at("/root", {""}).at("/root/");
    const Handle nameless = step(table.sgGetFirstChild(openTree(), 0));
    EXPECT_THAT(ovtest::takeStrings(table.sgGetName(nameless)), ElementsAre(""));
}

TEST_F(IteratorWalk, AttributeIsTheOneOfThatNameOrNull) {
    fake.set("/root/a", "type", StringAttribute("mesh"))
        .set("/root/a", "lens", GroupAttribute({{"fov", FloatAttribute(40.0F)}}, false));
    const Handle a = step(table.sgGetFirstChild(root, 0));
    EXPECT_EQ("mesh", ovtest::takeString(table.sgGetAttribute(a, "type")));
    EXPECT_EQ(FloatAttribute(40.0F).getHash(), take(table.sgGetAttribute(a, "lens.fov")).getHash());
    EXPECT_EQ(nullptr, table.sgGetAttribute(a, "none"));
}

TEST_F(IteratorWalk, AttributeWithoutANameIsTheGroupOfAll) {
    fake.set("/root/a", "type", StringAttribute("mesh"));
    const Handle a = step(table.sgGetFirstChild(root, 0));
    const GroupAttribute all({{"type", StringAttribute("mesh")}}, false);
    EXPECT_EQ(all.getHash(), take(table.sgGetAttribute(a, "")).getHash());
    EXPECT_EQ(all.getHash(), take(table.sgGetAttribute(a, nullptr)).getHash());
}

TEST_F(IteratorWalk, AttributeOutlivesItsIterator) {
    fake.set("/root/a", "type", StringAttribute("mesh"));
    const Handle a = table.sgGetFirstChild(root, 0);
    table.sgRetain(a);
    OvAttributeStruct* const type = table.sgGetAttribute(a, "type");
    table.sgRelease(a);
    EXPECT_EQ("mesh", ovtest::takeString(type));
}

TEST_F(IteratorWalk, GlobalAttributeConsidersTheLocationsAbove) {
    fake.set("/root", "quality", IntAttribute(3)).set("/root/a", "other", IntAttribute(4));
    const Handle x = step(table.sgGetByPath(openTree(), "/root/a/x", 0));
    EXPECT_EQ(IntAttribute(3).getHash(), take(table.sgGetGlobalAttribute(x, "quality")).getHash());
    EXPECT_EQ(IntAttribute(4).getHash(), take(table.sgGetGlobalAttribute(x, "other")).getHash());
    EXPECT_EQ(nullptr, table.sgGetGlobalAttribute(x, "none"));
    EXPECT_EQ(nullptr, table.sgGetAttribute(x, "quality"));
}

TEST_F(IteratorWalk, AttributeNamesAreSortedStringsOfTupleSizeOne) {
    fake.set("/root/a", "type", StringAttribute("mesh"))
        .set("/root/a", "bound", IntAttribute(1))
        .set("/root/a", "Zeta", IntAttribute(1));
    const Handle a = step(table.sgGetFirstChild(root, 0));
    OvAttributeStruct* const names = table.sgGetAttributeNames(a);
    EXPECT_EQ(1, OvGetAttributeSuite()->getTupleSize(names));
    EXPECT_EQ(1, OvGetAttributeSuite()->getNumberOfTimeSamples(names));
    EXPECT_THAT(ovtest::takeStrings(names), ElementsAre("Zeta", "bound", "type"));
}

TEST_F(IteratorWalk, AttributeNamesOfALocationWithoutAttributesAreAnEmptyString) {
    const Handle b = step(table.sgGetChildByName(root, "b", 0));
    OvAttributeStruct* const names = table.sgGetAttributeNames(b);
    ASSERT_NE(nullptr, names);
    EXPECT_EQ(OV_ATTRIBUTE_STRING, OvGetAttributeSuite()->getType(names));
    EXPECT_EQ(0, OvGetAttributeSuite()->getNumberOfValues(names));
    OvGetAttributeSuite()->release(names);
}

TEST_F(IteratorWalk, GlobalXFormGroupHasTheChainsTransformsByDepth) {
    const GroupAttribute xform({{"translate", FloatAttribute(1.0F)}}, false);
    fake.set("/root", "xform", xform).set("/root/a/x", "xform", xform);
    const Handle x = step(table.sgGetByPath(openTree(), "/root/a/x", 0));
    const auto group = GroupAttribute::adopt(table.sgGetGlobalXFormGroup(x));
    ASSERT_EQ(2, group.getNumberOfChildren());
    EXPECT_EQ("i0", group.getChildName(0));
    EXPECT_EQ("i2", group.getChildName(1));
    EXPECT_EQ(xform.getHash(), group.getChildByIndex(1).getHash());
}

TEST_F(IteratorWalk, PotentialChildrenAreAllOfThemOrNull) {
    EXPECT_THAT(ovtest::takeStrings(table.sgGetPotentialChildren(root)),
                ElementsAre("a", "b", "gone", "c"));
    fake.put("/root/b", GroupAttribute({{"exists", IntAttribute(1)}}, false));
    const Handle b = step(table.sgGetChildByName(root, "b", 0));
    EXPECT_EQ(nullptr, table.sgGetPotentialChildren(b));
}

TEST_F(IteratorWalk, EveryEntryTakesTheNullIterator) {
    fake.take();
    table.sgRetain(nullptr);
    table.sgRelease(nullptr);
    table.sgFinalize(nullptr);
    EXPECT_EQ(nullptr, table.sgGetFirstChild(nullptr, 1));
    EXPECT_EQ(nullptr, table.sgGetNextSibling(nullptr, 1));
    EXPECT_EQ(nullptr, table.sgGetParent(nullptr));
    EXPECT_EQ(nullptr, table.sgGetRoot(nullptr));
    EXPECT_EQ(nullptr, table.sgGetChildByName(nullptr, "a/b", 1));
    EXPECT_EQ(nullptr, table.sgGetByPath(nullptr, "a", 1));
    EXPECT_EQ(nullptr, table.sgGetName(nullptr));
    EXPECT_EQ(nullptr, table.sgGetFullName(nullptr));
    EXPECT_EQ(nullptr, table.sgGetAttribute(nullptr, "a"));
    EXPECT_EQ(nullptr, table.sgGetGlobalAttribute(nullptr, "a"));
    EXPECT_EQ(nullptr, table.sgGetAttributeNames(nullptr));
    EXPECT_EQ(nullptr, table.sgGetGlobalXFormGroup(nullptr));
    EXPECT_EQ(nullptr, table.sgGetPotentialChildren(nullptr));
    EXPECT_THAT(fake.take(), IsEmpty());
}

TEST_F(IteratorWalk, OpTreeDescriptionIsTheGroupThatAFileHolds) {
    const GroupAttribute tree = freshTree();
    ovtest::TestFile file("IteratorWalk_description.optree");
    file.writeOpTree(tree);
    fake.take();
    EXPECT_EQ(tree.getHash(), take(table.sgLoadOpTreeDescription(file.path().c_str())).getHash());
    EXPECT_THAT(fake.take(), IsEmpty());
}

TEST_F(IteratorWalk, OpTreeDescriptionIsNullWhenTheFileHoldsNoGroup) {
    EXPECT_EQ(nullptr, table.sgLoadOpTreeDescription(freshFile("no tree").c_str()));
    ovtest::TestFile file("IteratorWalk_number.optree");
    file.writeScene(IntAttribute(3));
    EXPECT_EQ(nullptr, table.sgLoadOpTreeDescription(file.path().c_str()));
}

TEST_F(IteratorWalk, OpTreeDescriptionIsNullWithAMessageWhenThereIsNoFile) {
    testing::internal::CaptureStderr();
    EXPECT_EQ(nullptr, table.sgLoadOpTreeDescription("/no/such/file"));
    EXPECT_EQ("LoadOpTreeDescriptionFromFile(): Op tree file \"/no/such/file\" does not exist.\n",
              testing::internal::GetCapturedStderr());
}

TEST_F(IteratorWalk, VersionTwoWalksAsVersionThreeDoes) {
    const OvScenegraphIteratorSuite2& table2 = ovtest::iteratorTable2();
    EXPECT_EQ(table.sgRetain, table2.sgRetain);
    EXPECT_EQ(table.sgRelease, table2.sgRelease);
    EXPECT_EQ(table.sgCreateRootFromFile, table2.sgCreateRootFromFile);
    EXPECT_EQ(table.sgGetFirstChild, table2.sgGetFirstChild);
    EXPECT_EQ(table.sgGetNextSibling, table2.sgGetNextSibling);
    EXPECT_EQ(table.sgGetParent, table2.sgGetParent);
    EXPECT_EQ(table.sgGetRoot, table2.sgGetRoot);
    EXPECT_EQ(table.sgGetChildByName, table2.sgGetChildByName);
    EXPECT_EQ(table.sgGetByPath, table2.sgGetByPath);
    EXPECT_EQ(table.sgGetName, table2.sgGetName);
    EXPECT_EQ(table.sgGetFullName, table2.sgGetFullName);
    EXPECT_EQ(table.sgGetAttribute, table2.sgGetAttribute);
    EXPECT_EQ(table.sgGetGlobalAttribute, table2.sgGetGlobalAttribute);
    EXPECT_EQ(table.sgGetAttributeNames, table2.sgGetAttributeNames);
    EXPECT_EQ(table.sgGetGlobalXFormGroup, table2.sgGetGlobalXFormGroup);
    EXPECT_EQ(table.sgGetPotentialChildren, table2.sgGetPotentialChildren);
}

TEST_F(IteratorWalk, NoEntryOfEitherTableIsNull) {
    const auto entriesOf = [](const auto& suite) {
        using Entry = void (*)();
        std::vector<Entry> entries(sizeof suite / sizeof(Entry));
        std::memcpy(entries.data(), &suite, sizeof suite);
        return entries;
    };
    EXPECT_THAT(entriesOf(table),
                testing::AllOf(testing::SizeIs(19), testing::Each(testing::NotNull())));
    EXPECT_THAT(entriesOf(ovtest::iteratorTable2()),
                testing::AllOf(testing::SizeIs(16), testing::Each(testing::NotNull())));
}
