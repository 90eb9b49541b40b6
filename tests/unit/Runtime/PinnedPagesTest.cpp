// SPDX-License-Identifier: Apache-2.0
#include "support/OpTree.h"
#include "support/RuntimeCounts.h"
#include "support/RuntimeWalk.h"

#include <gtest/gtest.h>

using namespace ovtest;
using namespace Sylvar3::internal::OvAttribute;

namespace {

GroupAttribute generated(int attributes) {
    return Args().set("depth", 2).set("breadth", 20).set("attributes", attributes);
}

std::int64_t pinnedBytes() {
    return RuntimeCounts(*OpTree().op("g", "generate").open()).store("pinnedBytes");
}

}  // namespace

// Locations of many pages that keep values of one another, in both directions.
TEST(Store, FreesPagesOfOneSessionThatKeepValuesOfOneAnother) {
    const std::int64_t before = pinnedBytes();
    {
        const GroupAttribute deep = Args().set("attributes", "deep");
        const auto client = OpTree()
                                .op("few", "generate", generated(2))
                                .op("many", "generate", generated(6))
                                .op("both", "merge", deep, {"few", "many"})
                                .op("all", "merge", deep, {"few", "both"})
                                .open();
        countFrom(*client, "/root");
    }
    EXPECT_EQ(before, pinnedBytes());
}

TEST(Store, FreesPagesOfTwoSessionsThatKeepValuesOfOneAnother) {
    const std::int64_t before = pinnedBytes();
    {
        const auto marked = [](int mark) {
            const GroupAttribute values({{"mark", IntAttribute(mark)}}, false);
            return OpTree()
                .op("g", "generate", generated(4))
                .op("s",
                    "setAttributes",
                    Args().set("paths", "/root/**").set("values", values),
                    {"g"})
                .open();
        };
        const auto one = marked(1);
        const auto two = marked(2);
        countFrom(*one, "/root/c0");
        countFrom(*two, "/root/c1");
        countFrom(*one, "/root/c1");
        countFrom(*two, "/root/c0");
    }
    EXPECT_EQ(before, pinnedBytes());
}

TEST(Store, DoesNotCountAsPinnedWhatOnlyOtherLocationsHold) {
    const auto client =
        OpTree()
            .op("g", "generate", generated(4))
            .op("s",
                "setAttributes",
                Args()
                    .set("paths", "/root/**")
                    .set("values", GroupAttribute({{"mark", IntAttribute(3)}}, false)),
                {"g"})
            .open();
    countFrom(*client, "/root");
    const RuntimeCounts counts(*client);
    EXPECT_GT(counts.store("bytes"), 300'000);
    EXPECT_LE(counts.store("pinnedBytes"), 130'000) << "no more than the page that is open";
    const auto held = client->cookLocation("/root/c3");
    EXPECT_GT(RuntimeCounts(*client).store("pinnedBytes"), 0);
}
