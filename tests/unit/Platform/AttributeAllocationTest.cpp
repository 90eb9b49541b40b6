// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/GroupBuilder.h>
#include <SylvarPlatform/SampleAccessor.h>

#include "support/AllocationCount.h"
#include "support/AttributeBytes.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace Sylvar3::internal::OvAttribute;
using ovtest::allocationsIn;

TEST(Allocations, AreOneForADataAttributeWhateverItHolds) {
    const std::string longText(1000, 'x');
    const std::vector<double> many(1000, 1.5);
    EXPECT_EQ(1, allocationsIn([] { IntAttribute(7); }));
    EXPECT_EQ(1, allocationsIn([] { FloatAttribute(7.0F); }));
    EXPECT_EQ(1, allocationsIn([] { DoubleAttribute(7.0); }));
    EXPECT_EQ(1, allocationsIn([] { StringAttribute("text"); }));
    EXPECT_EQ(1, allocationsIn([&] { StringAttribute(longText.c_str()); }));
    EXPECT_EQ(1, allocationsIn([&] { DoubleAttribute(many, 16); }));
    const char* const words[] = {"one", "two", "three"};
    EXPECT_EQ(1, allocationsIn([&] {
                  Attribute::adopt(OvGetAttributeSuite()->createStringArray(words, 3, 1));
              }));
}

class GroupOfEight : public testing::Test {
protected:
    GroupAttribute make() const {
        return GroupAttribute::adopt(OvGetAttributeSuite()->createGroup(names_, handles_, 8, 0));
    }

    const StringAttribute child_{"child"};
    const char* const names_[8] = {"a", "b", "c", "d", "e", "f", "g", "h"};
    OvAttributeStruct* const handles_[8] = {child_.handle(),
                                            child_.handle(),
                                            child_.handle(),
                                            child_.handle(),
                                            child_.handle(),
                                            child_.handle(),
                                            child_.handle(),
                                            child_.handle()};
};

TEST_F(GroupOfEight, IsMadeInAtMostThreeAllocations) {
    make();  // Names that were known once have their place in the table of shapes.
    EXPECT_GE(3, allocationsIn([&] { make(); }));
}

TEST_F(GroupOfEight, IsMadeInOneWhenItsNamesAreKnown) {
    const GroupAttribute first = make();
    EXPECT_EQ(1, allocationsIn([&] { make(); }));
}

TEST_F(GroupOfEight, AllocatesNothingToBeHashedAgain) {
    const GroupAttribute group = make();
    group.getHash();
    EXPECT_EQ(0, allocationsIn([&] {
                  group.getHash();
                  child_.getHash();
              }));
}

TEST_F(GroupOfEight, AllocatesNothingToBeLookedUpCopiedAndWalked) {
    const GroupAttribute outer({{"inner", make()}}, false);
    EXPECT_EQ(0, allocationsIn([&] {
                  const Attribute copy = outer;
                  const auto found = outer.getChild<StringAttribute>("inner.h");
                  const auto group = outer.getChild<GroupAttribute>("inner");
                  for (std::int64_t i = 0; i < group.getNumberOfChildren(); ++i) {
                      EXPECT_EQ(1U, group.getChildNameView(i).size());
                      EXPECT_EQ(found.handle(), group.getChildByIndex(i).handle());
                  }
                  EXPECT_FALSE(outer.getChildByName("inner.absent"));
              }));
}

TEST(Allocations, AreNoneForLookupsInALargeGroup) {
    GroupBuilder builder;
    for (int i = 0; i < 10000; ++i) {
        builder.set("n" + std::to_string(i), IntAttribute(i));
    }
    const GroupAttribute group = builder.build();
    EXPECT_EQ(0, allocationsIn([&] {
                  EXPECT_EQ(9999, group.getChild<IntAttribute>("n9999").getValue(0));
              }));
}

TEST(Allocations, AreNoneForReadingValuesAndSamples) {
    const DoubleAttribute doubles(TimedSamples<double>{{-1, {1, 2}}, {1, {3, 4}}});
    const StringAttribute strings(std::vector<std::string>{"a", "b"});
    EXPECT_EQ(0, allocationsIn([&] {
                  EXPECT_EQ(1.0, getDoubleValue(doubles, 0.0, true));
                  EXPECT_EQ(4.0, doubles.getValue(0.0, 1, 9.0F));
                  const SampleAccessor<DoubleAttribute> samples(doubles, 0.0F);
                  EXPECT_EQ(1.0, *samples.getNearest());
                  EXPECT_STREQ("b", SampleAccessor<StringAttribute>(strings, 0.0F).getNearest()[1]);
                  double value = 0.0;
                  doubles.fillInterpSample(&value, 1, 0.0F, 0.0, false);
                  EXPECT_EQ(2.0, value);
              }));
}

TEST(Allocations, AreFarFewerThanValuesInAReadFile) {
    GroupBuilder builder;
    for (int i = 0; i < 10000; ++i) {
        builder.set("group" + std::to_string(i % 100) + ".n" + std::to_string(i % 97),
                    IntAttribute(i));
    }
    const std::string bytes = ovtest::binaryOf(builder.build());
    AttributeReadResult read;
    EXPECT_GE(1000, allocationsIn([&] { read = ovtest::readBytes(bytes); }));
    EXPECT_TRUE(read.attribute);
}

}  // namespace
