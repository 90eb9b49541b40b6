// SPDX-License-Identifier: Apache-2.0
// Where values come from, while what was cooked is dropped.
#include "support/OpTree.h"
#include "support/Sanitized.h"
#include "support/StaticScene.h"
#include "support/Threads.h"
#include "support/TraceLines.h"

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <vector>

using namespace ovtest;
using namespace Sylvar3::internal::OvAttribute;

namespace {

constexpr int kLength = 30;
constexpr int kTracers = 3;

int rounds() {
    return kIsSanitized ? 50 : 300;
}

/// Ops one above the other, of which each sets "last" and an attribute of its own.
OpTree chain() {
    OpTree tree;
    tree.op(
        "op0", "scene", Args().set("tree", StaticScene().set("/root/a/b", "type", "mesh").group()));
    for (int i = 1; i <= kLength; ++i) {
        const GroupAttribute values = GroupBuilder()
                                          .set("last", IntAttribute(i))
                                          .set("own" + std::to_string(i), IntAttribute(i))
                                          .build();
        tree.op("op" + std::to_string(i),
                "setAttributes",
                Args().set("paths", "/root/a/b").set("values", values),
                {"op" + std::to_string(i - 1)});
    }
    return tree;
}

}  // namespace

TEST(TraceEvict, TellsTheSameWhileOthersDropWhatItFollows) {
    const auto client = chain().open();
    const std::vector<std::string> names = {"type", "last", "own1", "own15", "", "gone"};
    std::vector<std::vector<std::string>> expected;
    for (const std::string& name : names) {
        expected.push_back(traceOf(*client, "/root/a/b", name));
    }
    ASSERT_EQ(kLength + 1U, expected.front().size());
    std::atomic<int> tracing{kTracers};
    onThreads(kTracers + 1, [&](int thread) {
        if (thread == kTracers) {
            for (int i = 0; tracing.load() > 0; ++i) {
                client->getRuntime()->evict(i % 2 == 0 ? "/root/a/b" : "/root");
                if (i % 8 == 7) {
                    client->getRuntime()->finalize();
                }
            }
            return;
        }
        for (int i = 0; i < rounds(); ++i) {
            const auto which = static_cast<std::size_t>(i + thread) % names.size();
            EXPECT_EQ(expected[which], traceOf(*client, "/root/a/b", names[which]));
        }
        --tracing;
    });
}
