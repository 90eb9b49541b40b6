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

TEST(Lifetime, OfPagesWhoseLocationsReferToOneAnotherEnds) {
    const std::int64_t before = allBytes();
    {
        const Ops ops =
            twoOps(hooked(writeSmallScene),
                   hooked([](Cook& cook, LocationWriter& out) { out.pass(cook.input(0)); }));
        Session one;
        Session other;
        one.tryTake(Store::instance().age());
        other.tryTake(Store::instance().age());
        cookLocation(one, *ops[0], "/root/a");
        cookLocation(other, *ops[0], "/root/b");
        cookLocation(one, *ops[1], "/root/b");
        cookLocation(other, *ops[1], "/root/a");
        one.giveBack();
        other.giveBack();
    }
    EXPECT_EQ(before, allBytes());
}

TEST(Lifetime, OfPagesEndsWhenOneThreadCooksALongChain) {
    const std::int64_t before = allBytes();
    {
        OpTree tree;
        tree.op("g", "generate", Args().set("depth", 6).set("count", 600));
        std::string last = "g";
        for (int i = 0; i < 20; ++i) {
            const std::string name = "s" + std::to_string(i);
            tree.op(name,
                    "setAttributes",
                    Args()
                        .set("paths", "/root/**")
                        .set("values", GroupAttribute(Args().set("note" + name, i))),
                    {last});
            last = name;
        }
        EXPECT_EQ(600, countFrom(*tree.open(), "/root"));
    }
    EXPECT_EQ(before, allBytes());
}

TEST(Lifetime, OfPagesEndsWhenManyThreadsCookTwoScenesOfOne) {
    const std::int64_t before = allBytes();
    {
        OpTree tree;
        tree.op("g", "generate", Args().set("depth", 6).set("count", 2000).set("seed", 77));
        const auto below = tree.open();
        tree.op("s",
                "setAttributes",
                Args().set("paths", "/root/**").set("values", GroupAttribute(Args().set("n", 1))),
                {"g"});
        const auto above = tree.open();
        onThreads(8, [&](int thread) {
            EXPECT_EQ(2000, countFrom(thread % 2 == 0 ? *below : *above, "/root"));
        });
    }
    EXPECT_EQ(before, allBytes());
}

TEST(Lifetime, OfPagesEndsWhenAnOpKeepsAGroupOfItsInputs) {
    const std::int64_t before = allBytes();
    {
        const Ops ops =
            twoOps(hooked(writeSmallScene), hooked([](Cook& cook, LocationWriter& out) {
                       const Runtime::Location input = cook.input(0);
                       const GroupAttribute group =
                           GroupBuilder().set("of", Attribute::share(input.attributes())).build();
                       out.setAttributes(
                           static_cast<LocationWriter::GroupValue*>(out.keep(*group.handle())));
                       out.setChildrenOf(input);
                   }));
        Session session;
        session.tryTake(Store::instance().age());
        cookLocation(session, *ops[1], "/root/a");
        session.giveBack();
    }
    EXPECT_EQ(before, allBytes());
}

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
