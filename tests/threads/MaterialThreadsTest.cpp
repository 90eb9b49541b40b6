// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/FlattenedMaterial.h>
#include <OvSylvarProducers/ShadingNodeDescription.h>

#include "support/StaticScene.h"
#include "support/Threads.h"
#include "support/WrittenAttributes.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

using namespace SYLVAR;
using namespace Sylvar3::internal::OvAttribute;
using ovtest::Barrier;
using ovtest::onThreads;

namespace {

constexpr int kThreads = 16;
constexpr int kRounds = 50;
const std::vector<std::string> kTerminals = {"surface", "bump"};

std::string networkOf(const std::string& terminal, int number) {
    return R"({"style": "network", "info": "cut", "nodes": {"n": {"name": "n", "type": "t)" +
           std::to_string(number) + R"(", "connections": {"in": "out@n"}}}, "terminals": {")" +
           terminal + R"(": "n"}})";
}

/// A location for each thread, all of which inherit from one.
class SharedLeaves {
public:
    SharedLeaves() {
        ovtest::StaticScene scene;
        scene.set("/root", "material", ovtest::written(networkOf("surface", -1)));
        for (int i = 0; i < kThreads; ++i) {
            scene.set(pathOf(i), "material", ovtest::written(networkOf("bump", i)));
        }
        for (int i = 0; i < kThreads; ++i) {
            leaves.push_back(scene.open(pathOf(i)));
            EmptyFlattenedMaterialCache();
            expected.push_back(GetFlattenedMaterialAttr(leaves.back(), kTerminals).getHash());
        }
        EmptyFlattenedMaterialCache();
    }
    ~SharedLeaves() { EmptyFlattenedMaterialCache(); }
    SharedLeaves(const SharedLeaves&) = delete;
    SharedLeaves& operator=(const SharedLeaves&) = delete;

    std::vector<GeometryProducerPtr> leaves;
    std::vector<Hash> expected;

private:
    static std::string pathOf(int i) { return "/root/leaf" + std::to_string(i); }
};

}  // namespace

TEST(MaterialThreads, FlattenTheSameAndOtherLocationsWhileOneEmptiesTheCache) {
    const SharedLeaves shared;
    Barrier next(kThreads + 1);
    onThreads(kThreads + 1, [&](int thread) {
        for (int round = 0; round < kRounds; ++round) {
            next.wait();
            if (thread == kThreads) {
                for (int i = 0; i < kThreads; ++i) {
                    EmptyFlattenedMaterialCache();
                }
                continue;
            }
            for (const int offset : {0, thread, thread + 1}) {  // One that all want, and others.
                const auto leaf = static_cast<std::size_t>((round + offset) % kThreads);
                const GroupAttribute found =
                    GetFlattenedMaterialAttr(shared.leaves[leaf], kTerminals);
                ASSERT_EQ(shared.expected[leaf], found.getHash());
            }
        }
    });
}

TEST(MaterialThreads, ThatMissAtOnceAgreeAboutWhatIsRememberedAfterwards) {
    const SharedLeaves shared;
    for (int round = 0; round < kRounds; ++round) {
        EmptyFlattenedMaterialCache();
        std::vector<GroupAttribute> found(kThreads);
        onThreads(kThreads, [&](int thread) {
            found[static_cast<std::size_t>(thread)] =
                GetFlattenedMaterialAttr(shared.leaves[0], kTerminals);
        });
        const GroupAttribute remembered = GetFlattenedMaterialAttr(shared.leaves[0], kTerminals);
        bool isOneOfThem = false;
        for (const GroupAttribute& one : found) {
            ASSERT_EQ(shared.expected[0], one.getHash());
            isOneOfThem = isOneOfThem || one.handle() == remembered.handle();
        }
        ASSERT_TRUE(isOneOfThem);
    }
}

TEST(MaterialThreads, ReadTheNodesOfOneNetwork) {
    const SharedLeaves shared;
    const GroupAttribute network = GetFlattenedMaterialAttr(shared.leaves[3], kTerminals);
    ShadingNodeDescription::Nodes nodes;
    ShadingNodeDescription::GetShadingNetworkNodes(network, nodes);
    onThreads(kThreads, [&](int) {
        for (int round = 0; round < kRounds; ++round) {
            ShadingNodeDescription::Nodes own;
            ShadingNodeDescription::GetShadingNetworkNodes(network, own);
            ASSERT_EQ(nodes.size(), own.size());
            ASSERT_EQ("t3", nodes.at("n:0")->getType());
            ASSERT_EQ("n:1", nodes.at("n:1")->getConnection("in")->getConnectedNodeName());
        }
    });
}
