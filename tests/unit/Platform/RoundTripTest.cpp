// SPDX-License-Identifier: Apache-2.0
#include "support/AttributeForms.h"
#include "support/RandomAttribute.h"

#include <gtest/gtest.h>

namespace {

using namespace Sylvar3::internal::OvAttribute;
using ovtest::RandomAttribute;
using ovtest::readTextForm;
using ovtest::textOf;

void expectTextRoundTrip(const Attribute& attribute) {
    const std::string text = textOf(attribute);
    const AttributeReadResult read = readTextForm(text);
    ASSERT_EQ("", read.error) << text;
    ASSERT_EQ(attribute.getHash().str(), read.attribute.getHash().str()) << text;
    ASSERT_EQ(text, textOf(read.attribute));
}

void expectXmlRoundTrip(const Attribute& attribute) {
    const std::string xml = attribute.getXML();
    const Attribute read = Attribute::parseXML(xml);
    ASSERT_TRUE(read) << xml;
    ASSERT_EQ(attribute.getHash().str(), read.getHash().str()) << xml;
    ASSERT_EQ(xml, read.getXML());
}

TEST(RoundTrip, ATextGivesBackAnyAttribute) {
    for (std::uint64_t seed = 0; seed < 3000; ++seed) {
        SCOPED_TRACE(seed);
        ASSERT_NO_FATAL_FAILURE(expectTextRoundTrip(RandomAttribute(seed).any()));
    }
}

TEST(RoundTrip, AnXmlGivesBackAnyAttribute) {
    for (std::uint64_t seed = 0; seed < 3000; ++seed) {
        SCOPED_TRACE(seed);
        ASSERT_NO_FATAL_FAILURE(expectXmlRoundTrip(RandomAttribute(seed).any()));
    }
}

TEST(RoundTrip, OneWayLeadsToTheOther) {
    for (std::uint64_t seed = 0; seed < 300; ++seed) {
        const Attribute made = RandomAttribute(seed).any();
        const Attribute read = readTextForm(textOf(Attribute::parseXML(made.getXML()))).attribute;
        ASSERT_EQ(made.getHash().str(), read.getHash().str()) << seed;
    }
}

TEST(RoundTrip, DeepWideAndSharedGroupsSurvive) {
    for (const Attribute& attribute : {ovtest::deepAttribute(5000),
                                       ovtest::wideAttribute(1000),
                                       ovtest::doublingAttribute(10)}) {
        expectTextRoundTrip(attribute);
        expectXmlRoundTrip(attribute);
    }
}

TEST(RoundTrip, OneHundredThousandLevelsNeedNoStack) {
    const Attribute deep = ovtest::deepAttribute(100000);
    expectTextRoundTrip(deep);
    expectXmlRoundTrip(deep);
}

TEST(RoundTrip, ALongArrayOfEveryKindSurvives) {
    std::vector<float> floats;
    std::vector<double> doubles;
    std::vector<std::int32_t> ints;
    std::vector<std::string> strings;
    RandomAttribute random(1);
    for (int i = 0; i < 20000; ++i) {
        floats.push_back(random.anyFloat());
        doubles.push_back(random.anyDouble());
        ints.push_back(random.anyInt());
        strings.push_back(random.text());
    }
    for (const Attribute& attribute : {Attribute(FloatAttribute(floats, 3)),
                                       Attribute(DoubleAttribute(doubles, 16)),
                                       Attribute(IntAttribute(ints)),
                                       Attribute(StringAttribute(strings))}) {
        expectTextRoundTrip(attribute);
        expectXmlRoundTrip(attribute);
    }
}

TEST(RoundTrip, WhatExpandsWithoutBoundIsRefusedBeforeAnythingIsWritten) {
    const Attribute bomb = ovtest::doublingAttribute(60);
    EXPECT_EQ("error: The attribute expands to more than 67108864 attributes.", textOf(bomb));
    EXPECT_THROW(bomb.getXML(), std::length_error);
    std::string written;
    writeAttribute(
        bomb, AttributeContent::Attribute, AttributeForm::Text, &written, ovtest::appendTo);
    EXPECT_EQ("", written);
}

}  // namespace
