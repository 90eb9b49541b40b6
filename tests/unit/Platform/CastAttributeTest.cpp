// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/GroupAttribute.h>

#include "support/SuiteCalls.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>

namespace {

using namespace Sylvar3::internal::OvAttribute;
using ovtest::SuiteCall;
using ovtest::SuiteCalls;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(CastAttribute, MovesAHandleOfTheWantedKind) {
    OvAttributeStruct* const handle = OvGetAttributeSuite()->createString("text");
    SuiteCalls calls;
    {
        const auto cast = castAttribute<StringAttribute>(handle);
        EXPECT_EQ(handle, cast.handle());
        EXPECT_THAT(calls.take(), ElementsAre(SuiteCall{"getType", handle}));
    }
    EXPECT_THAT(calls.take(), ElementsAre(SuiteCall{"release", handle}));
}

TEST(CastAttribute, DropsTheReferenceOfAHandleOfAnotherKind) {
    OvAttributeStruct* const handle = OvGetAttributeSuite()->createString("text");
    SuiteCalls calls;
    EXPECT_FALSE(castAttribute<GroupAttribute>(handle));
    EXPECT_THAT(calls.take(),
                ElementsAre(SuiteCall{"getType", handle}, SuiteCall{"release", handle}));
}

TEST(CastAttribute, AsksNothingAboutNull) {
    SuiteCalls calls;
    EXPECT_FALSE(castAttribute<GroupAttribute>(Attribute()));
    EXPECT_FALSE(castAttribute<DoubleAttribute>(static_cast<OvAttributeStruct*>(nullptr)));
    EXPECT_THAT(calls.take(), IsEmpty());
}

TEST(CastAttribute, LeavesAWrapperThatIsCopiedIntoItAsItWas) {
    const StringAttribute source("text");
    SuiteCalls calls;
    EXPECT_FALSE(castAttribute<IntAttribute>(source));
    EXPECT_THAT(calls.take(),
                ElementsAre(SuiteCall{"retain", source.handle()},
                            SuiteCall{"getType", source.handle()},
                            SuiteCall{"release", source.handle()}));
    EXPECT_EQ("text", source.getValue(""));
}

TEST(CastAttribute, EmptiesAWrapperThatIsMovedIntoIt) {
    Attribute source = StringAttribute("text");
    OvAttributeStruct* const handle = source.handle();
    const auto cast = castAttribute<StringAttribute>(std::move(source));
    EXPECT_EQ(handle, cast.handle());
    EXPECT_FALSE(source);
}

template <class Wanted>
bool casts(const Attribute& attribute) {
    return castAttribute<Wanted>(attribute).isValid();
}

TEST(CastAttribute, AcceptsEachKindForItsOwnWrapperAlone) {
    const Attribute kinds[] = {IntAttribute(1),
                               FloatAttribute(1.0F),
                               DoubleAttribute(1.0),
                               StringAttribute("1"),
                               GroupAttribute({}, true)};
    for (int kind = 0; kind < 5; ++kind) {
        const Attribute& attribute = kinds[kind];
        EXPECT_EQ(kind == 0, casts<IntAttribute>(attribute)) << kind;
        EXPECT_EQ(kind == 1, casts<FloatAttribute>(attribute)) << kind;
        EXPECT_EQ(kind == 2, casts<DoubleAttribute>(attribute)) << kind;
        EXPECT_EQ(kind == 3, casts<StringAttribute>(attribute)) << kind;
        EXPECT_EQ(kind == 4, casts<GroupAttribute>(attribute)) << kind;
    }
}

TEST(CastAttribute, MakesAChildOfAnotherKindLookMissing) {
    const GroupAttribute group({{"name", StringAttribute("text")}}, false);
    EXPECT_TRUE(group.getChild<StringAttribute>("name"));
    EXPECT_FALSE(group.getChild<DoubleAttribute>("name"));
    EXPECT_FALSE(group.getChild<GroupAttribute>("name"));
    EXPECT_FALSE(group.getChild<StringAttribute>("other"));
}

}  // namespace
