// SPDX-License-Identifier: Apache-2.0
// What is cooked, and the ops that cook it, end when nobody needs them, and not before.
#include <SylvarPlatform/Configuration.h>

#include "Platform/Embedded/Runtime/AttributeEdit.h"
#include "Platform/Embedded/Runtime/OpGraph.h"
#include "Platform/Embedded/Runtime/Session.h"
#include "Platform/Embedded/Runtime/Store.h"
#include "support/HookedOp.h"
#include "support/OpTree.h"
#include "support/RuntimeWalk.h"
#include "support/Sanitized.h"
#include "support/Threads.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

using namespace ovtest;
using namespace Sylvar3::internal::OvAttribute;
using Runtime::Cook;
using Runtime::InternedOp;
using Runtime::LocationWriter;
using Runtime::OpSpec;
using Runtime::Session;
using Runtime::Store;

namespace {

using Ops = std::vector<std::shared_ptr<InternedOp>>;

/// An op without inputs, and one that has it as its input.
Ops twoOps(Runtime::OpSpec first, OpSpec second) {
    second.inputs = {0};
    return Runtime::internOps({std::move(first), std::move(second)}, "");
}

OpSpec hooked(CookHook hook) {
    return {"", "test.hook", HookedOpType::hook(std::move(hook)), {}};
}

std::int64_t allBytes() {
    const Runtime::StoreTotals totals = Store::instance().totals();
    return totals.bytes + totals.pinnedBytes;
}

}  // namespace

TEST(Lifetime, OfAnOpThatIsInternedWhileItsLastReaderEnds) {
    const CookHook nothing = [](Cook&, LocationWriter&) {};
    std::vector<OpSpec> specs;
    for (std::size_t i = 0; i < 4; ++i) {
        specs.push_back(hooked(nothing));
        if (i != 0) {
            specs.back().inputs = {i - 1};
        }
    }
    onThreads(4, [&](int) {
        for (int round = 0; round < (kIsSanitized ? 2'000 : 20'000); ++round) {
            const Ops ops = Runtime::internOps(specs, "");
            for (std::size_t i = 1; i < ops.size(); ++i) {
                ASSERT_EQ(1U, ops[i]->inputs().size());
                ASSERT_EQ(ops[i - 1], ops[i]->inputs().front());
            }
        }
    });
}

TEST(Lifetime, OfWhatIsAboveALocationMayBeShorterThanItsCook) {
    using namespace Sylvar3::OvConfiguration::v1;
    Config()->set("SYLVAR_MEMORY_BUDGET", "1000");
    const auto client =
        OpTree()
            .op("hook", "test.hook", HookedOpType::hook([](Cook& cook, LocationWriter& out) {
                    out.setChildren({cook.path().empty() ? "root" : "a"});
                    Runtime::AttributeEdit attributes;
                    attributes.set("text", out.addString(std::string(100'000, 'x')));
                    out.setAttributes(attributes.write(out));
                }))
            .open();
    EXPECT_TRUE(client->cookLocation("/root/a/a/a").doesLocationExist());
    Config()->unset("SYLVAR_MEMORY_BUDGET");
    OpTree().op("g", "generate").open();
}
