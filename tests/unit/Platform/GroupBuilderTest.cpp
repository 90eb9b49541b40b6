// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/GroupBuilder.h>

#include "support/SuiteCalls.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace {

using namespace Sylvar3::internal::OvAttribute;
using ovtest::SuiteScope;
using testing::ElementsAre;
using testing::IsEmpty;

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

GroupBuilder flat() {
    return GroupBuilder(GroupBuilder::Mode::Flat);
}

TEST(GroupBuilder, MakesAnEmptyGroupWithGroupInheritOff) {
    for (const GroupBuilder::Mode mode : {GroupBuilder::Mode::Nested, GroupBuilder::Mode::Flat}) {
        const GroupAttribute group = GroupBuilder(mode).build();
        ASSERT_TRUE(group);
        EXPECT_EQ(0, group.getNumberOfChildren());
        EXPECT_FALSE(group.getGroupInherit());
    }
}

TEST(GroupBuilder, SetsChildrenInOrderAndReplacesInPlace) {
    const GroupAttribute group = flat()
                                     .set("b", IntAttribute(1))
                                     .set("a", IntAttribute(2))
                                     .set("b", IntAttribute(3))
                                     .set("", IntAttribute(4))
                                     .build();
    EXPECT_THAT(namesOf(group), ElementsAre("b", "a", ""));
    EXPECT_EQ(3, intAt(group, "b"));
    EXPECT_EQ(4, intAt(group, ""));
}

TEST(GroupBuilder, KeepsNameAndPlaceOfANullChild) {
    const GroupAttribute group = GroupBuilder()
                                     .set("a", IntAttribute(1))
                                     .set("b.c", Attribute())
                                     .set("a", Attribute())
                                     .build();
    EXPECT_THAT(namesOf(group), ElementsAre("a", "b"));
    EXPECT_FALSE(group.getChildByName("a"));
    EXPECT_THAT(namesOf(group.getChild<GroupAttribute>("b")), ElementsAre("c"));
}

TEST(GroupBuilder, MakesNestedGroupsOfDottedNamesInNestedMode) {
    const GroupAttribute group = GroupBuilder()
                                     .set("a.b.c", IntAttribute(1))
                                     .set("x", IntAttribute(2))
                                     .set("a.b.d", IntAttribute(3))
                                     .set("a.e", IntAttribute(4))
                                     .set("a.b.c", IntAttribute(5))
                                     .build();
    EXPECT_THAT(namesOf(group), ElementsAre("a", "x"));
    EXPECT_THAT(namesOf(group.getChild<GroupAttribute>("a")), ElementsAre("b", "e"));
    EXPECT_THAT(namesOf(group.getChild<GroupAttribute>("a.b")), ElementsAre("c", "d"));
    EXPECT_EQ(5, intAt(group, "a.b.c"));
    EXPECT_FALSE(group.getChild<GroupAttribute>("a").getGroupInherit());
}

TEST(GroupBuilder, LeavesDottedNamesAsTheyStandInFlatMode) {
    const GroupAttribute group =
        flat().set("a.b", IntAttribute(1)).set(".", IntAttribute(2)).remove("a").build();
    EXPECT_THAT(namesOf(group), ElementsAre("a.b", "."));
    EXPECT_FALSE(group.getChildByName("a.b"));
    EXPECT_THAT(namesOf(flat().set("a.b", IntAttribute(1)).remove("a.b").build()), IsEmpty());
}

TEST(GroupBuilder, TakesAnEmptyPieceBetweenDotsAsAName) {
    const GroupAttribute group =
        GroupBuilder().set("a..b", IntAttribute(1)).set(".", IntAttribute(2)).build();
    EXPECT_THAT(namesOf(group), ElementsAre("a", ""));
    EXPECT_THAT(namesOf(group.getChild<GroupAttribute>("a")), ElementsAre(""));
    EXPECT_EQ(1, intAt(group, "a..b"));
    EXPECT_EQ(2, intAt(group, "."));
}

TEST(GroupBuilder, ExtendsAGroupThatWasSetAndLeavesTheOriginalAsItWas) {
    const GroupAttribute original({{"x", IntAttribute(1)}, {"y", IntAttribute(2)}}, true);
    const GroupAttribute group = GroupBuilder()
                                     .set("g", original)
                                     .set("g.y", IntAttribute(3))
                                     .set("g.z.w", IntAttribute(4))
                                     .build();
    const auto extended = group.getChild<GroupAttribute>("g");
    EXPECT_THAT(namesOf(extended), ElementsAre("x", "y", "z"));
    EXPECT_TRUE(extended.getGroupInherit()) << "the flag of the group that was set";
    EXPECT_EQ(1, intAt(group, "g.x"));
    EXPECT_EQ(3, intAt(group, "g.y"));
    EXPECT_EQ(4, intAt(group, "g.z.w"));
    EXPECT_THAT(namesOf(original), ElementsAre("x", "y"));
    EXPECT_EQ(2, intAt(original, "y"));
}

TEST(GroupBuilder, ReplacesAValueThatIsNoGroupByTheGroupOfADottedName) {
    const GroupAttribute group = GroupBuilder()
                                     .set("before", IntAttribute(0))
                                     .set("a", IntAttribute(1))
                                     .set("null", Attribute())
                                     .set("a.b", IntAttribute(2))
                                     .set("null.b", IntAttribute(3))
                                     .build();
    EXPECT_THAT(namesOf(group), ElementsAre("before", "a", "null"));
    EXPECT_EQ(2, intAt(group, "a.b"));
    EXPECT_EQ(3, intAt(group, "null.b"));
}

TEST(GroupBuilder, ReplacesANestedGroupByAWholeValue) {
    const GroupAttribute other({{"other", IntAttribute(7)}}, false);
    const GroupAttribute group = GroupBuilder()
                                     .set("a.b", IntAttribute(1))
                                     .set("c.d.e", IntAttribute(2))
                                     .set("a", IntAttribute(3))
                                     .set("c.d", other)
                                     .set("c.d.f", IntAttribute(4))
                                     .build();
    EXPECT_EQ(3, intAt(group, "a"));
    EXPECT_THAT(namesOf(group.getChild<GroupAttribute>("c.d")), ElementsAre("other", "f"));
}

TEST(GroupBuilder, StartsANestedGroupAnewAfterItWasReplaced) {
    const GroupAttribute group = GroupBuilder()
                                     .set("a.b", IntAttribute(1))
                                     .set("a", IntAttribute(2))
                                     .set("a.c", IntAttribute(3))
                                     .build();
    EXPECT_THAT(namesOf(group.getChild<GroupAttribute>("a")), ElementsAre("c"));
}

TEST(GroupBuilder, CopiesTheChildrenOfAGroupAsTheyStandAndNotItsFlag) {
    const GroupAttribute source(
        {{"a.b", IntAttribute(1)}, {"c", Attribute()}, {"d", IntAttribute(2)}}, true);
    for (const GroupBuilder::Mode mode : {GroupBuilder::Mode::Nested, GroupBuilder::Mode::Flat}) {
        const GroupAttribute group = GroupBuilder(mode)
                                         .set("d", IntAttribute(0))
                                         .set("e", IntAttribute(3))
                                         .update(source)
                                         .build();
        EXPECT_THAT(namesOf(group), ElementsAre("d", "e", "a.b", "c"));
        EXPECT_EQ(2, intAt(group, "d"));
        EXPECT_FALSE(group.getGroupInherit());
    }
}

TEST(GroupBuilder, UpdatesNothingFromTheNullGroup) {
    EXPECT_THAT(namesOf(flat().set("a", IntAttribute(1)).update(GroupAttribute()).build()),
                ElementsAre("a"));
}

TEST(GroupBuilder, UpdatesANestedGroupByAWholeOne) {
    const GroupAttribute source({{"a", GroupAttribute({{"x", IntAttribute(1)}}, false)}}, false);
    const GroupAttribute group = GroupBuilder()
                                     .set("a.b", IntAttribute(2))
                                     .update(source)
                                     .set("a.c", IntAttribute(3))
                                     .build();
    EXPECT_THAT(namesOf(group.getChild<GroupAttribute>("a")), ElementsAre("x", "c"));
}

TEST(GroupBuilder, RemovesAChildAndClosesTheGap) {
    const GroupAttribute group = flat()
                                     .set("a", IntAttribute(1))
                                     .set("b", IntAttribute(2))
                                     .set("c", IntAttribute(3))
                                     .remove("a")
                                     .remove("not there")
                                     .set("a", IntAttribute(4))
                                     .build();
    EXPECT_THAT(namesOf(group), ElementsAre("b", "c", "a"));
    EXPECT_EQ(3, intAt(group, "c"));
    EXPECT_EQ(4, intAt(group, "a"));
}

TEST(GroupBuilder, RemovesNestedChildrenAndWholeNestedGroups) {
    const GroupAttribute stored({{"x", IntAttribute(1)}, {"y", IntAttribute(2)}}, true);
    const GroupAttribute group = GroupBuilder()
                                     .set("gone.b", IntAttribute(1))
                                     .set("kept.b", IntAttribute(2))
                                     .set("kept.c", IntAttribute(3))
                                     .set("stored", stored)
                                     .set("value", IntAttribute(4))
                                     .remove("gone")
                                     .remove("kept.b")
                                     .remove("stored.x")
                                     .remove("value.x")
                                     .remove("absent.x")
                                     .remove("kept.absent.x")
                                     .build();
    EXPECT_THAT(namesOf(group), ElementsAre("kept", "stored", "value"));
    EXPECT_THAT(namesOf(group.getChild<GroupAttribute>("kept")), ElementsAre("c"));
    EXPECT_THAT(namesOf(group.getChild<GroupAttribute>("stored")), ElementsAre("y"));
    EXPECT_TRUE(group.getChild<GroupAttribute>("stored").getGroupInherit());
    EXPECT_EQ(4, intAt(group, "value"));
}

TEST(GroupBuilder, KeepsNestedGroupsInTheirPlacesWhenOneInFrontIsRemoved) {
    const GroupAttribute group = GroupBuilder()
                                     .set("a", IntAttribute(1))
                                     .set("b.x", IntAttribute(2))
                                     .set("c.x", IntAttribute(3))
                                     .remove("a")
                                     .set("c.y", IntAttribute(4))
                                     .remove("b")
                                     .set("c.z", IntAttribute(5))
                                     .set("d.x", IntAttribute(6))
                                     .build();
    EXPECT_THAT(namesOf(group), ElementsAre("c", "d"));
    EXPECT_THAT(namesOf(group.getChild<GroupAttribute>("c")), ElementsAre("x", "y", "z"));
    EXPECT_EQ(6, intAt(group, "d.x"));
}

TEST(GroupBuilder, IsEmptyAfterItHasBuilt) {
    GroupBuilder builder;
    builder.set("a.b", IntAttribute(1)).setGroupInherit(true);
    EXPECT_TRUE(builder.build().getGroupInherit());
    const GroupAttribute second = builder.build();
    EXPECT_EQ(0, second.getNumberOfChildren());
    EXPECT_FALSE(second.getGroupInherit());
    EXPECT_THAT(namesOf(builder.set("a.c", IntAttribute(2)).build().getChild<GroupAttribute>("a")),
                ElementsAre("c"));
}

TEST(GroupBuilder, SetsGroupInheritOnTheGroupItselfAlone) {
    GroupBuilder builder;
    builder.setGroupInherit(true).set("a.b", IntAttribute(1));
    const GroupAttribute group = builder.build();
    EXPECT_TRUE(group.getGroupInherit());
    EXPECT_FALSE(group.getChild<GroupAttribute>("a").getGroupInherit());
    EXPECT_FALSE(builder.setGroupInherit(true).setGroupInherit(false).build().getGroupInherit());
}

TEST(GroupBuilder, MovesWithItsContent) {
    GroupBuilder from;
    from.set("a", IntAttribute(1));
    GroupBuilder constructed(std::move(from));
    GroupBuilder assigned;
    assigned.set("lost", IntAttribute(2));
    assigned = std::move(constructed);
    EXPECT_THAT(namesOf(assigned.build()), ElementsAre("a"));
}

TEST(GroupBuilder, BuildsADeepGroupFromOneLongDottedName) {
    constexpr int kParts = 10000;
    std::string name = "p";
    for (int i = 1; i < kParts; ++i) {
        name += ".p";
    }
    const GroupAttribute group = GroupBuilder().set(name, IntAttribute(9)).build();
    EXPECT_EQ(9, intAt(group, name));
    EXPECT_FALSE(group.getChildByName(name + ".p"));
    EXPECT_TRUE(group.getChild<GroupAttribute>(name.substr(0, name.size() - 2)));
}

TEST(GroupBuilder, BuildsALargeGroup) {
    GroupBuilder builder = flat();
    for (int i = 0; i < 100000; ++i) {
        builder.set("name" + std::to_string(i % 50000), IntAttribute(i));
    }
    const GroupAttribute group = builder.build();
    EXPECT_EQ(50000, group.getNumberOfChildren());
    EXPECT_EQ(50000, intAt(group, "name0"));
    EXPECT_EQ(99999, intAt(group, "name49999"));
}

TEST(GroupBuilder, FallsBackOnAPlainBuilderWhenTheTableKnowsNoModes) {
    static int asked;
    static int plain;
    asked = plain = 0;
    OvAttributeSuite suite = *OvGetAttributeSuite();
    suite.createBuilderWithMode = [](std::int32_t mode) -> OvGroupBuilderStruct* {
        EXPECT_EQ(1, mode);
        ++asked;
        return nullptr;
    };
    suite.createBuilder = [] {
        ++plain;
        return OvGetAttributeSuite()->createBuilder();
    };
    const SuiteScope scope(suite);
    EXPECT_THAT(namesOf(flat().set("a", IntAttribute(1)).build()), ElementsAre("a"));
    EXPECT_EQ(1, asked);
    EXPECT_EQ(1, plain);
}

TEST(GroupBuilder, IsNullWhenWhatWasBuiltIsNoGroup) {
    static OvAttributeStruct* built;
    OvAttributeSuite suite = *OvGetAttributeSuite();
    suite.buildBuilder = [](OvGroupBuilderStruct*, std::int32_t) { return built; };
    const StringAttribute other("no group");
    GroupBuilder builder = flat();
    built = Attribute(other).detach();
    const SuiteScope scope(suite);
    EXPECT_FALSE(builder.build());
}

/// The table itself, without a wrapper.
class BuilderTable : public testing::Test {
protected:
    ~BuilderTable() override {
        if (builder_) {
            suite_.releaseBuilder(builder_);
        }
    }

    GroupAttribute build(std::int32_t keep) {
        return GroupAttribute::adopt(suite_.buildBuilder(builder_, keep));
    }

    void set(const char* name, OvAttributeStruct* child, std::int32_t share) {
        suite_.setInBuilder(
            builder_, name, static_cast<std::int32_t>(std::string_view(name).size()), child, share);
    }

    const OvAttributeSuite& suite_ = *OvGetAttributeSuite();
    OvGroupBuilderStruct* builder_ = suite_.createBuilder();
};

TEST_F(BuilderTable, HasTwoModes) {
    for (const std::int32_t mode : {-1, 2, 3, 1000}) {
        EXPECT_EQ(nullptr, suite_.createBuilderWithMode(mode)) << mode;
    }
    for (const std::int32_t mode : {0, 1}) {
        OvGroupBuilderStruct* const builder = suite_.createBuilderWithMode(mode);
        EXPECT_NE(nullptr, builder) << mode;
        suite_.releaseBuilder(builder);
    }
}

TEST_F(BuilderTable, BuildsNestedByDefault) {
    set("a.b", suite_.createInt(1), 0);
    EXPECT_EQ(1, intAt(build(0), "a.b"));
}

TEST_F(BuilderTable, AddsAReferenceWhenItSharesAndTakesTheCallersOtherwise) {
    const IntAttribute shared(1);
    set("shared", shared.handle(), 1);
    set("taken", suite_.createInt(2), 0);
    set("taken", suite_.createInt(3), 0);
    set("null", nullptr, 1);
    set("null too", nullptr, 0);
    const GroupAttribute group = build(0);
    EXPECT_EQ(shared.handle(), group.getChildByName("shared").handle());
    EXPECT_EQ(3, intAt(group, "taken"));
    EXPECT_EQ(4, group.getNumberOfChildren());
}

TEST_F(BuilderTable, KeepsItsContentWhenAskedTo) {
    suite_.setBuilderGroupInherit(builder_, 1);
    set("a.b", suite_.createInt(1), 0);
    const GroupAttribute first = build(1);
    set("a.c", suite_.createInt(2), 0);
    set("d", suite_.createInt(3), 0);
    const GroupAttribute second = build(1);
    const GroupAttribute third = build(0);
    EXPECT_THAT(namesOf(first), ElementsAre("a"));
    EXPECT_THAT(namesOf(first.getChild<GroupAttribute>("a")), ElementsAre("b"));
    EXPECT_THAT(namesOf(second), ElementsAre("a", "d"));
    EXPECT_THAT(namesOf(second.getChild<GroupAttribute>("a")), ElementsAre("b", "c"));
    EXPECT_TRUE(second.getGroupInherit());
    EXPECT_EQ(second.getHash(), third.getHash());
    EXPECT_EQ(0, build(0).getNumberOfChildren());
}

TEST_F(BuilderTable, TakesAnyNonZeroFlagAsOn) {
    suite_.setBuilderGroupInherit(builder_, 2);
    EXPECT_EQ(1, suite_.getGroupInherit(build(0).handle()));
}

TEST_F(BuilderTable, ReadsExactlyTheLengthOfAName) {
    suite_.setInBuilder(builder_, "abc", 2, nullptr, 1);
    suite_.setInBuilder(builder_, "abc", 0, nullptr, 1);
    suite_.setInBuilder(builder_, nullptr, -3, nullptr, 1);
    EXPECT_THAT(namesOf(build(1)), ElementsAre("ab", ""));
    suite_.removeFromBuilder(builder_, "abc", 2);
    suite_.removeFromBuilder(builder_, nullptr, 0);
    EXPECT_EQ(0, build(0).getNumberOfChildren());
}

TEST_F(BuilderTable, TakesNothingFromWhatIsNoGroup) {
    const IntAttribute data(1);
    suite_.updateBuilder(builder_, data.handle());
    EXPECT_EQ(0, build(0).getNumberOfChildren());
}

TEST_F(BuilderTable, ReleasesWhatItHoldsWhenItIsGivenBack) {
    set("a.b", suite_.createInt(1), 0);
    set("c", suite_.createString("held"), 0);
    suite_.releaseBuilder(builder_);
    builder_ = nullptr;
}

}  // namespace
