// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/OpTreeAttributeSource.h>
#include <OvSylvarProducers/OpTreeFileSource.h>

#include "support/RuntimeTest.h"
#include "support/SuiteScope.h"
#include "support/Threads.h"

#include <boost/smart_ptr/shared_ptr.hpp>

#include <cstddef>
#include <cstring>
#include <set>
#include <type_traits>
#include <utility>

using namespace SYLVAR;
using namespace Sylvar3::internal::OvAttribute;

namespace {

static_assert(sizeof(OpTreeSource) == sizeof(boost::shared_ptr<AbstractOpTreeSource>));
static_assert(!std::is_default_constructible_v<OpTreeSource>);

bool areEquivalent(const OpTreeSource& a, const OpTreeSource& b) {
    return !(a < b) && !(b < a);
}

std::ptrdiff_t slotOf(bool (AbstractOpTreeSource::*function)(std::string*) const) {
    std::ptrdiff_t place = 0;
    std::memcpy(&place, &function, sizeof place);
    return (place - 1) / static_cast<std::ptrdiff_t>(sizeof(void*));
}

}  // namespace

TEST(OpTreeSource, IsEquivalentForOneFileNameThoughTheSourcesAreTwoObjects) {
    const OpTreeSource a = OpTreeSource::createFromFile("scene.optree");
    const OpTreeSource b = OpTreeSource::createFromFile("scene.optree");
    EXPECT_TRUE(areEquivalent(a, b));
    EXPECT_NE(a.source(), b.source());
}

TEST(OpTreeSource, SharesOneObjectAmongCopies) {
    const OpTreeSource a = OpTreeSource::createFromFile("scene.optree");
    const OpTreeSource b = a;
    EXPECT_EQ(a.source(), b.source());
    EXPECT_EQ(2, a.source().use_count());
}

TEST(OpTreeSource, IsNeverEmptyNotEvenWhenItIsMovedFrom) {
    OpTreeSource a = OpTreeSource::createFromFile("scene.optree");
    const OpTreeSource b = std::move(a);
    EXPECT_TRUE(areEquivalent(a, b));
}

TEST(OpTreeSource, IsEquivalentForGroupsOfEqualContentBuiltApart) {
    const auto built = [] { return GroupBuilder().set("op.opType", StringAttribute("x")).build(); };
    EXPECT_TRUE(areEquivalent(OpTreeSource::createFromGroupAttribute(built()),
                              OpTreeSource::createFromGroupAttribute(built())));
}

TEST(OpTreeSource, ComparesHashesAsUnsignedNumbers) {
    const OpTreeSource low = OpTreeSource::createFromFile("a");
    const OpTreeSource high = OpTreeSource::createFromFile("\xe9");
    EXPECT_EQ(0x3d38188654ef1dbfU, low.source()->hash);
    EXPECT_EQ(0xb2743b6c937200b8U, high.source()->hash);
    EXPECT_TRUE(low < high);
    EXPECT_FALSE(high < low);
}

TEST(OpTreeSource, IsEquivalentForAFileAndAGroupOfEqualHashes) {
    OvAttributeSuite suite = *OvGetAttributeSuite();
    suite.getHash = [](OvAttributeStruct*) { return OvAttributeHash{{0x3d38188654ef1dbf, 5}}; };
    const GroupAttribute group({}, true);
    const ovtest::SuiteScope scope(suite);
    EXPECT_TRUE(areEquivalent(OpTreeSource::createFromGroupAttribute(group),
                              OpTreeSource::createFromFile("a")));
}

TEST(OpTreeSource, AsksForTheHashOfTheNullGroupToo) {
    EXPECT_EQ(0U, OpTreeSource::createFromGroupAttribute(GroupAttribute()).source()->hash);
}

TEST(OpTreeSource, TakesTheFirstWordOfAGroupsHash) {
    const GroupAttribute group({}, true);
    EXPECT_EQ(group.getHash().word(0),
              OpTreeSource::createFromGroupAttribute(group).source()->hash);
}

TEST(OpTreeSource, IsAKeyOfAnOrderedSet) {
    std::set<OpTreeSource> sources;
    for (const char* const name : {"a", "b", "a", "c", "b"}) {
        sources.insert(OpTreeSource::createFromFile(name));
    }
    EXPECT_EQ(3U, sources.size());
}

TEST(OpTreeSource, KeepsItsVirtualOperationsInTheirSlotsBehindTheDestructor) {
    EXPECT_EQ(2, slotOf(&AbstractOpTreeSource::isValid));
    std::ptrdiff_t place = 0;
    auto getOp = &AbstractOpTreeSource::getOp;
    std::memcpy(&place, &getOp, sizeof place);
    EXPECT_EQ(static_cast<std::ptrdiff_t>(3 * sizeof(void*)), place - 1);
    auto describe = &AbstractOpTreeSource::describe;
    std::memcpy(&place, &describe, sizeof place);
    EXPECT_EQ(static_cast<std::ptrdiff_t>(4 * sizeof(void*)), place - 1);
}

TEST(OpTreeSource, IsUsedByEightThreadsAtOnce) {
    const OpTreeSource shared = OpTreeSource::createFromFile("");
    const OpTreeSource other = OpTreeSource::createFromFile("a");
    ovtest::onThreads(8, [&](int) {
        for (int round = 0; round < 100; ++round) {
            const OpTreeSource copy = shared;
            std::string message;
            EXPECT_FALSE(copy.source()->isValid(&message));
            EXPECT_EQ("", copy.source()->describe());
            EXPECT_TRUE(copy < other);
        }
    });
}
