// SPDX-License-Identifier: Apache-2.0
#include "Platform/Support/NearestName.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace Sylvar3::internal::Support;

TEST(NearestName, IsOneThatWasProbablyMeant) {
    const std::vector<std::string_view> names = {
        "breadth", "depth", "at", "attributes", "failEvery"};
    struct Row {
        std::string written;
        const char* nearest;
    };
    for (const Row& row : {Row{"bredth", "breadth"},
                           {"Breadth", "breadth"},
                           {"dept", "depth"},
                           {"a", "at"},
                           {"attribute", "attributes"},
                           {"failevery", "failEvery"},
                           {"colour", ""},
                           {"", ""},
                           {std::string(100000, 'a'), ""}}) {
        EXPECT_EQ(row.nearest, nearestName(row.written, names)) << row.written.substr(0, 20);
    }
    EXPECT_EQ("", nearestName("a", {}));
}

TEST(NearestName, EndsAMessageOnANameThatIsNotKnown) {
    const std::vector<std::string_view> names = {"merge", "scene"};
    EXPECT_EQ("; did you mean \"merge\"?", didYouMean("marge", names));
    EXPECT_EQ("", didYouMean("generate", names));
}
