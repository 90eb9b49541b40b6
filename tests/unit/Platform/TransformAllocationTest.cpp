// SPDX-License-Identifier: Apache-2.0
#include "support/AllocationCount.h"
#include "support/Transforms.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace ovtest;

/// Five locations that are moved, turned and scaled, each with 3 samples.
GroupAttribute movingChain() {
    const GroupAttribute transform = group({{"translate", slide({{0, 1}, {1, 2}, {2, 3}})},
                                            {"rotate", doubles({30, 1, 0, 0})},
                                            {"scale", slide({{0, 1}, {1, 2}, {2, 3}})}});
    Children levels;
    for (int i = 0; i < 5; ++i) {
        levels.emplace_back("i" + std::to_string(i), transform);
    }
    return group(levels);
}

TEST(TransformAllocations, AreOneForTheMatrixAtOneTime) {
    const GroupAttribute chain = movingChain();
    EXPECT_EQ(1, allocationsIn([&] { atTime(chain, 0.5F); }));
}

TEST(TransformAllocations, AreAHandfulForTheMatricesAtAFewTimes) {
    const GroupAttribute chain = movingChain();
    EXPECT_GE(5, allocationsIn([&] { atExistingTimes(chain); }));
}

}  // namespace
