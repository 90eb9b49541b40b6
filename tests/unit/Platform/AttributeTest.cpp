// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/Attribute.h>
#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/GroupAttribute.h>
#include <SylvarPlatform/GroupBuilder.h>

#include "support/SuiteCalls.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

namespace {

using namespace Sylvar3::internal::OvAttribute;
using ovtest::SuiteCall;
using ovtest::SuiteCalls;
using testing::ElementsAre;
using testing::IsEmpty;

static_assert(sizeof(Attribute) == sizeof(void*), "a wrapper is its handle and nothing else");
static_assert(sizeof(GroupAttribute) == sizeof(void*));
static_assert(sizeof(StringAttribute) == sizeof(void*));
static_assert(std::is_nothrow_move_constructible_v<Attribute>);
static_assert(std::is_nothrow_default_constructible_v<Attribute>);

OvAttributeStruct* newHandle() {
    return OvGetAttributeSuite()->createInt(7);
}

TEST(Attribute, IsNullByItselfAndAsksNothingOfTheTable) {
    SuiteCalls calls;
    {
        const Attribute null;
        EXPECT_FALSE(null.isValid());
        EXPECT_FALSE(static_cast<bool>(null));
        EXPECT_EQ(nullptr, null.handle());
        EXPECT_EQ(0, null.getType());
        const Attribute copy = null;
        Attribute assigned;
        assigned = copy;
        EXPECT_FALSE(assigned);
    }
    EXPECT_THAT(calls.take(), IsEmpty());
}

TEST(Attribute, TakesOverTheReferenceThatItAdopts) {
    OvAttributeStruct* const handle = newHandle();
    SuiteCalls calls;
    { const Attribute adopted = Attribute::adopt(handle); }
    EXPECT_THAT(calls.take(), ElementsAre(SuiteCall{"release", handle}));
}

TEST(Attribute, AddsAReferenceToWhatItShares) {
    const Attribute owner = Attribute::adopt(newHandle());
    SuiteCalls calls;
    {
        const Attribute shared = Attribute::share(owner.handle());
        EXPECT_EQ(owner.handle(), shared.handle());
        EXPECT_THAT(calls.take(), ElementsAre(SuiteCall{"retain", owner.handle()}));
    }
    EXPECT_THAT(calls.take(), ElementsAre(SuiteCall{"release", owner.handle()}));
}

TEST(Attribute, SharesAndAdoptsTheNullHandleWithoutACall) {
    SuiteCalls calls;
    {
        EXPECT_FALSE(Attribute::share(nullptr));
        EXPECT_FALSE(Attribute::adopt(nullptr));
    }
    EXPECT_THAT(calls.take(), IsEmpty());
}

TEST(Attribute, IsNullAfterItDetachedItsReference) {
    SuiteCalls calls;
    Attribute attribute = Attribute::adopt(newHandle());
    OvAttributeStruct* const handle = attribute.detach();
    EXPECT_FALSE(attribute);
    EXPECT_EQ(nullptr, attribute.detach());
    EXPECT_THAT(calls.take(), IsEmpty());
    OvGetAttributeSuite()->release(handle);
}

TEST(Attribute, RetainsWhenCopiedAndReleasesAtItsEnd) {
    const Attribute original = Attribute::adopt(newHandle());
    SuiteCalls calls;
    {
        const Attribute copy = original;
        EXPECT_EQ(original.handle(), copy.handle());
        EXPECT_THAT(calls.take(), ElementsAre(SuiteCall{"retain", original.handle()}));
    }
    EXPECT_THAT(calls.take(), ElementsAre(SuiteCall{"release", original.handle()}));
}

TEST(Attribute, MovesItsReferenceWithoutACall) {
    Attribute from = Attribute::adopt(newHandle());
    OvAttributeStruct* const handle = from.handle();
    SuiteCalls calls;
    Attribute constructed = std::move(from);
    Attribute assigned;
    assigned = std::move(constructed);
    EXPECT_EQ(handle, assigned.handle());
    EXPECT_EQ(nullptr, constructed.handle());
    EXPECT_THAT(calls.take(), IsEmpty());
}

TEST(Attribute, RetainsTheNewValueBeforeItReleasesTheOldOne) {
    Attribute target = Attribute::adopt(newHandle());
    const Attribute source = Attribute::adopt(newHandle());
    OvAttributeStruct* const old = target.handle();
    SuiteCalls calls;
    target = source;
    EXPECT_EQ(source.handle(), target.handle());
    EXPECT_THAT(calls.take(),
                ElementsAre(SuiteCall{"retain", source.handle()}, SuiteCall{"release", old}));
}

TEST(Attribute, ReleasesTheOldValueWhenItIsSetToNull) {
    Attribute target = Attribute::adopt(newHandle());
    OvAttributeStruct* const old = target.handle();
    SuiteCalls calls;
    target = Attribute();
    EXPECT_FALSE(target);
    EXPECT_THAT(calls.take(), ElementsAre(SuiteCall{"release", old}));
}

TEST(Attribute, SurvivesItsOwnAssignment) {
    Attribute attribute = Attribute::adopt(newHandle());
    const Attribute& itself = attribute;
    SuiteCalls calls;
    attribute = itself;
    ASSERT_TRUE(attribute);
    EXPECT_THAT(calls.take(),
                ElementsAre(SuiteCall{"retain", attribute.handle()},
                            SuiteCall{"release", attribute.handle()}));
    EXPECT_EQ(OV_ATTRIBUTE_INT, attribute.getType());
}

TEST(Attribute, TakesAChildInPlaceOfItsOwnGroup) {
    Attribute attribute = GroupAttribute({{"child", IntAttribute(5)}}, false);
    attribute = castAttribute<GroupAttribute>(attribute).getChildByName("child");
    EXPECT_EQ(5, castAttribute<IntAttribute>(attribute).getValue(0));
}

TEST(TypedAttribute, RetainsBeforeItReleasesLikeEveryAttribute) {
    StringAttribute target("old");
    const StringAttribute source("new");
    OvAttributeStruct* const old = target.handle();
    SuiteCalls calls;
    target = source;
    EXPECT_THAT(calls.take(),
                ElementsAre(SuiteCall{"retain", source.handle()}, SuiteCall{"release", old}));
    target = StringAttribute::adopt(nullptr);
    EXPECT_THAT(calls.take(), ElementsAre(SuiteCall{"release", source.handle()}));
}

TEST(Attribute, TellsItsKind) {
    EXPECT_EQ(1, IntAttribute(1).getType());
    EXPECT_EQ(2, FloatAttribute(1.0F).getType());
    EXPECT_EQ(3, DoubleAttribute(1.0).getType());
    EXPECT_EQ(4, StringAttribute("1").getType());
    EXPECT_EQ(5, GroupAttribute({}, false).getType());
}

const OvAttributeSuite* tableBeforeAnyConstructor;
const OvAttributeSuite* builderTableBeforeAnyConstructor;

/// Runs ahead of everything that is constructed when a program starts.
__attribute__((constructor(101))) void noteTheTables() {
    tableBeforeAnyConstructor = Attribute::_attrSuite;
    builderTableBeforeAnyConstructor = GroupBuilder::_attrSuite;
}

TEST(AttributeTable, IsSetBeforeAnyConstructorRuns) {
    EXPECT_EQ(OvGetAttributeSuite(), tableBeforeAnyConstructor);
    EXPECT_EQ(OvGetAttributeSuite(), builderTableBeforeAnyConstructor);
}

TEST(AttributeTable, IsOneForValuesAndBuildersAndInC) {
    EXPECT_EQ(OvGetAttributeSuite(), Attribute::_attrSuite);
    EXPECT_EQ(OvGetAttributeSuite(), GroupBuilder::_attrSuite);
}

TEST(AttributeTable, MayBeTakenAwayAndPutBack) {
    Attribute::_attrSuite = nullptr;
    GroupBuilder::_attrSuite = nullptr;
    { const Attribute asksNothing; }
    Attribute::_attrSuite = OvGetAttributeSuite();
    GroupBuilder::_attrSuite = OvGetAttributeSuite();
    EXPECT_EQ(5, IntAttribute(5).getValue(0));
}

}  // namespace
