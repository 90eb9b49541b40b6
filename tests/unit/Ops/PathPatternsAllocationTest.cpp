// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/Patterns/PathPatterns.h"
#include "support/AllocationCount.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace Sylvar3::internal::OvSylvar::Embedded;
using ovtest::allocationsIn;

TEST(PathPatternsAllocations, AThousandPatternsAnswerWithoutAny) {
    std::vector<std::string> list;
    for (int i = 0; i < 250; ++i) {
        const std::string number = std::to_string(i);
        list.insert(list.end(),
                    {"/root/world/street" + number + "/**",
                     "!/root/world/lamp" + number + "*",
                     "/root/**/name" + number + "_*",
                     "!/root/**/{left,right}_" + number + "geo"});
    }
    const PathPatterns patterns(list);
    const std::string path = "/root/world/street17/house/name17_roof/left_17geo";
    bool matches = false;
    bool isWithinMatch = false;
    bool canMatchBelow = false;
    EXPECT_EQ(0, allocationsIn([&] {
                  matches = patterns.matches(path);
                  isWithinMatch = patterns.isWithinMatch(path);
                  canMatchBelow = patterns.canMatchBelow(path);
              }));
    EXPECT_FALSE(matches);
    EXPECT_FALSE(isWithinMatch);
    EXPECT_TRUE(canMatchBelow);
}
