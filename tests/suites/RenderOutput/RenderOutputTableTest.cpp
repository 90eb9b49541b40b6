// SPDX-License-Identifier: Apache-2.0
#include "support/RenderOutputTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

TEST(RenderOutputTable, IsFoundByItsNameAndVersionThreeAlone) {
    ASSERT_NE(nullptr, &ovtest::iteratorTable());
    const OvHostTable& host = *OvGetHostTable();
    EXPECT_NE(nullptr, host.findSuite("RenderOutputUtilsHost", 3));
    for (const std::uint32_t version : {0U, 1U, 2U, 4U}) {
        EXPECT_EQ(nullptr, host.findSuite("RenderOutputUtilsHost", version)) << version;
    }
}

TEST(RenderOutputTable, IsOneForTheWholeProcess) {
    const void* const table = &ovtest::renderOutputTable();
    ASSERT_EQ(OV_HOST_SUITE_REGISTERED, OvSylvarProducersInitialize(OvGetHostTable()));
    EXPECT_EQ(table, &ovtest::renderOutputTable());
}

TEST(RenderOutputTable, HasFortyNineEntriesOfWhichNoneIsNull) {
    using Entry = void (*)();
    const OvRenderOutputUtilsSuite& table = ovtest::renderOutputTable();
    std::vector<Entry> entries(sizeof table / sizeof(Entry));
    std::memcpy(entries.data(), &table, sizeof table);
    EXPECT_THAT(entries, testing::AllOf(testing::SizeIs(49), testing::Each(testing::NotNull())));
}
