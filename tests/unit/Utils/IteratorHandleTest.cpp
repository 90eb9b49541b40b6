// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/ScenegraphIteratorHost.h>

#include "support/IteratorTable.h"
#include "support/StaticScene.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>

using namespace SYLVAR;

namespace {

using Handle = OvSgIteratorStruct*;

/// How many objects a producer is held by.
int holdersOf(const GeometryProducerPtr& producer) {
    return static_cast<int>(producer->use_count());
}

}  // namespace

TEST(IteratorHandle, IsFreedByTheReleaseFromOneAndLetsItsProducerGo) {
    const OvScenegraphIteratorSuite& table = ovtest::iteratorTable();
    const GeometryProducerPtr producer = ovtest::StaticScene().at("/root").open("/root");
    ASSERT_EQ(1, holdersOf(producer));
    const Handle handle = OvGeometryProducerToHandle(producer);
    EXPECT_EQ(0, ovtest::countOf(handle));
    EXPECT_EQ(2, holdersOf(producer));
    table.sgRetain(handle);
    table.sgRetain(handle);
    table.sgRelease(handle);
    EXPECT_EQ(2, holdersOf(producer));
    table.sgRelease(handle);
    EXPECT_EQ(1, holdersOf(producer));
}

TEST(IteratorHandle, KeepsItsCountWhenItsProducerIsTaken) {
    const OvScenegraphIteratorSuite& table = ovtest::iteratorTable();
    const GeometryProducerPtr producer = ovtest::StaticScene().at("/root").open("/root");
    const Handle handle = OvGeometryProducerToHandle(producer);
    table.sgRetain(handle);
    EXPECT_EQ(producer, OvHandleToGeometryProducer(handle));
    EXPECT_EQ(1, ovtest::countOf(handle));
    table.sgRelease(handle);
}

TEST(IteratorHandle, IsARecordOfACountAndThenAProducer) {
    struct Record {
        std::int32_t count;
        const GeometryProducer* producer;
    };
    const OvScenegraphIteratorSuite& table = ovtest::iteratorTable();
    const GeometryProducerPtr producer = ovtest::StaticScene().at("/root").open("/root");
    const Handle handle = OvGeometryProducerToHandle(producer);
    table.sgRetain(handle);
    Record record{};
    std::memcpy(&record, handle, sizeof record);
    EXPECT_EQ(1, record.count);
    EXPECT_EQ(producer.get(), record.producer);
    table.sgRelease(handle);
}

TEST(IteratorHandle, OfNothingIsNullAndTheOtherWayRound) {
    EXPECT_EQ(nullptr, OvGeometryProducerToHandle(nullptr));
    EXPECT_EQ(nullptr, OvHandleToGeometryProducer(nullptr));
}
