// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/GroupAttribute.h>
#include <SylvarPlatform/GroupBuilder.h>

#include "support/SuiteScope.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace {

using namespace Sylvar3::internal::OvAttribute;
using testing::ElementsAre;
using Children = std::vector<GroupAttribute::Child>;

std::vector<std::string> namesOf(const GroupAttribute& group) {
    std::vector<std::string> names;
    for (std::int64_t i = 0; i < group.getNumberOfChildren(); ++i) {
        names.push_back(group.getChildName(i));
    }
    return names;
}

int intAt(const GroupAttribute& group, std::string_view name) {
    return group.getChild<IntAttribute>(name).getValue(-1);
}

GroupAttribute groupOf(const Children& children) {
    return GroupAttribute(children, false);
}

TEST(GroupAttribute, KeepsItsChildrenInTheirOrder) {
    const GroupAttribute group =
        groupOf({{"b", IntAttribute(1)}, {"a", IntAttribute(2)}, {"c", IntAttribute(3)}});
    EXPECT_THAT(namesOf(group), ElementsAre("b", "a", "c"));
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(i + 1, castAttribute<IntAttribute>(group.getChildByIndex(i)).getValue(0));
    }
    EXPECT_EQ(2, intAt(group, "a"));
}

TEST(GroupAttribute, CarriesGroupInherit) {
    EXPECT_TRUE(GroupAttribute({}, true).getGroupInherit());
    EXPECT_FALSE(GroupAttribute({}, false).getGroupInherit());
    EXPECT_FALSE(GroupAttribute().getGroupInherit());
}

TEST(GroupAttribute, HasNoChildrenWhenNullOrEmpty) {
    for (const GroupAttribute& none : {GroupAttribute(), GroupAttribute({}, true)}) {
        EXPECT_EQ(0, none.getNumberOfChildren());
        EXPECT_EQ("", none.getChildName(0));
        EXPECT_FALSE(none.getChildByIndex(0));
        EXPECT_FALSE(none.getChildByName("a"));
        EXPECT_FALSE(none.getChildByName("a.b"));
        EXPECT_FALSE(none.getChildByName(""));
        Children children;
        none.fillChildVector(&children);
        EXPECT_TRUE(children.empty());
    }
}

TEST(GroupAttribute, FindsNothingOutsideItsRange) {
    const GroupAttribute group = groupOf({{"a", IntAttribute(1)}});
    for (const std::int64_t index : {std::int64_t{-1},
                                     std::int64_t{1},
                                     std::numeric_limits<std::int64_t>::max(),
                                     std::numeric_limits<std::int64_t>::min()}) {
        EXPECT_EQ("", group.getChildName(index)) << index;
        EXPECT_FALSE(group.getChildByIndex(index)) << index;
    }
}

TEST(GroupAttribute, FollowsDotsIntoItsGroups) {
    const GroupAttribute leaf = groupOf({{"x", IntAttribute(1)}, {"", IntAttribute(2)}});
    const GroupAttribute group =
        groupOf({{"a", groupOf({{"b", leaf}, {"i", IntAttribute(3)}})}, {"", leaf}});
    struct Row {
        const char* name;
        int value;
    };
    for (const Row& row : {Row{"a.b.x", 1},
                           Row{"a.i", 3},
                           Row{"a.b.", 2},
                           Row{".x", 1},
                           Row{".", 2},
                           Row{"a", -1},
                           Row{"a.b.y", -1},
                           Row{"a.i.x", -1},
                           Row{"a.i.", -1},
                           Row{"b.x", -1},
                           Row{"a..x", -1},
                           Row{"..x", -1},
                           Row{"...", -1}}) {
        EXPECT_EQ(row.value, intAt(group, row.name)) << row.name;
    }
    EXPECT_EQ(leaf.handle(), group.getChildByName("a.b").handle());
    EXPECT_EQ(leaf.handle(), group.getChildByName("").handle());
}

TEST(GroupAttribute, TakesNamesAsTheyStandAndStillSplitsAtDotsInLookups) {
    const GroupAttribute group = groupOf({{"a.b", IntAttribute(1)}, {"%2E", IntAttribute(2)}});
    EXPECT_THAT(namesOf(group), ElementsAre("a.b", "%2E"));
    EXPECT_EQ(1, castAttribute<IntAttribute>(group.getChildByIndex(0)).getValue(0));
    EXPECT_FALSE(group.getChildByName("a.b"));
    EXPECT_EQ(2, intAt(group, "%2E"));
}

TEST(GroupAttribute, HoldsNamesOfAnyBytes) {
    const std::string withNul("a\0b", 3);
    const std::string longName(100000, 'n');
    const GroupAttribute group = groupOf({{withNul, IntAttribute(1)},
                                          {"a", IntAttribute(2)},
                                          {longName, IntAttribute(3)},
                                          {"\xff\x01/ ", IntAttribute(4)}});
    EXPECT_THAT(namesOf(group), ElementsAre(withNul, "a", longName, "\xff\x01/ "));
    EXPECT_EQ(1, intAt(group, withNul));
    EXPECT_EQ(2, intAt(group, "a"));
    EXPECT_EQ(3, intAt(group, longName));
    EXPECT_EQ(4, intAt(group, "\xff\x01/ "));
}

TEST(GroupAttribute, KeepsNameAndPlaceOfANullChild) {
    const GroupAttribute group =
        groupOf({{"a", IntAttribute(1)}, {"null", Attribute()}, {"c", IntAttribute(3)}});
    EXPECT_THAT(namesOf(group), ElementsAre("a", "null", "c"));
    EXPECT_FALSE(group.getChildByIndex(1));
    EXPECT_FALSE(group.getChildByName("null"));
    EXPECT_FALSE(group.getChildByName("null.x"));
    EXPECT_EQ(3, intAt(group, "c"));
}

TEST(GroupAttribute, PutsALaterValueOfANameInThePlaceOfTheEarlierOne) {
    const Children twice = {{"a", IntAttribute(1)},
                            {"b", IntAttribute(2)},
                            {"a", IntAttribute(3)},
                            {"", IntAttribute(4)},
                            {"b", Attribute()},
                            {"", IntAttribute(5)}};
    const char* const names[] = {"a", "b", "a", "", "b", ""};
    const std::int32_t lengths[] = {1, 1, 1, 0, 1, -5};
    std::vector<OvAttributeStruct*> handles;
    GroupBuilder flat(GroupBuilder::Mode::Flat);
    GroupBuilder nested;
    for (const auto& [name, child] : twice) {
        handles.push_back(child.handle());
        flat.set(name, child);
        nested.set(name, child);
    }
    const auto& suite = *OvGetAttributeSuite();
    for (const GroupAttribute& group :
         {GroupAttribute(twice, false),
          GroupAttribute::adopt(suite.createGroup(names, handles.data(), 6, 0)),
          GroupAttribute::adopt(suite.createGroupWithLengths(names, lengths, handles.data(), 6, 0)),
          flat.build(),
          nested.build(),
          GroupBuilder().update(groupOf(twice)).build()}) {
        EXPECT_THAT(namesOf(group), ElementsAre("a", "b", ""));
        EXPECT_EQ(3, intAt(group, "a"));
        EXPECT_FALSE(group.getChildByIndex(1));
        EXPECT_EQ(5, intAt(group, ""));
        EXPECT_EQ(groupOf(twice).getHash(), group.getHash());
    }
}

TEST(GroupAttribute, AppendsItsChildrenToAVector) {
    const GroupAttribute group =
        groupOf({{"a", IntAttribute(1)}, {"null", Attribute()}, {"c.d", IntAttribute(3)}});
    Children children = {{"before", StringAttribute("it")}};
    group.fillChildVector(&children);
    group.fillChildVector(&children);
    ASSERT_EQ(7U, children.size());
    EXPECT_EQ("before", children[0].first);
    EXPECT_EQ("a", children[1].first);
    EXPECT_EQ("null", children[2].first);
    EXPECT_FALSE(children[2].second);
    EXPECT_EQ("c.d", children[6].first);
    EXPECT_EQ(3, castAttribute<IntAttribute>(children[6].second).getValue(0));
}

TEST(GroupAttribute, FindsEveryNameWhateverItsSize) {
    for (const int size : {1, 2, 7, 8, 9, 10, 63, 64, 65, 1000, 100000}) {
        Children children;
        for (int i = 0; i < size; ++i) {
            children.emplace_back("name" + std::to_string(i), IntAttribute(i));
        }
        const GroupAttribute group = groupOf(children);
        ASSERT_EQ(size, group.getNumberOfChildren());
        int found = 0;
        for (int i = 0; i < size; ++i) {
            found += intAt(group, children[static_cast<std::size_t>(i)].first) == i ? 1 : 0;
        }
        EXPECT_EQ(size, found);
        EXPECT_EQ("name" + std::to_string(size - 1), group.getChildName(size - 1));
        for (const char* absent : {"", "name", "name-1", "NAME0", "name0 ", "name100000"}) {
            EXPECT_FALSE(group.getChildByName(absent)) << absent << " of " << size;
        }
    }
}

TEST(GroupAttribute, HoldsItsChildrenWhenTheyAreLetGo) {
    Children children = {{"a", StringAttribute(std::string(500, 'x'))}};
    const GroupAttribute group = groupOf(children);
    children.clear();
    EXPECT_EQ(std::string(500, 'x'), group.getChild<StringAttribute>("a").getValue(""));
}

TEST(GroupAttribute, LetsAChildOutliveIt) {
    GroupAttribute group = groupOf({{"a", groupOf({{"b", IntAttribute(4)}})}});
    const auto child = group.getChild<GroupAttribute>("a");
    group = GroupAttribute();
    EXPECT_EQ(4, intAt(child, "b"));
}

TEST(GroupAttribute, MayHoldOneChildManyTimes) {
    const IntAttribute shared(6);
    Children children;
    for (int i = 0; i < 100; ++i) {
        children.emplace_back(std::to_string(i), shared);
    }
    const GroupAttribute group = groupOf(children);
    children.clear();
    EXPECT_EQ(6, intAt(group, "99"));
    EXPECT_EQ(shared.handle(), group.getChildByIndex(50).handle());
}

TEST(CreateGroup, MakesTheEmptyGroupOfAllZeros) {
    const auto empty =
        GroupAttribute::adopt(OvGetAttributeSuite()->createGroup(nullptr, nullptr, 0, 1));
    ASSERT_TRUE(empty);
    EXPECT_EQ(0, empty.getNumberOfChildren());
    EXPECT_TRUE(empty.getGroupInherit());
    EXPECT_EQ(GroupAttribute({}, true).getHash(), empty.getHash());
}

TEST(CreateGroup, ReadsANullNameAndALengthBelowOneAsTheEmptyName) {
    const auto& suite = *OvGetAttributeSuite();
    const IntAttribute child(1);
    OvAttributeStruct* const handles[] = {child.handle()};
    const char* const none[] = {nullptr};
    EXPECT_THAT(namesOf(GroupAttribute::adopt(suite.createGroup(none, handles, 1, 0))),
                ElementsAre(""));
    const char* const text[] = {"text"};
    for (const std::int32_t length : {0, -1, std::numeric_limits<std::int32_t>::min()}) {
        const auto group =
            GroupAttribute::adopt(suite.createGroupWithLengths(text, &length, handles, 1, 0));
        EXPECT_THAT(namesOf(group), ElementsAre("")) << length;
        EXPECT_EQ(child.handle(),
                  Attribute::adopt(suite.getChildByName(group.handle(), nullptr, length)).handle());
    }
}

TEST(GetChildName, ReadsAsTheEmptyStringBelowLengthOneWhateverThePointerIs) {
    static std::int32_t reported = 0;
    OvAttributeSuite suite = *OvGetAttributeSuite();
    suite.getChildName = [](OvAttributeStruct*, std::int64_t, std::int32_t* length) {
        *length = reported;
        return "not to be read";
    };
    const GroupAttribute group = groupOf({{"a", IntAttribute(1)}});
    const ovtest::SuiteScope scope(suite);
    for (const std::int32_t length : {0, -1, -1000}) {
        reported = length;
        EXPECT_EQ("", group.getChildName(0)) << length;
        EXPECT_TRUE(group.getChildNameView(0).empty()) << length;
    }
    reported = 3;
    EXPECT_EQ("not", group.getChildName(0)) << "no more than the length";
}

TEST(GetChildName, StaysValidWhileTheGroupIsHeld) {
    const GroupAttribute group = groupOf({{"first", IntAttribute(1)}, {"second", Attribute()}});
    const std::string_view first = group.getChildNameView(0);
    { const GroupAttribute sameNames = groupOf({{"first", Attribute()}, {"second", Attribute()}}); }
    EXPECT_EQ("first", first);
}

}  // namespace
