// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/GroupBuilder.h>

#include "support/AllocationPeak.h"
#include "support/AttributeBytes.h"
#include "unit/Platform/BinaryFileParts.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace Sylvar3::internal::OvAttribute;
using ovtest::BinaryFileParts;

constexpr double kMostTimes = 16.0;

/// A group at the end that refers to all that stands in front of it: a file holds nothing else.
void addGroupOfAll(BinaryFileParts& parts, std::uint32_t count) {
    std::vector<std::string> names;
    std::vector<std::uint32_t> children;
    for (std::uint32_t i = 0; i < count; ++i) {
        names.push_back(std::to_string(i));
        children.push_back(i + 1);
    }
    parts.addGroup(parts.addShape(names), children);
}

/// How many times the size of the bytes their reading needs at its peak.
double timesTheirSize(const std::string& bytes) {
    AttributeReadResult read;
    const std::int64_t peak = ovtest::allocationPeakOf([&] { read = ovtest::readBytes(bytes); });
    EXPECT_EQ("", read.error);
    return static_cast<double>(peak) / static_cast<double>(bytes.size());
}

class BinaryMemory : public testing::Test {
protected:
    void SetUp() override {
        if (!ovtest::isAllocationPeakKnown()) {
            GTEST_SKIP() << "a sanitizer has an allocator of its own";
        }
    }
};

/// Different names of the same few letters.
std::string shortName(std::uint32_t number) {
    std::string name(3, 'a');
    for (char& letter : name) {
        letter = static_cast<char>('!' + number % 90U);
        number /= 90;
    }
    return name;
}

TEST_F(BinaryMemory, IsSmallForAScene) {
    GroupBuilder scene(GroupBuilder::Mode::Flat);
    for (std::uint32_t i = 0; i < 5000; ++i) {
        scene.set(shortName(i),
                  GroupAttribute({{"type", StringAttribute("mesh")},
                                  {"id", IntAttribute(static_cast<std::int32_t>(i))},
                                  {"xform", DoubleAttribute(std::vector<double>(16, i * 0.5))}},
                                 false));
    }
    EXPECT_GE(kMostTimes, timesTheirSize(ovtest::binaryOf(scene.build())));
}

TEST_F(BinaryMemory, IsSmallForEntriesThatHoldNothing) {
    BinaryFileParts parts;
    for (int i = 0; i < 50000; ++i) {
        parts.addData(1, 0);
    }
    addGroupOfAll(parts, 50000);
    EXPECT_GE(kMostTimes, timesTheirSize(parts.bytes()));
}

TEST_F(BinaryMemory, IsSmallForEmptyGroups) {
    BinaryFileParts parts;
    parts.addShape({});
    for (int i = 0; i < 50000; ++i) {
        parts.addGroup(0, {});
    }
    addGroupOfAll(parts, 50000);
    EXPECT_GE(kMostTimes, timesTheirSize(parts.bytes()));
}

TEST_F(BinaryMemory, IsSmallForEmptyShapes) {
    BinaryFileParts parts;
    for (std::uint32_t i = 0; i < 100000; ++i) {
        parts.addShape({});
        parts.addGroup(i, {});
    }
    addGroupOfAll(parts, 100000);
    EXPECT_GE(kMostTimes, timesTheirSize(parts.bytes()));
}

TEST_F(BinaryMemory, IsSmallForShapesOfOneShortName) {
    BinaryFileParts parts;
    for (std::uint32_t i = 0; i < 100000; ++i) {
        parts.addShape({shortName(i)});
        parts.addGroup(i, {0});
    }
    addGroupOfAll(parts, 100000);
    EXPECT_GE(kMostTimes, timesTheirSize(parts.bytes()));
}

TEST_F(BinaryMemory, IsSmallForShapesThatAreJustLongEnoughForAnIndex) {
    BinaryFileParts parts;
    for (std::uint32_t i = 0; i < 10000; ++i) {
        parts.addShape({shortName(i), "a", "b", "c", "d", "e", "f", "g", "h"});
        parts.addGroup(i, std::vector<std::uint32_t>(9, 0));
    }
    addGroupOfAll(parts, 10000);
    EXPECT_GE(kMostTimes, timesTheirSize(parts.bytes()));
}

TEST_F(BinaryMemory, IsSmallForShapesThatAreTooLongToBeShared) {
    BinaryFileParts parts;
    std::vector<std::string> names;
    for (int i = 0; i < 65; ++i) {
        names.emplace_back(1, static_cast<char>('!' + i));
    }
    for (std::uint32_t i = 0; i < 1000; ++i) {
        parts.addShape(names);
        parts.addGroup(i, std::vector<std::uint32_t>(65, 0));
    }
    addGroupOfAll(parts, 1000);
    EXPECT_GE(kMostTimes, timesTheirSize(parts.bytes()));
}

TEST_F(BinaryMemory, IsSmallForOneShapeOfVeryManyNames) {
    BinaryFileParts parts;
    parts.addInt(1);
    std::vector<std::string> names;
    for (std::uint32_t i = 0; i < 300000; ++i) {
        names.push_back(shortName(i));
    }
    parts.addGroup(parts.addShape(names), std::vector<std::uint32_t>(300000, 1));
    EXPECT_GE(kMostTimes, timesTheirSize(parts.bytes()));
}

TEST_F(BinaryMemory, IsSmallForGroupsThatAllReferToOneSmallValue) {
    BinaryFileParts parts;
    std::vector<std::string> names;
    for (std::uint32_t i = 0; i < 64; ++i) {
        names.push_back(shortName(i));
    }
    parts.addShape(names);
    parts.addString("value of 20 letters.");
    for (int i = 0; i < 2000; ++i) {
        parts.addGroup(0, std::vector<std::uint32_t>(64, 1));
    }
    addGroupOfAll(parts, 2001);
    EXPECT_GE(kMostTimes, timesTheirSize(parts.bytes()));
}

TEST_F(BinaryMemory, IsSmallForEmptyStrings) {
    BinaryFileParts parts;
    parts.addData(4, 500000);
    parts.stringLengths.assign(500000, 0);
    EXPECT_GE(kMostTimes, timesTheirSize(parts.bytes()));
    for (int i = 0; i < 20000; ++i) {
        parts.addString("");
    }
    addGroupOfAll(parts, 20001);
    EXPECT_GE(kMostTimes, timesTheirSize(parts.bytes()));
}

TEST_F(BinaryMemory, IsSmallForManySamplesWithoutValues) {
    BinaryFileParts parts;
    parts.addData(3, 0, 300000, 2);
    parts.times.assign(300000, 1.0F);
    EXPECT_GE(kMostTimes, timesTheirSize(parts.bytes()));
}

TEST_F(BinaryMemory, IsSmallWhenCountsLie) {
    BinaryFileParts parts;
    parts.addData(2, std::uint64_t{1} << 40);
    parts.floats.assign(1000, 1.0F);
    const std::string bytes = parts.bytes();
    const std::int64_t peak = ovtest::allocationPeakOf([&] { ovtest::readBytes(bytes); });
    EXPECT_GE(kMostTimes, static_cast<double>(peak) / static_cast<double>(bytes.size()));
}

}  // namespace
