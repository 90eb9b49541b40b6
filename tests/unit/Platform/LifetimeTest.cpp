// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/Attribute.h>
#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/GroupBuilder.h>
#include <SylvarPlatform/SampleAccessor.h>

#include "support/AttributeBytes.h"
#include "support/SmallStack.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace Sylvar3::internal::OvAttribute;

constexpr int kDepth = 100000;

/// Groups in groups, a number of its own in each so that no two are equal.
GroupAttribute deepGroup() {
    GroupAttribute group;
    for (int i = 0; i < kDepth; ++i) {
        group = GroupAttribute({{"down", group}, {"n", IntAttribute(i)}}, false);
    }
    return group;
}

TEST(DeepGroup, IsHashedAndReleasedWithoutRecursion) {
    ovtest::onSmallStack([] {
        GroupAttribute group = deepGroup();
        EXPECT_NE(Hash(), group.getHash());
        const auto inner = group.getChild<GroupAttribute>("down.down.down");
        group = GroupAttribute();
        EXPECT_EQ(kDepth - 4, inner.getChild<IntAttribute>("n").getValue(-1));
    });
}

TEST(DeepGroup, IsWrittenAndReadWithoutRecursion) {
    ovtest::onSmallStack([] {
        Hash hash;
        std::string bytes;
        {
            const GroupAttribute group = deepGroup();
            hash = group.getHash();
            bytes = ovtest::binaryOf(group);
        }
        AttributeReadResult read = ovtest::readBytes(bytes);
        EXPECT_EQ("", read.error);
        EXPECT_EQ(hash, read.attribute.getHash());
    });
}

/// A read attribute of many values: they lie together in a few pages.
GroupAttribute readGroup() {
    GroupBuilder builder;
    for (int i = 0; i < 20000; ++i) {
        const std::string number = std::to_string(i);
        builder.set("group" + std::to_string(i % 100) + ".name" + number,
                    StringAttribute("text" + number));
    }
    builder.set("large", DoubleAttribute(std::vector<double>(50000, 2.5)));
    return castAttribute<GroupAttribute>(
        ovtest::readBytes(ovtest::binaryOf(builder.build())).attribute);
}

TEST(ReadAttribute, LivesOnInAnyOneValueThatIsHeld) {
    for (const char* name : {"group0.name0", "group50.name19950", "group99.name19999"}) {
        GroupAttribute group = readGroup();
        const auto kept = group.getChild<StringAttribute>(name);
        group = GroupAttribute();
        const std::string number = std::string(name).substr(std::string(name).find("name") + 4);
        EXPECT_EQ("text" + number, kept.getValue(""));
        EXPECT_EQ(StringAttribute("text" + number).getHash(), kept.getHash());
    }
}

TEST(ReadAttribute, LivesOnInAGroupThatIsHeldWithAllThatIsBelow) {
    GroupAttribute group = readGroup();
    const auto kept = group.getChild<GroupAttribute>("group7");
    group = GroupAttribute();
    EXPECT_EQ(200, kept.getNumberOfChildren());
    EXPECT_EQ("text107", kept.getChild<StringAttribute>("name107").getValue(""));
    EXPECT_EQ("name7", kept.getChildName(0));
}

TEST(ReadAttribute, LivesOnInALargeArrayThatIsHeld) {
    GroupAttribute group = readGroup();
    const auto kept = group.getChild<DoubleAttribute>("large");
    group = GroupAttribute();
    EXPECT_EQ(2.5, kept.getValue(0, 49999));
}

TEST(ReadAttribute, LivesOnInsideAGroupThatWasMadeAfterwards) {
    GroupAttribute made;
    {
        const GroupAttribute group = readGroup();
        made = GroupBuilder().set("copy", group).set("copy.new", IntAttribute(1)).build();
    }
    EXPECT_EQ("text42", made.getChild<StringAttribute>("copy.group42.name42").getValue(""));
    EXPECT_EQ(1, made.getChild<IntAttribute>("copy.new").getValue(0));
}

TEST(ReadAttribute, MayBeLetGoAndHeldAgainPageByPage) {
    const GroupAttribute group = readGroup();
    for (int round = 0; round < 3; ++round) {
        std::vector<Attribute> held;
        for (int i = 0; i < 100; ++i) {
            const auto inner = group.getChild<GroupAttribute>("group" + std::to_string(i));
            for (std::int64_t j = 0; j < inner.getNumberOfChildren(); ++j) {
                held.push_back(inner.getChildByIndex(j));
            }
        }
        EXPECT_EQ(20000U, held.size());
    }
    EXPECT_EQ("text1", group.getChild<StringAttribute>("group1.name1").getValue(""));
}

/// The different handles under `name` in the groups of a read attribute that all hold one value.
std::size_t handlesOf(const Attribute& value) {
    std::vector<GroupAttribute::Child> children;
    for (int i = 0; i < 2000; ++i) {
        const GroupAttribute location({{"value", value}, {"n", IntAttribute(i)}}, false);
        children.emplace_back(std::to_string(i), location);
    }
    const auto read = castAttribute<GroupAttribute>(
        ovtest::readBytes(ovtest::binaryOf(GroupAttribute(children, false))).attribute);
    std::set<const OvAttributeStruct*> handles;
    for (int i = 0; i < 2000; ++i) {
        handles.insert(read.getChildByName(std::to_string(i) + ".value").handle());
    }
    return handles.size();
}

TEST(ReadAttribute, KeepsCopiesOfASmallValueNearTheGroupsThatShareIt) {
    const std::size_t copies = handlesOf(StringAttribute("mesh"));
    EXPECT_LT(1U, copies) << "one count for all of them would be contended";
    EXPECT_GT(1000U, copies);
    EXPECT_EQ(1U, handlesOf(StringAttribute(std::string(1000, 'x')))) << "a large value is shared";
}

TEST(Lifetime, EndsAWideGroupWhoseChildrenAreShared) {
    std::vector<GroupAttribute::Child> children;
    for (int i = 0; i < 1000; ++i) {
        children.emplace_back(std::to_string(i), GroupAttribute({{"n", IntAttribute(i)}}, false));
    }
    const Attribute kept = children[500].second;
    GroupAttribute first(children, false);
    GroupAttribute second(children, true);
    children.clear();
    first = GroupAttribute();
    EXPECT_EQ(7, second.getChild<IntAttribute>("7.n").getValue(0));
    second = GroupAttribute();
    EXPECT_EQ(500, castAttribute<GroupAttribute>(kept).getChild<IntAttribute>("n").getValue(0));
}

TEST(Lifetime, BalancesEveryRetainByOneRelease) {
    const auto& suite = *OvGetAttributeSuite();
    OvAttributeStruct* const handle = suite.createString("counted");
    for (int i = 0; i < 1000; ++i) {
        suite.retain(handle);
    }
    for (int i = 0; i < 1000; ++i) {
        suite.release(handle);
    }
    const char* value = nullptr;
    EXPECT_EQ(1, suite.getNearestString(&handle, 0, 0.0F, &value));
    EXPECT_STREQ("counted", value);
    suite.release(handle);
}

}  // namespace
