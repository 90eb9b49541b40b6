// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/GeometryProducerGlobalAttributeProvider.h>

#include "support/FakeProducer.h"

#include <gtest/gtest.h>

#include <limits>

using namespace SYLVAR;
using ovtest::FakeProducer;
using Sylvar3::internal::OvAttribute::castAttribute;
using Sylvar3::internal::OvAttribute::IntAttribute;

namespace {

/// Locations from the top down, each with the attribute "level": how far it lies above the last.
GeometryProducerPtr chainOf(int count) {
    GeometryProducerPtr chain;
    for (int level = count - 1; level >= 0; --level) {
        auto* const fake = new FakeProducer("/" + std::to_string(level), chain);
        chain = &fake->set("level", IntAttribute(level));
    }
    return chain;
}

class GlobalAttributeProvider : public testing::Test {
protected:
    static constexpr int kNone = -2;

    /// The level that answers at `depth`, or `kNone`.
    int levelAt(std::int32_t depth) {
        output_ = IntAttribute(-1);
        status_ = provider_.getGlobalAttrAtDepth("level", "not used", depth, &output_);
        return status_ == 0 ? castAttribute<IntAttribute>(output_).getValue(-1) : kNone;
    }

    GeometryProducerGlobalAttributeProvider provider_{chainOf(4)};
    Attribute output_;
    std::int32_t status_ = -1;
};

}  // namespace

TEST_F(GlobalAttributeProvider, WalksUpDepthByDepth) {
    for (int depth = 0; depth < 4; ++depth) {
        EXPECT_EQ(depth, levelAt(depth));
    }
}

TEST_F(GlobalAttributeProvider, AnswersTwoAboveTheTopAndLeavesTheOutputAlone) {
    for (int depth = 0; depth < 4; ++depth) {
        levelAt(depth);
    }
    EXPECT_EQ(kNone, levelAt(4));
    EXPECT_EQ(2, status_);
    EXPECT_EQ(-1, castAttribute<IntAttribute>(output_).getValue(0));
    EXPECT_EQ(kNone, levelAt(5));
}

TEST_F(GlobalAttributeProvider, ReplacesTheOutputByNullWhereTheAttributeIsMissing) {
    output_ = IntAttribute(-1);
    EXPECT_EQ(0, provider_.getGlobalAttrAtDepth("absent", "", 0, &output_));
    EXPECT_FALSE(output_);
}

TEST_F(GlobalAttributeProvider, StaysWhereItIsWhenADepthIsAskedForAgain) {
    levelAt(0);
    EXPECT_EQ(1, levelAt(1));
    EXPECT_EQ(1, levelAt(1));
}

TEST_F(GlobalAttributeProvider, LandsOneLevelUpOnAJumpOfTwo) {
    EXPECT_EQ(0, levelAt(0));
    EXPECT_EQ(1, levelAt(2)) << "one level up, however far the jump";
    EXPECT_EQ(2, levelAt(3)) << "the depth that was asked for is what it remembers";
}

TEST_F(GlobalAttributeProvider, BeginsAtMostOneLevelAboveTheHead) {
    EXPECT_EQ(1, levelAt(3));
}

TEST_F(GlobalAttributeProvider, BeginsAgainAtTheHeadWhenTheDepthShrinks) {
    levelAt(0);
    levelAt(1);
    levelAt(2);
    EXPECT_EQ(1, levelAt(1));
    EXPECT_EQ(0, levelAt(0));
    EXPECT_EQ(1, levelAt(1));
}

TEST_F(GlobalAttributeProvider, HasNoLocationWhenTheFirstDepthIsTheLargest) {
    EXPECT_EQ(kNone, levelAt(std::numeric_limits<std::int32_t>::max()));
    EXPECT_EQ(0, levelAt(0));
}

TEST_F(GlobalAttributeProvider, KeepsTheChainAlive) {
    EXPECT_EQ(0, levelAt(0));
}

TEST(GlobalAttributeProviderWithoutHead, HasNoLocationAtAnyDepth) {
    GeometryProducerGlobalAttributeProvider provider(nullptr);
    Attribute output;
    EXPECT_EQ(2, provider.getGlobalAttrAtDepth("level", "", 0, &output));
    EXPECT_EQ(2, provider.getGlobalAttrAtDepth("level", "", 1, &output));
}
