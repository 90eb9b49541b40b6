// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/GeometryProducer.h>

#include "Producers/InstanceCount.h"
#include "support/FakeProducer.h"
#include "support/StaticScene.h"
#include "support/SuiteScope.h"
#include "support/Threads.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <type_traits>
#include <vector>

using namespace SYLVAR;
using namespace Sylvar3::internal::OvAttribute;
using ovtest::FakeProducer;
using ovtest::StaticScene;

namespace {

/// The place of a virtual function in the table, read from a pointer to it.
template <class Function>
std::ptrdiff_t slotOf(Function function) {
    std::ptrdiff_t place = 0;
    std::memcpy(&place, &function, sizeof place);
    return (place - 1) / static_cast<std::ptrdiff_t>(sizeof(void*));
}

std::uint32_t instances() {
    return instanceCount.sum();
}

GeometryProducerPtr withType(const Attribute& type) {
    return StaticScene().set("/root", "type", type).open();
}

}  // namespace

TEST(GeometryProducer, KeepsItsVirtualOperationsInTheirSlotsBehindTheDestructor) {
    const std::ptrdiff_t first = 2;  // a virtual destructor takes two
    EXPECT_EQ(first + 0, slotOf(&GeometryProducer::getAttributeNames));
    EXPECT_EQ(first + 1, slotOf(&GeometryProducer::getPotentialChildren));
    EXPECT_EQ(first + 2, slotOf(&GeometryProducer::getAttribute));
    EXPECT_EQ(first + 3, slotOf(&GeometryProducer::getName));
    EXPECT_EQ(first + 4, slotOf(&GeometryProducer::getFullName));
    EXPECT_EQ(first + 5, slotOf(&GeometryProducer::getHash));
    EXPECT_EQ(first + 6, slotOf(&GeometryProducer::getChildByName));
    EXPECT_EQ(first + 7, slotOf(&GeometryProducer::getFirstChild));
    EXPECT_EQ(first + 8, slotOf(&GeometryProducer::getNextSibling));
    EXPECT_EQ(first + 9, slotOf(&GeometryProducer::getClient));
}

TEST(GeometryProducer, CountsItsReferencesAtomicallyFromZero) {
    using Counter =
        boost::sp_adl_block::intrusive_ref_counter<GeometryProducer,
                                                   boost::sp_adl_block::thread_safe_counter>;
    EXPECT_TRUE((std::is_base_of_v<Counter, GeometryProducer>));
    auto* const born = new FakeProducer("/root");
    EXPECT_EQ(0U, born->use_count());
    const GeometryProducerPtr held(born);
    EXPECT_EQ(1U, born->use_count());
}

TEST(GeometryProducer, HoldsItsParentBehindItsCount) {
    const GeometryProducerPtr fake(new FakeProducer("/root"));
    const auto* const begin = reinterpret_cast<const char*>(fake.get());
    const auto* const parent = reinterpret_cast<const char*>(&fake->parent);
    EXPECT_EQ(2 * static_cast<std::ptrdiff_t>(sizeof(void*)), parent - begin);
}

TEST(GeometryProducer, HasNoClientUnlessItSaysSo) {
    const GeometryProducerPtr fake(new FakeProducer("/root"));
    EXPECT_EQ(nullptr, fake->getClient());
}

TEST(GeometryProducer, KeepsItsAncestorsAlive) {
    GeometryProducerPtr c = StaticScene().at("/root/a/b").open("/root/a/b");
    EXPECT_EQ("/root/a", c->parent->getFullName());
    EXPECT_EQ("/root", c->parent->parent->getFullName());
    EXPECT_EQ(nullptr, c->parent->parent->parent);
}

TEST(GeometryProducer, DoesNotKeepItsChildrenAlive) {
    const std::uint32_t before = instances();
    const GeometryProducerPtr root = StaticScene().at("/root/a").open();
    root->getFirstChild(false);
    EXPECT_EQ(before + 1, instances());
}

TEST(GeometryProducer, MakesANewObjectForEachStep) {
    const GeometryProducerPtr root = StaticScene().at("/root/a").open();
    const GeometryProducerPtr once = root->getFirstChild(false);
    const GeometryProducerPtr again = root->getFirstChild(false);
    EXPECT_NE(once, again);
    EXPECT_EQ(once->getHash(), again->getHash());
}

TEST(GeometryProducer, IsCountedFromConstructionToDestruction) {
    const std::uint32_t before = instances();
    GeometryProducerPtr fake(new FakeProducer("/root"));
    EXPECT_EQ(before + 1, instances());
    fake.reset();
    EXPECT_EQ(before, instances());
}

TEST(GeometryProducer, CountsItsInstancesInACacheLineForEachThread) {
    EXPECT_EQ(64U, sizeof(InstanceCount::Cell));
    EXPECT_EQ(64U, alignof(InstanceCount::Cell));
    EXPECT_EQ(4U, sizeof(InstanceCount::Cell::value));
    const InstanceCount::Cell* const cells = instanceCount.cells;
    const auto countsOf = [&] {
        std::vector<std::uint32_t> counts;
        for (std::size_t i = 0; i < InstanceCount::kCells; ++i) {
            counts.push_back(cells[i].value.load());
        }
        return counts;
    };
    const std::vector<std::uint32_t> before = countsOf();
    std::vector<GeometryProducerPtr> made(8);
    ovtest::onThreads(8, [&](int i) {
        for (int round = 0; round <= i; ++round) {
            made[static_cast<std::size_t>(i)] = new FakeProducer("/root");
        }
    });
    const std::vector<std::uint32_t> after = countsOf();
    int changed = 0;
    for (std::size_t i = 0; i < before.size(); ++i) {
        changed += before[i] != after[i] ? 1 : 0;
    }
    EXPECT_EQ(8, changed);
}

TEST(GeometryProducer, CountsTheEndOfWhatAnotherThreadMade) {
    const std::uint32_t before = instances();
    std::vector<GeometryProducerPtr> made(8);
    ovtest::onThreads(
        8, [&](int i) { made[static_cast<std::size_t>(i)] = new FakeProducer("/root"); });
    EXPECT_EQ(before + 8, instances());
    made.clear();
    EXPECT_EQ(before, instances());
}

TEST(GetType, GivesTheStringAttributeType) {
    EXPECT_EQ("mesh", withType(StringAttribute("mesh"))->getType());
}

TEST(GetType, GivesTheFirstStringOfTheSampleNearestTimeZero) {
    const TimedSamples<std::string> samples{{-3, {"far", "x"}}, {1, {"near", "x"}}};
    EXPECT_EQ("near", withType(StringAttribute(samples))->getType());
}

TEST(GetType, IsEmptyForAnythingElse) {
    struct Row {
        const char* what;
        Attribute type;
    };
    const Row rows[] = {{"missing", Attribute()},
                        {"an integer", IntAttribute(1)},
                        {"a group", GroupAttribute({}, false)},
                        {"no values", StringAttribute(std::vector<std::string>())},
                        {"no samples", StringAttribute(TimedSamples<std::string>())}};
    for (const Row& row : rows) {
        EXPECT_EQ("", withType(row.type)->getType()) << row.what;
    }
    EXPECT_EQ("", StaticScene().at("/root").open()->getType()) << "no attributes at all";
}

TEST(GetType, IsEmptyForAStringThatIsANullPointer) {
    const GeometryProducerPtr root = withType(StringAttribute("mesh"));
    OvAttributeSuite suite = *OvGetAttributeSuite();
    suite.getNearestString =
        [](OvAttributeStruct* const*, std::int64_t, float, const char** value) {
            *value = nullptr;
            return std::uint8_t{1};
        };
    const ovtest::SuiteScope scope(suite);
    EXPECT_EQ("", root->getType());
}

TEST(GetRootProducer, GivesTheSameObjectOnTheTop) {
    const GeometryProducerPtr root = StaticScene().at("/root").open();
    EXPECT_EQ(root, root->getRootProducer());
}

TEST(GetRootProducer, FollowsTheParentsToTheTop) {
    const StaticScene scene = StaticScene().at("/root/a/b");
    const GeometryProducerPtr b = scene.open("/root/a/b");
    EXPECT_EQ(b->parent->parent, b->getRootProducer());
}
