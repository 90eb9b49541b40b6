// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/ClientFactory.h>
#include <OvSylvarProducers/SyncGeometryProducer.h>
#include <OvSylvarProducers/ThreadAwareGeometryProducer.h>

#include "support/RuntimeTest.h"
#include "support/Threads.h"

#include <set>

using namespace SYLVAR;
using ovtest::onThreads;

namespace {

constexpr int kThreads = 16;
constexpr int kBreadth = 6;
constexpr int kLocations = 1 + kBreadth + kBreadth * kBreadth;

class ThreadAwareWalk : public ovtest::RuntimeTest {
protected:
    ThreadAwareWalk() {
        Names names;
        for (int i = 0; i < kBreadth; ++i) {
            names.push_back("a_child_of_some_name_" + std::to_string(i));
        }
        fake.at("/root", names);
        for (const std::string& a : names) {
            fake.at("/root/" + a, names);
            for (const std::string& b : names) {
                fake.at("/root/" + a + "/" + b);
            }
        }
    }
};

int countOf(const GeometryProducerPtr& top) {
    int count = 1;
    for (auto child = top->getFirstChild(false); child; child = child->getNextSibling(false)) {
        count += countOf(child);
    }
    return count;
}

}  // namespace

TEST_F(ThreadAwareWalk, LetsSixteenThreadsWalkOneRoot) {
    fake.beQuiet();
    const GeometryProducerPtr root = CreateThreadAwareGeometryProducer(freshTree(), "/root");
    onThreads(kThreads, [&](int) {
        for (int round = 0; round < 5; ++round) {
            EXPECT_EQ(kLocations, countOf(root));
        }
    });
}

TEST_F(ThreadAwareWalk, UsesOneClientForEachThread) {
    const GeometryProducerPtr root = CreateThreadAwareGeometryProducer(freshTree(), "/root");
    std::vector<std::shared_ptr<SylvarRuntime::Client>> clients(kThreads);
    ovtest::Barrier allWalked(kThreads);
    onThreads(kThreads, [&](int i) {
        auto& mine = clients[static_cast<std::size_t>(i)];
        mine = root->getClient();
        for (auto child = root->getFirstChild(false); child; child = child->getNextSibling(false)) {
            EXPECT_EQ(mine, child->getClient());
        }
        allWalked.wait();
    });
    EXPECT_EQ(static_cast<std::size_t>(kThreads), std::set(clients.begin(), clients.end()).size());
}

TEST_F(ThreadAwareWalk, LetsThreadsHandProducersToEachOther) {
    fake.beQuiet();
    const GeometryProducerPtr root = CreateThreadAwareGeometryProducer(freshTree(), "/root");
    std::vector<GeometryProducerPtr> places(kThreads, root);
    ovtest::Barrier step(kThreads);
    onThreads(kThreads, [&](int i) {
        for (int round = 0; round < 40; ++round) {
            const auto place = static_cast<std::size_t>((i + round) % kThreads);
            const GeometryProducerPtr here = places[place];
            const GeometryProducerPtr below = here->getFirstChild(false);
            const GeometryProducerPtr beside = here->getNextSibling(false);
            places[place] = below ? below : beside ? beside : root;
            step.wait();
        }
    });
    for (const GeometryProducerPtr& place : places) {
        EXPECT_EQ(root, place->getRootProducer());
    }
}

TEST_F(ThreadAwareWalk, LetsGoOfProducersOnOtherThreadsThanTheirMakers) {
    fake.beQuiet();
    const GeometryProducerPtr root = CreateThreadAwareGeometryProducer(freshTree(), "/root");
    std::vector<GeometryProducerPtr> made(kThreads);
    ovtest::Barrier allMade(kThreads);
    onThreads(kThreads, [&](int i) {
        made[static_cast<std::size_t>(i)] = root->getFirstChild(false)->getFirstChild(false);
        allMade.wait();
        made[static_cast<std::size_t>((i + 1) % kThreads)].reset();
    });
    EXPECT_EQ(1U, root->use_count());
}

TEST_F(ThreadAwareWalk, EvictsOnManyThreads) {
    const GeometryProducerPtr root = CreateThreadAwareGeometryProducer(freshTree(), "/root");
    onThreads(kThreads, [&](int) {
        for (auto child = root->getFirstChild(true); child; child = child->getNextSibling(true)) {
            EXPECT_EQ(root, child->parent);
        }
    });
}

TEST_F(ThreadAwareWalk, LetsManyThreadsWalkWithOneClientWhenItAllowsThat) {
    fake.beQuiet();
    const GeometryProducerPtr root =
        CreateSyncGeometryProducer(ClientCreateWithOpTree(freshSource()), "/root");
    onThreads(kThreads, [&](int) { EXPECT_EQ(kLocations, countOf(root)); });
}
