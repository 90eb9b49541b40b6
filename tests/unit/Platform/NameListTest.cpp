// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Attributes/Values/NameList.h"

#include "Platform/Embedded/Attributes/Values/NameIndex.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace Sylvar3::internal::OvAttribute::Embedded;

std::string numbered(int number) {
    return "name" + std::to_string(number);
}

NameList listOf(int count) {
    NameList names;
    for (int i = 0; i < count; ++i) {
        names.add(numbered(i));
    }
    return names;
}

TEST(NameList, GivesEachNewNameTheNextPlaceAndAKnownOneItsOwn) {
    NameList names;
    EXPECT_EQ(0, names.add("a"));
    EXPECT_EQ(1, names.add(""));
    EXPECT_EQ(2, names.add("b"));
    EXPECT_EQ(0, names.add("a"));
    EXPECT_EQ(1, names.add(""));
    EXPECT_EQ(3, names.size());
    EXPECT_EQ("a", names[0]);
    EXPECT_EQ("", names[1]);
    EXPECT_EQ("b", names[2]);
}

TEST(NameList, FindsNothingThatIsNotThere) {
    NameList names;
    EXPECT_EQ(NameList::kNone, names.find(""));
    names.add("ab");
    for (const char* absent : {"", "a", "b", "abc", "AB"}) {
        EXPECT_EQ(NameList::kNone, names.find(absent)) << absent;
    }
}

TEST(NameList, FindsEveryNameAroundTheLengthAtWhichItsIndexBeginsAndGrows) {
    for (const int count : {1, 8, 9, 15, 16, 17, 32, 33, 1000}) {
        const NameList names = listOf(count);
        for (int i = 0; i < count; ++i) {
            EXPECT_EQ(i, names.find(numbered(i))) << count;
        }
        EXPECT_EQ(NameList::kNone, names.find(numbered(count)));
    }
}

TEST(NameList, MovesUpTheNamesBehindOneThatIsTakenOut) {
    for (const int count : {3, 9, 10, 100}) {
        NameList names = listOf(count);
        names.remove(1);
        EXPECT_EQ(count - 1, names.size());
        EXPECT_EQ(NameList::kNone, names.find(numbered(1)));
        EXPECT_EQ(0, names.find(numbered(0)));
        for (int i = 2; i < count; ++i) {
            EXPECT_EQ(i - 1, names.find(numbered(i))) << count;
        }
        EXPECT_EQ(count - 1, names.add(numbered(1)));
    }
}

TEST(NameList, StartsAnewWhenCleared) {
    NameList names = listOf(100);
    names.clear();
    EXPECT_EQ(0, names.size());
    EXPECT_TRUE(names.records().empty());
    EXPECT_EQ(NameList::kNone, names.find(numbered(5)));
    EXPECT_EQ(0, names.add(numbered(5)));
}

TEST(NameList, HoldsRecordsThatTellWhereEachNameEnds) {
    NameList one;
    one.add("ab");
    one.add("c");
    NameList other;
    other.add("a");
    other.add("bc");
    EXPECT_NE(one.records(), other.records());
    EXPECT_EQ(one.records().size(), other.records().size());
}

TEST(NameList, StaysQuickForVeryManyNamesThatAreAlike) {
    constexpr int kCount = 300000;
    NameList names;
    const std::string prefix(40, 'p');
    for (int i = 0; i < kCount; ++i) {
        ASSERT_EQ(i, names.add(prefix + std::to_string(i)));
    }
    for (int i = 0; i < kCount; ++i) {
        ASSERT_EQ(i, names.find(prefix + std::to_string(i)));
    }
}

TEST(NameIndex, IsAtMostHalfFull) {
    EXPECT_EQ(0U, NameIndex::slotsFor(0));
    EXPECT_EQ(0U, NameIndex::slotsFor(NameIndex::kLongestPlainList));
    for (std::size_t count = NameIndex::kLongestPlainList + 1; count < 5000; ++count) {
        const std::size_t slots = NameIndex::slotsFor(count);
        EXPECT_EQ(0U, slots & (slots - 1)) << count;
        EXPECT_LE(count * 2, slots);
    }
}

TEST(NameIndex, FindsPlacesWhoseHashesAreAllTheSame) {
    constexpr std::size_t kSlots = 32;
    constexpr std::uint32_t kPlaces = 16;
    constexpr std::uint32_t kLastSlot = kSlots - 1;
    std::vector<std::uint32_t> table(kSlots, 0);
    for (std::uint32_t place = 0; place < kPlaces; ++place) {
        NameIndex::insert(table.data(), kSlots, kLastSlot, place);
    }
    for (std::uint32_t wanted = 0; wanted < kPlaces; ++wanted) {
        EXPECT_EQ(wanted,
                  NameIndex::find(table.data(), kSlots, kLastSlot, [wanted](std::uint32_t place) {
                      return place == wanted;
                  }));
    }
    const auto never = [](std::uint32_t) { return false; };
    EXPECT_EQ(-1, NameIndex::find(table.data(), kSlots, kLastSlot, never));
    EXPECT_EQ(-1, NameIndex::find(table.data(), kSlots, 20U, never));
}

}  // namespace
