// SPDX-License-Identifier: Apache-2.0
// Threads that want the same location while it is cooked.
#include "Platform/Embedded/Runtime/OpGraph.h"
#include "Platform/Embedded/Runtime/WaitingRoom.h"
#include "support/Gate.h"
#include "support/HookedOp.h"
#include "support/OpTree.h"
#include "support/RuntimeWalk.h"
#include "support/Threads.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <new>
#include <string>
#include <thread>

using namespace ovtest;
using namespace Sylvar3::internal::OvAttribute;
using Runtime::Cook;
using Runtime::LocationWriter;

namespace {

std::string errorOf(const SylvarRuntime::LocationData& location) {
    return location.getAttrs().getChild<StringAttribute>("errorMessage").getValue("");
}

/// Comes back when that many threads wait for a cook.
void waitForSleepers(std::int64_t count) {
    while (Runtime::WaitingRoom::instance().count() != count) {
        std::this_thread::yield();
    }
}

/// A hooked op in a client of its own, and the op itself.
struct Interned {
    explicit Interned(const GroupAttribute& arguments)
        : op(Runtime::internOps({{"", "test.hook", arguments, {}}}, "").front()),
          client(OpTree().op("hook", "test.hook", arguments).open()) {}

    std::shared_ptr<Runtime::InternedOp> op;
    std::shared_ptr<SylvarRuntime::Client> client;
};

}  // namespace

TEST(Waiting, SixteenRuntimesCookEachLocationOnce) {
    std::atomic<int> cooks{0};
    const OpTree tree =
        OpTree().op("hook", "test.hook", HookedOpType::hook([&](Cook& cook, LocationWriter& out) {
                        ++cooks;
                        writeSmallScene(cook, out);
                    }));
    const auto holder = tree.open();
    onThreads(16, [&](int) { EXPECT_EQ(3, countFrom(*tree.open(), "/root")); });
    EXPECT_EQ(4, cooks) << "/root, its two children, and what is above";
}

TEST(Waiting, SixteenThreadsOfOneClientCookEachLocationOnce) {
    std::atomic<int> cooks{0};
    const auto client =
        OpTree()
            .op("hook", "test.hook", HookedOpType::hook([&](Cook& cook, LocationWriter& out) {
                    ++cooks;
                    writeSmallScene(cook, out);
                }))
            .open();
    onThreads(40, [&](int) { EXPECT_EQ(3, countFrom(*client, "/root")); });
    EXPECT_EQ(4, cooks);
}

TEST(Waiting, GetsWhatTheOtherCooked) {
    Gate cooking;
    Gate goOn;
    const OpTree tree =
        OpTree().op("hook", "test.hook", HookedOpType::hook([&](Cook& cook, LocationWriter& out) {
                        writeSmallScene(cook, out);
                        if (cook.path() == "/root/a") {
                            cooking.open();
                            goOn.wait();
                        }
                    }));
    const auto first = tree.open();
    const auto second = tree.open();
    SylvarRuntime::LocationData ofFirst;
    SylvarRuntime::LocationData ofSecond;
    std::thread one([&] { ofFirst = first->cookLocation("/root/a"); });
    cooking.wait();
    std::thread other([&] { ofSecond = second->cookLocation("/root/a"); });
    waitForSleepers(1);
    EXPECT_FALSE(second->getCachedLocation("/root/a").second) << "looks without waiting";
    goOn.open();
    one.join();
    other.join();
    EXPECT_TRUE(ofFirst.doesLocationExist());
    EXPECT_EQ(ofFirst.getAttrs().handle(), ofSecond.getAttrs().handle());
}

TEST(Waiting, OneOfThemTriesAgainWhenMemoryRanOut) {
    Gate cooking;
    Gate goOn;
    std::atomic<int> cooks{0};
    const OpTree tree =
        OpTree().op("hook", "test.hook", HookedOpType::hook([&](Cook& cook, LocationWriter& out) {
                        writeSmallScene(cook, out);
                        if (cook.path() == "/root/a" && ++cooks == 1) {
                            cooking.open();
                            goOn.wait();
                            throw std::bad_alloc();
                        }
                    }));
    const auto client = tree.open();
    std::thread one([&] { EXPECT_THROW(client->cookLocation("/root/a"), std::bad_alloc); });
    cooking.wait();
    std::thread others([&] {
        onThreads(3,
                  [&](int) { EXPECT_TRUE(client->cookLocation("/root/a").doesLocationExist()); });
    });
    waitForSleepers(3);
    goOn.open();
    one.join();
    others.join();
    EXPECT_EQ(2, cooks);
}

TEST(Waiting, IsACycleWhereItWouldNeverEnd) {
    // Two ops that read each other, as two files that load each other do, each begun by a thread of
    // its own.
    Runtime::InternedOp* ops[2] = {};
    Barrier bothCook(2);
    std::atomic<int> cooks{0};
    const auto hook = [&](int other) {
        return HookedOpType::hook([&, other](Cook& cook, LocationWriter& out) {
            writeSmallScene(cook, out);
            if (cook.path() == "/root/a") {
                if (++cooks <= 2) {
                    bothCook.wait();
                }
                out.pass(cook.read(*ops[other], "/root/a"));
            }
        });
    };
    Interned first(hook(1));
    Interned second(hook(0));
    ops[0] = first.op.get();
    ops[1] = second.op.get();
    SylvarRuntime::LocationData found[2];
    onThreads(2,
              [&](int i) { found[i] = (i == 0 ? first : second).client->cookLocation("/root/a"); });
    for (const SylvarRuntime::LocationData& location : found) {
        EXPECT_NE(std::string::npos, errorOf(location).find("cycle")) << errorOf(location);
    }
}

TEST(Waiting, IsACycleForAnOpThatReadsItself) {
    Runtime::InternedOp* self = nullptr;
    Interned one(HookedOpType::hook([&](Cook& cook, LocationWriter& out) {
        writeSmallScene(cook, out);
        if (cook.path() == "/root/a") {
            cook.read(*self, "/root/a");
        }
    }));
    self = one.op.get();
    EXPECT_NE(std::string::npos, errorOf(one.client->cookLocation("/root/a")).find("cycle"));
    EXPECT_EQ("", errorOf(one.client->cookLocation("/root/b")));
}

TEST(Waiting, IsForNobodyElsewhereWhileAnInputCooks) {
    Gate cooking;
    Gate goOn;
    const auto slow = HookedOpType::hook([&](Cook& cook, LocationWriter& out) {
        writeSmallScene(cook, out);
        if (cook.path() == "/root/a") {
            cooking.open();
            goOn.wait();
        }
    });
    const auto pass =
        HookedOpType::hook([](Cook& cook, LocationWriter& out) { out.pass(cook.input(0)); });
    const OpTree tree =
        OpTree().op("slow", "test.hook", slow).op("pass", "test.hook", pass, {"slow"});
    const auto client = tree.open();
    const auto other = tree.open();
    std::thread stuck([&] { client->cookLocation("/root/a"); });
    cooking.wait();
    EXPECT_TRUE(client->cookLocation("/root/b").doesLocationExist());
    EXPECT_TRUE(other->cookLocation("/root/b").doesLocationExist());
    other->getRuntime()->evict("/root/b");
    EXPECT_TRUE(other->cookLocation("/root/b").doesLocationExist());
    EXPECT_TRUE(tree.open()->cookLocation("/root/b").doesLocationExist());
    goOn.open();
    stuck.join();
}
