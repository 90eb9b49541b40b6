// SPDX-License-Identifier: Apache-2.0
#include "support/StaticScene.h"
#include "support/Threads.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <utility>
#include <vector>

using namespace SYLVAR;
using namespace Sylvar3::internal::OvAttribute;
using ovtest::StaticScene;

namespace {

/// A chain of locations, each the only holder of the one above.
GeometryProducerPtr chainBelow(GeometryProducerPtr top, int length) {
    const GroupAttribute group({}, false);
    for (int i = 0; i < length; ++i) {
        top = CreateStaticGeometryProducer("/x", group, std::move(top));
    }
    return top;
}

/// Walks the whole tree depth first and adds up what it finds.
std::int64_t weightOf(const GeometryProducerPtr& location) {
    std::int64_t weight = castAttribute<IntAttribute>(location->getAttribute("weight")).getValue(0);
    for (auto child = location->getFirstChild(false); child; child = child->getNextSibling(false)) {
        weight += weightOf(child);
    }
    return weight;
}

}  // namespace

TEST(ProducerLifetime, EndsAChainOfAMillionInALoop) {
    GeometryProducerPtr deepest = chainBelow(nullptr, 1000000);
    deepest.reset();
}

TEST(ProducerLifetime, EndsAChainUpToTheFirstAncestorThatIsHeld) {
    const GeometryProducerPtr held = chainBelow(nullptr, 3);
    GeometryProducerPtr deepest = chainBelow(held, 1000);
    deepest.reset();
    EXPECT_EQ(1U, held->use_count());
    EXPECT_NE(nullptr, held->parent);
    EXPECT_NE(nullptr, held->parent->parent);
}

TEST(ProducerLifetime, EndsASharedChainOnceWhenEightThreadsLetGoOfIt) {
    for (int round = 0; round < 50; ++round) {
        GeometryProducerPtr shared = chainBelow(nullptr, 100);
        std::vector<GeometryProducerPtr> ends;
        for (int i = 0; i < 8; ++i) {
            ends.push_back(chainBelow(shared, 3));
        }
        shared.reset();
        ovtest::onThreads(8, [&](int i) { ends[static_cast<std::size_t>(i)].reset(); });
    }
}

TEST(ProducerLifetime, LetsEightThreadsWalkOneTree) {
    StaticScene scene;
    for (int a = 0; a < 10; ++a) {
        for (int b = 0; b < 10; ++b) {
            scene.set("/root/a" + std::to_string(a) + "/b" + std::to_string(b), "weight", b);
        }
    }
    const GeometryProducerPtr root = scene.open();
    ovtest::onThreads(8, [&](int) {
        for (int round = 0; round < 10; ++round) {
            ASSERT_EQ(450, weightOf(root));
        }
    });
}
