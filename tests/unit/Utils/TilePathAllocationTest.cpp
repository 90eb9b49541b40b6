// SPDX-License-Identifier: Apache-2.0
// The texts that are told are long enough to be allocated, and all else here is not: a message that
// nobody hears costs nothing.
#include "TilePathTest.h"
#include "support/AllocationCount.h"

namespace {

class TilePathAllocation : public ovtest::TilePathTest {
protected:
    TilePathAllocation() { tilePath("x"); }

    /// The allocations of a path that is made once the process's loggers and settings are there.
    static std::int64_t allocationsOf(const std::string& path, const Tile& tile) {
        tilePath(path, tile);
        return ovtest::allocationsIn([&] { tilePath(path, tile); });
    }

    static void setLevel(OvLoggingHost::LogLevel level) {
        OvLoggingHost::setLevel("RenderOutputUtils", level);
    }
};

}  // namespace

TEST_F(TilePathAllocation, IsNotMadeForAnErrorThatNobodyHears) {
    setLevel(OvLoggingHost::LogLevel::Off);
    EXPECT_EQ(0, allocationsOf("x", {1}));
    setLevel(OvLoggingHost::LogLevel::Error);
    EXPECT_LT(0, allocationsOf("x", {1}));
    heard();
}

TEST_F(TilePathAllocation, IsNotMadeForAWarningOfTokensThatNobodyHears) {
    const std::int64_t withoutTemplate = allocationsOf("x", {1, 2});
    setTemplate("bad");
    setLevel(OvLoggingHost::LogLevel::Error);
    EXPECT_EQ(withoutTemplate, allocationsOf("x", {1, 2}));
    setLevel(OvLoggingHost::LogLevel::Warn);
    EXPECT_LT(withoutTemplate, allocationsOf("x", {1, 2}));
    heard();
}

TEST_F(TilePathAllocation, IsNotMadeForAWarningOfCountsThatNobodyHears) {
    const std::string path = "/a/of_a_name_that_is_not_short.exr";
    setTemplate("@DEFAULT@@ROWS@");
    const std::int64_t withCounts = allocationsOf(path, {1, 2, 3, 4});
    setLevel(OvLoggingHost::LogLevel::Error);
    EXPECT_EQ(withCounts, allocationsOf(path, {1, 2}));
    setLevel(OvLoggingHost::LogLevel::Warn);
    EXPECT_LT(withCounts, allocationsOf(path, {1, 2}));
    heard();
}
