// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/GroupBuilder.h>

#include "support/AttributeBytes.h"
#include "support/RandomAttribute.h"
#include "unit/Platform/AttributeModel.h"
#include "unit/Platform/BinaryFileParts.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace {

using namespace Sylvar3::internal::OvAttribute;
using ovtest::AttributeModel;
using ovtest::RandomAttribute;

const ovtest::File::AttributeFile& fileIn(const std::string& bytes) {
    return *ovtest::File::GetAttributeFile(bytes.data());
}

/// A little of everything.
GroupAttribute smallGroup() {
    const std::vector<std::string> words = {"one", "", "three"};
    return GroupBuilder()
        .set("int", IntAttribute(-1))
        .set("floats", FloatAttribute(TimedSamples<float>{{-1, {1, 2}}, {1, {3, 4}}}, 2))
        .set("double", DoubleAttribute(std::vector<double>{0.5, 1.5}))
        .set("strings", StringAttribute(words))
        .set("null", Attribute())
        .set("inner.int", IntAttribute(-1))
        .set("inner.empty", GroupAttribute({}, true))
        .setGroupInherit(true)
        .build();
}

TEST(BinaryForm, ReadsBackToTheSameContent) {
    RandomAttribute random(1);
    for (int round = 0; round < 500; ++round) {
        const Attribute attribute = random.any();
        const AttributeReadResult read = ovtest::readBytes(ovtest::binaryOf(attribute));
        ASSERT_EQ("", read.error) << round;
        ASSERT_EQ(attribute.getHash(), read.attribute.getHash()) << round;
    }
}

TEST(BinaryForm, ReadsBackAnyBitsAndAnyNames) {
    AttributeModel::Random random(77);
    for (int round = 0; round < 2000; ++round) {
        const Attribute attribute = AttributeModel::random(random, 3).make();
        if (attribute) {
            const AttributeReadResult read = ovtest::readBytes(ovtest::binaryOf(attribute));
            ASSERT_EQ("", read.error) << round;
            ASSERT_EQ(attribute.getHash(), read.attribute.getHash()) << round;
        }
    }
}

TEST(BinaryForm, IsTheSameWheneverItIsWritten) {
    RandomAttribute random(2);
    for (int round = 0; round < 100; ++round) {
        const Attribute attribute = random.any();
        const std::string bytes = ovtest::binaryOf(attribute);
        EXPECT_EQ(bytes, ovtest::binaryOf(attribute));
        EXPECT_EQ(bytes, ovtest::binaryOf(ovtest::readBytes(bytes).attribute)) << round;
    }
}

TEST(BinaryForm, IsTheSameAfterAWayThroughTheTextForm) {
    RandomAttribute random(3);
    for (int round = 0; round < 200; ++round) {
        const std::string bytes = ovtest::binaryOf(random.any());
        const Attribute read = ovtest::readBytes(bytes).attribute;
        const AttributeReadResult again =
            ovtest::readBytes(ovtest::bytesOf(read, AttributeForm::Text));
        ASSERT_EQ("", again.error);
        EXPECT_EQ(bytes, ovtest::binaryOf(again.attribute)) << round;
    }
}

TEST(BinaryForm, SaysWhatItHoldsAndWhichFormItHas) {
    for (const AttributeContent content :
         {AttributeContent::Attribute, AttributeContent::StaticScene, AttributeContent::OpTree}) {
        const AttributeReadResult read =
            ovtest::readBytes(ovtest::bytesOf(smallGroup(), AttributeForm::Binary, content));
        EXPECT_EQ("", read.error);
        EXPECT_EQ(content, read.content);
        EXPECT_EQ(AttributeForm::Binary, read.form);
    }
}

TEST(BinaryForm, StoresEqualAttributesAndNamesOnce) {
    const auto location = [] {
        return GroupAttribute({{"type", StringAttribute("mesh")}, {"n", IntAttribute(1)}}, false);
    };
    const GroupAttribute scene(
        {{"a", location()},
         {"b", location()},
         {"c", GroupAttribute({{"type", IntAttribute(1)}, {"n", Attribute()}}, true)}},
        false);
    const std::string bytes = ovtest::binaryOf(scene);
    EXPECT_EQ(5U, fileIn(bytes).entries()->size()) << "\"mesh\", 1, a and b, c, the scene";
    EXPECT_EQ(2U, fileIn(bytes).shape_sizes()->size());
    EXPECT_EQ(1U, fileIn(bytes).ints()->size());
    EXPECT_EQ(1U, fileIn(bytes).string_lengths()->size());
}

TEST(BinaryForm, StoresASharedTreeOnceHoweverManyPathsLeadToIt) {
    const Attribute attribute = ovtest::doublingAttribute(60);
    const std::string bytes = ovtest::binaryOf(attribute);
    EXPECT_GT(70U, fileIn(bytes).entries()->size());
    EXPECT_EQ(attribute.getHash(), ovtest::readBytes(bytes).attribute.getHash());
}

TEST(BinaryForm, StoresNoTimesForASingleSampleAtTimeZero) {
    EXPECT_EQ(0U, fileIn(ovtest::binaryOf(IntAttribute(1))).times()->size());
    const IntAttribute late(TimedSamples<std::int32_t>{{1, {1}}});
    EXPECT_EQ(1U, fileIn(ovtest::binaryOf(late)).times()->size());
    const IntAttribute minusZero(TimedSamples<std::int32_t>{{-0.0F, {1}}});
    EXPECT_EQ(1U, fileIn(ovtest::binaryOf(minusZero)).times()->size());
}

TEST(BinaryForm, StartsWithItsIdentifier) {
    EXPECT_EQ("OVAT", ovtest::binaryOf(IntAttribute(1)).substr(4, 4));
}

/// Reads everything in what came of damaged bytes, and nothing else: any of it may be there.
void expectAttributeOrError(const std::string& bytes) {
    const AttributeReadResult read = ovtest::readBytes(bytes);
    EXPECT_NE(read.error.empty(), !read.attribute.isValid());
    if (read.attribute) {
        EXPECT_EQ(read.attribute.getHash(),
                  ovtest::readBytes(ovtest::binaryOf(read.attribute)).attribute.getHash());
    }
}

TEST(BinaryForm, MayBeCutAnywhere) {
    const std::string bytes = ovtest::binaryOf(smallGroup());
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        const AttributeReadResult read = ovtest::readBytes(bytes.substr(0, size));
        EXPECT_FALSE(read.attribute) << size;
        EXPECT_NE("", read.error) << size;
    }
}

TEST(BinaryForm, MayHaveAnyBitTurned) {
    const std::string bytes = ovtest::binaryOf(smallGroup());
    for (std::size_t place = 0; place < bytes.size(); ++place) {
        for (int bit = 0; bit < 8; ++bit) {
            std::string damaged = bytes;
            damaged[place] = static_cast<char>(damaged[place] ^ (1 << bit));
            expectAttributeOrError(damaged);
        }
    }
}

TEST(BinaryForm, MayHaveAnyByteReplaced) {
    const std::string bytes = ovtest::binaryOf(smallGroup());
    for (std::size_t place = 0; place < bytes.size(); ++place) {
        for (const char byte : {'\0', '\1', '\x7f', '\x80', '\xff'}) {
            std::string damaged = bytes;
            damaged[place] = byte;
            expectAttributeOrError(damaged);
        }
    }
}

TEST(BinaryForm, MayBeFollowedByOtherBytes) {
    const std::string bytes = ovtest::binaryOf(smallGroup());
    expectAttributeOrError(bytes + "more");
    expectAttributeOrError(bytes + bytes);
}

TEST(BinaryForm, ReadsALargeAttribute) {
    GroupBuilder builder;
    for (int i = 0; i < 1000; ++i) {
        const std::string name = "group" + std::to_string(i % 10) + ".name" + std::to_string(i);
        builder.set(name,
                    DoubleAttribute(std::vector<double>(static_cast<std::size_t>(i), i * 0.5)));
    }
    builder.set("long", StringAttribute(std::string(300000, 'x')));
    const GroupAttribute group = builder.build();
    EXPECT_EQ(group.getHash(), ovtest::readBytes(ovtest::binaryOf(group)).attribute.getHash());
}

}  // namespace
