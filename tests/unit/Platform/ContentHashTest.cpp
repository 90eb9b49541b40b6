// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/AttributeFile.h>
#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/GroupBuilder.h>
#include <SylvarPlatform/Hash.h>

#include "support/AttributeBytes.h"
#include "unit/Platform/AttributeModel.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <type_traits>
#include <unordered_set>
#include <utility>
#include <vector>

namespace {

using namespace Sylvar3::internal::OvAttribute;
using ovtest::AttributeModel;

static_assert(sizeof(Hash) == 2 * sizeof(std::uint64_t) && std::is_trivially_copyable_v<Hash>);

Hash hashOf(const Attribute& attribute) {
    return attribute.getHash();
}

TEST(Hash, IsThirtyTwoLowerCaseHexadecimalDigitsTheFirstWordInFront) {
    const Hash hash(OvAttributeHash{{0x0123456789abcdefU, 0xfedcba98765432f0U}});
    EXPECT_EQ("0123456789abcdeffedcba98765432f0", hash.str());
    EXPECT_EQ("00000000000000000000000000000000", Hash().str());
    const std::string text = IntAttribute(1).getHash().str();
    EXPECT_EQ(32U, text.size());
    EXPECT_EQ(std::string::npos, text.find_first_not_of("0123456789abcdef"));
}

TEST(Hash, IsAValueToCompareAndToLookUp) {
    const Hash small(OvAttributeHash{{1, 9}});
    const Hash middle(OvAttributeHash{{2, 0}});
    const Hash large(OvAttributeHash{{2, 1}});
    EXPECT_LT(small, middle);
    EXPECT_LT(middle, large);
    EXPECT_FALSE(large < large);
    EXPECT_NE(middle, large);
    EXPECT_EQ(Hash(OvAttributeHash{{2, 1}}), large);
    EXPECT_EQ(9U, small.word(1));
    EXPECT_EQ(1U, std::unordered_set<Hash>({large, Hash(OvAttributeHash{{2, 1}})}).size());
}

TEST(ContentHash, IsZeroForTheNullAttribute) {
    EXPECT_EQ(Hash(), Attribute().getHash());
    EXPECT_EQ(Hash(), GroupAttribute().getHash());
    const OvAttributeHash hash = OvGetAttributeSuite()->getHash(nullptr);
    EXPECT_EQ(0U, hash.words[0]);
    EXPECT_EQ(0U, hash.words[1]);
}

TEST(ContentHash, IsTheSameInEveryProcess) {
    struct Row {
        const char* hash;
        Attribute attribute;
    };
    for (const Row& row :
         {Row{"1466f191c25f37fb6abe6a9c8dbbc557", IntAttribute(7)},
          Row{"84ed7e0586dae355d7346d21628ffc49",
              FloatAttribute(TimedSamples<float>{{-1, {1, 2, 3}}, {1, {4, 5, 6}}}, 3)},
          Row{"e6664b5159af88c06c0712e13dc69b96",
              DoubleAttribute(std::vector<double>(100, 0.5), 16)},
          Row{"ad97a4b1ba8641e1488dc0b02d482d35", StringAttribute("mesh")},
          Row{"0a7d158e6e1c78e47ade434186f5a912", StringAttribute(std::vector<std::string>{})},
          Row{"ebd9fcad82155ab0cfccc8d3cdab8b23", GroupAttribute({}, true)},
          Row{"37a6418a22bcd2e3e362b42679036768",
              GroupAttribute({{"type", StringAttribute("mesh")},
                              {"null", Attribute()},
                              {"geometry", GroupAttribute({{"n", IntAttribute(3)}}, false)}},
                             false)}}) {
        EXPECT_EQ(row.hash, hashOf(row.attribute).str());
    }
}

TEST(ContentHash, IsEqualForDataThatWasMadeInDifferentWays) {
    const auto& suite = *OvGetAttributeSuite();
    EXPECT_EQ(hashOf(IntAttribute(7)), hashOf(IntAttribute(std::vector<std::int32_t>{7})));
    EXPECT_EQ(hashOf(IntAttribute(7)), hashOf(IntAttribute(TimedSamples<std::int32_t>{{0, {7}}})));
    EXPECT_EQ(hashOf(DoubleAttribute(7)), hashOf(DoubleAttribute(TimedSamples<double>{{0, {7}}})));
    EXPECT_EQ(hashOf(FloatAttribute(7)), hashOf(Attribute::adopt(suite.createFloat(7))));
    EXPECT_EQ(hashOf(StringAttribute("a")), hashOf(StringAttribute(std::vector<std::string>{"a"})));
    EXPECT_EQ(hashOf(StringAttribute("a")),
              hashOf(StringAttribute(TimedSamples<std::string>{{0, {"a"}}})));
    EXPECT_EQ(hashOf(StringAttribute(std::vector<std::string>{})),
              hashOf(StringAttribute(TimedSamples<std::string>{{0, {}}})));
    EXPECT_EQ(hashOf(StringAttribute(std::vector<std::string>{})),
              hashOf(Attribute::adopt(suite.createStringArray(nullptr, 0, 1))));
    EXPECT_EQ(hashOf(StringAttribute(std::string(1000, 'x'))),
              hashOf(StringAttribute(std::vector<std::string>{std::string(1000, 'x')})));
}

TEST(ContentHash, IsEqualForGroupsThatWereMadeInDifferentWays) {
    const GroupAttribute inner({{"x", IntAttribute(1)}, {"y", StringAttribute("2")}}, false);
    const GroupAttribute made({{"a", inner}, {"null", Attribute()}}, true);
    EXPECT_EQ(hashOf(made),
              hashOf(GroupBuilder(GroupBuilder::Mode::Flat)
                         .set("a", inner)
                         .set("null", Attribute())
                         .setGroupInherit(true)
                         .build()));
    EXPECT_EQ(hashOf(made),
              hashOf(GroupBuilder()
                         .setGroupInherit(true)
                         .set("a.x", IntAttribute(9))
                         .set("null", IntAttribute(9))
                         .set("gone", IntAttribute(9))
                         .set("a.y", StringAttribute("2"))
                         .set("a.x", IntAttribute(1))
                         .set("null", Attribute())
                         .remove("gone")
                         .build()));
    EXPECT_EQ(hashOf(made), hashOf(GroupBuilder().update(made).setGroupInherit(true).build()));
    const char* const names[] = {"a", "null"};
    OvAttributeStruct* const children[] = {inner.handle(), nullptr};
    EXPECT_EQ(hashOf(made),
              hashOf(Attribute::adopt(OvGetAttributeSuite()->createGroup(names, children, 2, 1))));
    EXPECT_EQ(hashOf(made), hashOf(ovtest::readBytes(ovtest::binaryOf(made)).attribute));
}

TEST(ContentHash, DiffersInOneThingAtATime) {
    const std::vector<Attribute> all = {
        IntAttribute(0),
        FloatAttribute(0.0F),
        DoubleAttribute(0.0),
        IntAttribute(std::vector<std::int32_t>{0, 0}),
        IntAttribute(std::vector<std::int32_t>{0, 0}, 2),
        IntAttribute(TimedSamples<std::int32_t>{{0, {0}}, {0, {0}}}),
        IntAttribute(TimedSamples<std::int32_t>{{-0.0F, {0}}}),
        FloatAttribute(-0.0F),
        IntAttribute(std::vector<std::int32_t>{}),
        IntAttribute(TimedSamples<std::int32_t>{}),
        FloatAttribute(std::vector<float>{}),
        StringAttribute(std::vector<std::string>{}),
        StringAttribute(TimedSamples<std::string>{}),
        StringAttribute(""),
        StringAttribute(std::vector<std::string>{"", ""}),
        StringAttribute("ab"),
        StringAttribute(std::vector<std::string>{"a", "b"}),
        StringAttribute(std::vector<std::string>{"ab", ""}),
        StringAttribute(std::vector<std::string>{"", "ab"}),
        StringAttribute(std::vector<std::string>{"a", "b"}, 2),
        GroupAttribute({}, false),
        GroupAttribute({}, true),
        GroupAttribute({{"", Attribute()}}, false),
        GroupAttribute({{"a", Attribute()}}, false),
        GroupAttribute({{"a", GroupAttribute({}, false)}}, false),
        GroupAttribute({{"a", Attribute()}, {"", Attribute()}}, false),
        GroupAttribute({{"", Attribute()}, {"a", Attribute()}}, false),
        GroupAttribute({{"a", IntAttribute(1)}, {"b", IntAttribute(2)}}, false),
        GroupAttribute({{"b", IntAttribute(2)}, {"a", IntAttribute(1)}}, false),
        GroupAttribute({{"a", IntAttribute(2)}, {"b", IntAttribute(1)}}, false),
        GroupAttribute({{"ab", IntAttribute(1)}, {"", IntAttribute(2)}}, false),
        GroupAttribute({{"a.b", IntAttribute(1)}}, false),
        GroupAttribute({{"a", GroupAttribute({{"b", IntAttribute(1)}}, false)}}, false)};
    std::set<std::string> hashes = {Hash().str()};
    for (const Attribute& attribute : all) {
        EXPECT_TRUE(hashes.insert(hashOf(attribute).str()).second) << hashes.size();
    }
}

TEST(ContentHash, ChangesExactlyWhenTheContentDoes) {
    AttributeModel::Random random(20240611);
    int changes = 0;
    for (int round = 0; round < 2000; ++round) {
        const AttributeModel model = AttributeModel::random(random, 3);
        const Hash hash = hashOf(model.make());
        EXPECT_EQ(hash, hashOf(model.make())) << "made twice, round " << round;
        for (int i = 0; i < 10; ++i) {
            AttributeModel changed = model;
            changed.change(random);
            changes += changed != model ? 1 : 0;
            ASSERT_EQ(changed == model, hash == hashOf(changed.make())) << "round " << round;
        }
    }
    EXPECT_LT(10000, changes);
}

TEST(ContentHash, SeesEveryBitOfALongArray) {
    std::vector<double> values(64, 1.0);
    std::set<Hash> hashes = {hashOf(DoubleAttribute(values))};
    std::size_t expected = 1;
    for (std::size_t i = 0; i < values.size(); ++i) {
        for (int bit = 0; bit < 64; ++bit) {
            std::vector<double> changed = values;
            reinterpret_cast<unsigned char*>(&changed[i])[bit / 8] ^=
                static_cast<unsigned char>(1 << (bit % 8));
            hashes.insert(hashOf(DoubleAttribute(changed)));
            EXPECT_EQ(++expected, hashes.size());
        }
    }
}

TEST(ContentHash, IsTheSameHoweverOftenItIsAsked) {
    const GroupAttribute group({{"a", StringAttribute(std::string(1000, 'x'))}}, true);
    const Hash first = group.getHash();
    EXPECT_EQ(first, group.getHash());
    EXPECT_EQ(first, Attribute(group).getHash());
    EXPECT_EQ(group.getChildByIndex(0).getHash(), group.getChildByIndex(0).getHash());
}

TEST(ContentHash, VisitsASharedGroupOnce) {
    Attribute group = GroupAttribute({{"leaf", IntAttribute(1)}}, false);
    for (int i = 0; i < 60; ++i) {
        group = GroupAttribute({{"a", group}, {"b", group}}, false);
    }
    EXPECT_NE(Hash(), group.getHash()) << "2^60 paths lead to the leaf";
}

}  // namespace
