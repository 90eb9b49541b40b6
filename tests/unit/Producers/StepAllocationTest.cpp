// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/ClientFactory.h>
#include <OvSylvarProducers/SyncGeometryProducer.h>
#include <OvSylvarProducers/ThreadAwareGeometryProducer.h>

#include "support/AllocationCount.h"
#include "support/RuntimeTest.h"

#include <thread>

using namespace SYLVAR;

namespace {

constexpr const char* kFirst = "a_name_of_some_length_0000";
constexpr const char* kSecond = "a_name_of_some_length_0001";

/// The path of the next producer and the producer itself.
constexpr std::int64_t kForAStep = 2;

class StepAllocation : public ovtest::RuntimeTest {
protected:
    explicit StepAllocation(int width = 2) {
        Names names;
        for (int i = 0; i < width; ++i) {
            const std::string digits = std::to_string(10000 + i).substr(1);
            names.push_back("a_name_of_some_length_" + digits);
            fake.at("/root/" + names.back());
        }
        fake.at("/root", names);
        fake.beQuiet();
    }

    /// Each step once, the first of its kind before it counts.
    static void expectTwoForAStep(const GeometryProducerPtr& root) {
        GeometryProducerPtr first = root->getFirstChild(false);
        GeometryProducerPtr second;
        EXPECT_EQ(kForAStep, ovtest::allocationsIn([&] { first = root->getFirstChild(false); }));
        EXPECT_EQ(kForAStep, ovtest::allocationsIn([&] { second = first->getNextSibling(false); }));
        EXPECT_EQ(kForAStep,
                  ovtest::allocationsIn([&] { second = root->getChildByName(kSecond, false); }));
        EXPECT_EQ(std::string("/root/") + kFirst, first->getFullName());
        EXPECT_EQ(std::string("/root/") + kSecond, second->getFullName());
    }
};

class WideStepAllocation : public StepAllocation {
protected:
    WideStepAllocation() : StepAllocation(5000) {}
};

}  // namespace

TEST_F(StepAllocation, OfASyncProducerIsThePathAndTheProducer) {
    expectTwoForAStep(CreateSyncGeometryProducer(ClientCreateWithOpTree(freshSource()), "/root"));
}

TEST_F(StepAllocation, OfAThreadAwareProducerIsThePathAndTheProducer) {
    expectTwoForAStep(CreateThreadAwareGeometryProducer(freshTree(), "/root"));
}

TEST_F(StepAllocation, OnAnotherThreadIsTheSameBelowTheFirst) {
    const GeometryProducerPtr root = CreateThreadAwareGeometryProducer(freshTree(), "/root");
    std::thread([&] {
        GeometryProducerPtr first = root->getFirstChild(false);
        GeometryProducerPtr second;
        EXPECT_EQ(kForAStep, ovtest::allocationsIn([&] { second = first->getNextSibling(false); }));
    }).join();
}

TEST_F(WideStepAllocation, ReadsNamesWithoutAnyOfItsOwn) {
    expectTwoForAStep(CreateThreadAwareGeometryProducer(freshTree(), "/root"));
    expectTwoForAStep(CreateSyncGeometryProducer(ClientCreateWithOpTree(freshSource()), "/root"));
}
