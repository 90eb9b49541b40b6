// SPDX-License-Identifier: Apache-2.0
// What is dropped while others cook and wait.
#include "Platform/Embedded/Runtime/AttributeEdit.h"
#include "Platform/Embedded/Runtime/WaitingRoom.h"
#include "support/Gate.h"
#include "support/HookedOp.h"
#include "support/OpTree.h"
#include "support/RuntimeWalk.h"
#include "support/Threads.h"

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

using namespace ovtest;
using namespace Sylvar3::internal::OvAttribute;
using Runtime::Cook;
using Runtime::LocationWriter;

namespace {

void waitForSleepers(std::int64_t count) {
    while (Runtime::WaitingRoom::instance().count() != count) {
        std::this_thread::yield();
    }
}

/// A small scene whose locations tell the version that they were cooked of, and that can be held up
/// at one location.
class VersionedScene {
public:
    VersionedScene()
        : tree_(OpTree().op("hook",
                            "test.hook",
                            HookedOpType::hook([this](Cook& cook, LocationWriter& out) {
                                this->cook(cook, out);
                            }))) {}

    std::shared_ptr<SylvarRuntime::Client> open() const { return tree_.open(); }

    static int versionOf(const SylvarRuntime::LocationData& location) {
        return location.getAttrs().getChild<IntAttribute>("version").getValue(-1);
    }

    std::atomic<int> version{1};
    std::atomic<int> cooks{0};
    std::atomic<bool> holdsUp{false};
    Gate cooking;
    Gate goOn;

private:
    void cook(Cook& cook, LocationWriter& out) {
        ++cooks;
        const int now = version;
        writeSmallScene(cook, out);
        if (cook.path() == "/root/a" && holdsUp.exchange(false)) {
            cooking.open();
            goOn.wait();
        }
        Runtime::AttributeEdit attributes;
        attributes.set("version", out.addInt(now));
        out.setAttributes(attributes.write(out));
    }

    OpTree tree_;
};

}  // namespace

TEST(Evict, MakesTheNextCookFreshForAllRuntimes) {
    VersionedScene scene;
    const auto client = scene.open();
    const auto other = scene.open();
    EXPECT_EQ(1, scene.versionOf(client->cookLocation("/root/a")));
    scene.version = 2;
    EXPECT_EQ(1, scene.versionOf(other->cookLocation("/root/a"))) << "what was cooked is kept";
    client->getRuntime()->evict("/root/a");
    EXPECT_FALSE(other->getCachedLocation("/root/a").second);
    EXPECT_EQ(2, scene.versionOf(client->cookLocation("/root/a")));
    EXPECT_EQ(2, scene.versionOf(other->cookLocation("/root/a")));
    EXPECT_EQ(1, scene.versionOf(other->cookLocation("/root"))) << "the rest stays";
}

TEST(Evict, DropsWhatLiesBelow) {
    VersionedScene scene;
    const auto client = scene.open();
    countFrom(*client, "/root");
    client->getRuntime()->evict("/root");
    EXPECT_FALSE(client->getCachedLocation("/root").second);
    EXPECT_FALSE(client->getCachedLocation("/root/b").second);
}

TEST(Evict, OfALocationThatNobodyCookedDoesNothing) {
    VersionedScene scene;
    const auto client = scene.open();
    for (const char* const path : {"/root", "/root/a", "/root/nothing", "/nothing", "", "/", "x"}) {
        client->getRuntime()->evict(path);
    }
    EXPECT_EQ(0, scene.cooks);
}

TEST(Evict, DuringACookDeliversItToWhoWaitsAndDoesNotKeepIt) {
    VersionedScene scene;
    const auto client = scene.open();
    client->cookLocation("/root");
    scene.holdsUp = true;
    int versions[2] = {};
    std::thread cook([&] { versions[0] = scene.versionOf(client->cookLocation("/root/a")); });
    scene.cooking.wait();
    std::thread waiter([&] { versions[1] = scene.versionOf(client->cookLocation("/root/a")); });
    waitForSleepers(1);
    scene.version = 2;
    client->getRuntime()->evict("/root/a");
    EXPECT_EQ(2, scene.versionOf(client->cookLocation("/root/a")))
        << "the next cook waits for none that began before";
    scene.goOn.open();
    cook.join();
    waiter.join();
    EXPECT_EQ(1, versions[0]);
    EXPECT_EQ(1, versions[1]);
    EXPECT_EQ(2, scene.versionOf(client->cookLocation("/root/a"))) << "the old one is not kept";
}

TEST(Evict, OfTheParentDuringACookDoesNotKeepTheChild) {
    VersionedScene scene;
    const auto client = scene.open();
    client->cookLocation("/root");
    scene.holdsUp = true;
    int version = 0;
    std::thread cook([&] { version = scene.versionOf(client->cookLocation("/root/a")); });
    scene.cooking.wait();
    scene.version = 2;
    client->getRuntime()->evict("/root");
    scene.goOn.open();
    cook.join();
    EXPECT_EQ(1, version);
    EXPECT_FALSE(client->getCachedLocation("/root/a").second);
    EXPECT_EQ(2, scene.versionOf(client->cookLocation("/root/a")));
}

TEST(Evict, DropsWhatWasReadAtOtherPathsToMakeALocation) {
    std::atomic<int> sourceCooks{0};
    const auto source = HookedOpType::hook([&](Cook& cook, LocationWriter& out) {
        sourceCooks += cook.path() == "/root/b" ? 1 : 0;
        writeSmallScene(cook, out);
    });
    const auto mirror = HookedOpType::hook([](Cook& cook, LocationWriter& out) {
        if (cook.path() == "/root/a") {
            return out.pass(cook.input(0, "/root/b"));
        }
        out.pass(cook.input(0));
    });
    const auto client = OpTree()
                            .op("source", "test.hook", source)
                            .op("mirror", "test.hook", mirror, {"source"})
                            .open();
    client->cookLocation("/root/a");
    client->cookLocation("/root/b");
    EXPECT_EQ(1, sourceCooks);
    client->getRuntime()->evict("/root/a");
    client->cookLocation("/root/a");
    EXPECT_EQ(2, sourceCooks);
}

TEST(Evict, WhileManyWalkNeverMixesAParentWithAChildOfAnotherTime) {
    VersionedScene scene;
    std::atomic<bool> isOver{false};
    const auto evicting = scene.open();
    std::thread evictor([&] {
        for (int i = 2; i < 2000; ++i) {
            scene.version = i;
            evicting->getRuntime()->evict("/root");
        }
        isOver = true;
    });
    onThreads(4, [&](int) {
        const auto client = scene.open();
        int lastParent = 0;
        while (!isOver) {
            const int parent = scene.versionOf(client->cookLocation("/root"));
            const int child = scene.versionOf(client->cookLocation("/root/a"));
            EXPECT_LE(lastParent, parent) << "an older one than was seen before";
            EXPECT_LE(parent, child) << "a child from before its parent";
            lastParent = parent;
        }
    });
    evictor.join();
    EXPECT_EQ(1999, scene.versionOf(evicting->cookLocation("/root/a")));
}
