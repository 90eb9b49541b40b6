// SPDX-License-Identifier: Apache-2.0
// Many threads that come and go and do everything at once. Runs for OV_SOAK_SECONDS, 3 unless set.
#include <OvSylvarProducers/AsyncGeometryProducer.h>
#include <OvSylvarProducers/ThreadAwareGeometryProducer.h>
#include <SylvarPlatform/Logging.h>

#include "support/OpTree.h"
#include "support/Threads.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <mutex>
#include <random>
#include <set>
#include <string>
#include <thread>
#include <vector>

using namespace ovtest;
using namespace SYLVAR;
using Sylvar3::internal::OvAttribute::GroupBuilder;
using Sylvar3::internal::OvAttribute::IntAttribute;

namespace {

constexpr int kThreads = 64;

std::chrono::seconds soakTime() {
    const char* const seconds = std::getenv("OV_SOAK_SECONDS");
    return std::chrono::seconds(seconds ? std::atoi(seconds) : 3);
}

GroupAttribute sceneOne() {
    return OpTree()
        .op("few", "generate", Args().set("breadth", 4).set("depth", 5).set("absentEvery", 7))
        .op("faulty",
            "generate",
            Args().set("breadth", 5).set("depth", 3).set("failEvery", 11).set("seed", 1))
        .op("both", "merge", Args().set("attributes", "deep"), {"few", "faulty"})
        .op("set",
            "setAttributes",
            Args()
                .set("paths", std::vector<std::string>{"/root/**/c1"})
                .set("values", GroupBuilder().set("mark", IntAttribute(1)).build()),
            {"both"})
        .group();
}

GroupAttribute sceneTwo() {
    return OpTree().op("wide", "generate", Args().set("shape", "wide").set("breadth", 200)).group();
}

/// One thread's life: random steps from a scene's top, with everything that a client may do.
class Wanderer {
public:
    explicit Wanderer(unsigned seed) : random_(seed) {}

    void live(GroupAttribute scene, int steps) {
        top_ = CreateThreadAwareGeometryProducer(scene, "/root");
        ASSERT_TRUE(top_);
        client = top_->getClient().get();
        GeometryProducerPtr here = top_;
        for (int step = 0; step < steps; ++step) {
            here = next(here);
        }
    }

    const void* client = nullptr;

private:
    GeometryProducerPtr next(const GeometryProducerPtr& here) {
        const auto choice = static_cast<unsigned>(random_() % 200);
        if (choice == 0) {
            here->getClient()->getRuntime()->finalize();
        } else if (choice == 1) {
            here->getClient()->getRuntime()->evict(here->getFullName());
        } else if (choice == 2) {
            CreateAsyncGeometryProducer(here->getClient(), here->getFullName());
        } else if (choice == 3) {
            EXPECT_EQ(32U, here->getHash().size());
        }
        const bool evicts = choice == 4;
        read(*here);
        GeometryProducerPtr there =
            choice % 2 == 0 ? here->getFirstChild(evicts) : here->getNextSibling(evicts);
        if (!there) {
            there = choice % 3 == 0 ? here->parent : top_;
        }
        return there ? there : top_;
    }

    static void read(GeometryProducer& here) {
        const std::string type = here.getType();
        EXPECT_TRUE(type == "group" || here.getAttribute("errorMessage")) << here.getFullName();
    }

    std::mt19937 random_;
    GeometryProducerPtr top_;
};

}  // namespace

TEST(RuntimeSoak, ThreadsThatComeAndGoAndDropThingsEndAndLeaveFewClients) {
    OvLoggingHost::setLogSink([](const OvLoggingHost::LogMessage&) {});
    const GroupAttribute scenes[] = {sceneOne(), sceneTwo()};
    std::mutex mutex;
    std::set<const void*> clients[2];
    const auto end = std::chrono::steady_clock::now() + soakTime();
    unsigned round = 0;
    do {
        onThreads(kThreads, [&](int thread) {
            const auto scene = static_cast<std::size_t>(thread) % 2;
            Wanderer wanderer(round * kThreads + static_cast<unsigned>(thread));
            wanderer.live(scenes[scene], 400);
            const std::lock_guard<std::mutex> lock(mutex);
            clients[scene].insert(wanderer.client);
        });
        ++round;
    } while (std::chrono::steady_clock::now() < end);
    EXPECT_LE(clients[0].size(), std::size_t{kThreads / 2});
    EXPECT_LE(clients[1].size(), std::size_t{kThreads / 2});
    OvLoggingHost::setLogSink({});
}
