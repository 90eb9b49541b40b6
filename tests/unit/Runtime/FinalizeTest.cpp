// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Runtime/WaitingRoom.h"
#include "support/Gate.h"
#include "support/HookedOp.h"
#include "support/OpTree.h"
#include "support/RuntimeWalk.h"
#include "support/Threads.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

using namespace ovtest;
using Runtime::Cook;
using Runtime::LocationWriter;

TEST(Finalize, DropsWhatWasCookedAndLeavesTheRuntimeUsable) {
    std::atomic<int> cooks{0};
    const auto client =
        OpTree()
            .op("hook", "test.hook", HookedOpType::hook([&](Cook& cook, LocationWriter& out) {
                    ++cooks;
                    writeSmallScene(cook, out);
                }))
            .open();
    EXPECT_EQ(3, countFrom(*client, "/root"));
    client->getRuntime()->finalize();
    EXPECT_FALSE(client->getCachedLocation("/root").second);
    EXPECT_EQ(3, countFrom(*client, "/root"));
    EXPECT_EQ(8, cooks);
}

TEST(Finalize, WaitsForTheCooksUnderWay) {
    Gate cooking;
    Gate goOn;
    std::atomic<bool> hasEnded{false};
    const auto client =
        OpTree()
            .op("hook", "test.hook", HookedOpType::hook([&](Cook& cook, LocationWriter& out) {
                    writeSmallScene(cook, out);
                    if (cook.path() == "/root/a") {
                        cooking.open();
                        goOn.wait();
                        hasEnded = true;
                    }
                }))
            .open();
    std::thread cook([&] { client->cookLocation("/root/a"); });
    cooking.wait();
    Gate begins;
    std::thread finalizer([&] {
        begins.open();
        client->getRuntime()->finalize();
        EXPECT_TRUE(hasEnded);
    });
    begins.wait();
    goOn.open();
    cook.join();
    finalizer.join();
}

TEST(Finalize, DoesNotWaitForTheCookThatItIsCalledFrom) {
    std::shared_ptr<SylvarRuntime::Client> client;
    client = OpTree()
                 .op("hook", "test.hook", HookedOpType::hook([&](Cook& cook, LocationWriter& out) {
                         writeSmallScene(cook, out);
                         if (cook.path() == "/root/a") {
                             client->getRuntime()->finalize();
                         }
                     }))
                 .open();
    EXPECT_TRUE(client->cookLocation("/root/a").doesLocationExist());
    EXPECT_FALSE(client->getCachedLocation("/root/a").second) << "delivered, and not kept";
}

TEST(Finalize, FromTwoCooksAtOnceEnds) {
    std::shared_ptr<SylvarRuntime::Client> client;
    Barrier both(2);
    std::atomic<int> meetings{2};
    client = OpTree()
                 .op("hook", "test.hook", HookedOpType::hook([&](Cook& cook, LocationWriter& out) {
                         writeSmallScene(cook, out);
                         if (cook.path().size() > 5 && meetings-- > 0) {
                             both.wait();
                             client->getRuntime()->finalize();
                         }
                     }))
                 .open();
    client->cookLocation("/root");
    onThreads(2, [&](int i) {
        EXPECT_TRUE(client->cookLocation(i == 0 ? "/root/a" : "/root/b").doesLocationExist());
    });
}

TEST(Finalize, FromACookThatAnotherThreadWaitsForEnds) {
    std::shared_ptr<SylvarRuntime::Client> client;
    Gate cooking;
    client = OpTree()
                 .op("hook", "test.hook", HookedOpType::hook([&](Cook& cook, LocationWriter& out) {
                         writeSmallScene(cook, out);
                         if (cook.path() == "/root/a" && !cooking.isOpen()) {
                             cooking.open();
                             while (Runtime::WaitingRoom::instance().count() != 1) {
                                 std::this_thread::yield();
                             }
                             client->getRuntime()->finalize();
                         }
                     }))
                 .open();
    std::thread cook([&] { client->cookLocation("/root/a"); });
    cooking.wait();
    EXPECT_TRUE(client->cookLocation("/root/a").doesLocationExist());
    cook.join();
}

TEST(Finalize, WaitsForACookThatFinalizesAnotherRuntimeMeanwhile) {
    Gate otherCooks;
    Gate goOn;
    const auto other =
        OpTree()
            .op("hook", "test.hook", HookedOpType::hook([&](Cook& cook, LocationWriter& out) {
                    writeSmallScene(cook, out);
                    if (cook.path() == "/root/a") {
                        otherCooks.open();
                        goOn.wait();
                    }
                }))
            .open();
    Gate cooking;
    std::atomic<bool> hasEnded{false};
    const auto client =
        OpTree()
            .op("hook", "test.hook", HookedOpType::hook([&](Cook& cook, LocationWriter& out) {
                    writeSmallScene(cook, out);
                    if (cook.path() == "/root/a") {
                        cooking.open();
                        other->getRuntime()->finalize();
                        hasEnded = true;
                    }
                }))
            .open();
    std::thread otherCook([&] { other->cookLocation("/root/a"); });
    otherCooks.wait();
    std::thread cook([&] { client->cookLocation("/root/a"); });
    cooking.wait();
    Gate finalizing;
    std::thread finalizer([&] {
        finalizing.open();
        client->getRuntime()->finalize();
        EXPECT_TRUE(hasEnded);
    });
    finalizing.wait();
    for (int i = 0; i < 1000; ++i) {
        std::this_thread::yield();
    }
    goOn.open();
    finalizer.join();
    cook.join();
    otherCook.join();
}
