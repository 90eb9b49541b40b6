// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/GroupAttribute.h>

#include "support/AttributeForms.h"
#include "support/RandomAttribute.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using namespace Sylvar3::internal::OvAttribute;
using ovtest::readTextForm;
using ovtest::textOf;

using Samples = TimedSamples<float>;
using Strings = std::vector<std::string>;

constexpr float kInfinity = std::numeric_limits<float>::infinity();

std::string documentOf(const std::string& root) {
    return R"({"format": "sylvar", "version": 1, "content": "attribute", "root": )" + root + "}";
}

/// The text of an attribute alone, as it stands behind "root".
std::string rootOf(const Attribute& attribute) {
    const std::string begin =
        "{\n  \"format\": \"sylvar\",\n  \"version\": 1,\n  \"content\": \"attribute\",\n  "
        "\"root\": ";
    const std::string end = "\n}\n";
    const std::string text = textOf(attribute);
    EXPECT_EQ(begin, text.substr(0, begin.size()));
    EXPECT_EQ(end, text.substr(text.size() - end.size()));
    return text.substr(begin.size(), text.size() - begin.size() - end.size());
}

Attribute read(const std::string& root) {
    const AttributeReadResult result = readTextForm(documentOf(root));
    EXPECT_EQ("", result.error) << root;
    return result.attribute;
}

void expectSame(const Attribute& wanted, const Attribute& got) {
    EXPECT_EQ(rootOf(wanted), rootOf(got));
    EXPECT_EQ(wanted.getHash().str(), got.getHash().str());
}

struct FormRow {
    Attribute attribute;
    const char* text;
};

TEST(TextForm, EveryShapeOfAValueHasItsText) {
    const FormRow rows[] = {
        {IntAttribute(7), "7"},
        {IntAttribute({1, -2}), "[1, -2]"},
        {IntAttribute(std::vector<int>{}), R"({"$int": []})"},
        {IntAttribute({1, 2}, 2), R"({"$int": [1, 2], "$tuple": 2})"},
        {DoubleAttribute(2), "2.0"},
        {DoubleAttribute(-0.0), "-0.0"},
        {DoubleAttribute(1e300), "1e+300"},
        {DoubleAttribute({1, 0.5}), "[1.0, 0.5]"},
        {DoubleAttribute(kInfinity), R"({"$double": "inf"})"},
        {DoubleAttribute({1, -kInfinity}), R"({"$double": [1, "-inf"]})"},
        {FloatAttribute(0.1F), R"({"$float": 0.1})"},
        {FloatAttribute({0, 1, 2}, 3), R"({"$float": [0, 1, 2], "$tuple": 3})"},
        {FloatAttribute(std::vector<float>{1}, 3), R"({"$float": [1], "$tuple": 3})"},
        {FloatAttribute(Samples{{0, {0, 1}}, {0.5F, {2, 3}}}, 2),
         R"({"$float": [[0, 1], [2, 3]], "$times": [0, 0.5], "$tuple": 2})"},
        {FloatAttribute(Samples{{1, {5}}}), R"({"$float": [[5]], "$times": [1]})"},
        {FloatAttribute(Samples{{-0.0F, {5}}}), R"({"$float": [[5]], "$times": [-0]})"},
        {FloatAttribute(Samples{{kInfinity, {5}}}), R"({"$float": [[5]], "$times": ["inf"]})"},
        {FloatAttribute(Samples{{0, {}}, {1, {}}}), R"({"$float": [[], []], "$times": [0, 1]})"},
        {FloatAttribute(Samples{}), R"({"$float": [], "$times": []})"},
        {StringAttribute("one"), R"("one")"},
        {StringAttribute(""), R"("")"},
        {StringAttribute(Strings{"a", "b"}), R"(["a", "b"])"},
        {StringAttribute(Strings{"a"}, 2), R"({"$string": ["a"], "$tuple": 2})"},
        {StringAttribute("say \"\\\" / \xC3\xA9"), "\"say \\\"\\\\\\\" / \xC3\xA9\""},
        {StringAttribute("a\nb\\x41\xFF"), R"("a\\x0Ab\\x5Cx41\\xFF")"},
        {GroupAttribute({}, false), "{}"},
        {GroupAttribute({}, true), R"({"$inherit": true})"},
    };
    for (const FormRow& row : rows) {
        EXPECT_EQ(row.text, rootOf(row.attribute));
        expectSame(row.attribute, read(row.text));
    }
}

TEST(TextForm, AGroupIsAnObjectOfItsChildren) {
    const GroupAttribute inner({{"$x", IntAttribute(1)}, {"$", IntAttribute(2)}}, false);
    const GroupAttribute group({{"", Attribute()}, {"a.b/c", inner}, {"\n", inner}}, true);
    const char* const text = R"({
    "$inherit": true,
    "": null,
    "a.b/c": {
      "$$x": 1,
      "$$": 2
    },
    "\\x0A": {
      "$$x": 1,
      "$$": 2
    }
  })";
    EXPECT_EQ(text, rootOf(group));
    expectSame(group, read(text));
}

TEST(TextForm, LongArraysBreakBetweenTuples) {
    std::vector<float> values;
    for (int i = 0; i < 36; ++i) {
        values.push_back(static_cast<float>(i) * 0.25F);
    }
    EXPECT_EQ(
        "{\"$float\": [0, 0.25, 0.5, 0.75, 1, 1.25, 1.5, 1.75, 2, 2.25, 2.5, 2.75, 3, 3.25, 3.5,\n"
        "    3.75, 4, 4.25, 4.5, 4.75, 5, 5.25, 5.5, 5.75, 6, 6.25, 6.5, 6.75, 7, 7.25, 7.5, 7.75, "
        "8,\n"
        "    8.25, 8.5, 8.75], \"$tuple\": 3}",
        rootOf(FloatAttribute(values, 3)));
}

TEST(TextForm, PeopleMayWriteItTheirWay) {
    const char* const text =
        "\xEF\xBB\xBF// A comment.\r\n"
        "{\"root\": {\"points\": {\"$tuple\": 3, \"$times\": [0, 0.5], /* any order */\n"
        "  \"$float\": [[1e0, 2.0, 3], [\"nan\", \"-inf\", \"\\\\x7fc00001\"]]},\n"
        "  \"text\": \"tab\\t \\u00e9 \\ud83d\\ude00 \\\\xFF\", \"one\": [1], \"inner\": "
        "{\"$inherit\": false}},\n"
        " \"content\": \"op tree\", \"version\": 1, \"format\": \"sylvar\"} // the end";
    const AttributeReadResult result = readTextForm(text);
    ASSERT_EQ("", result.error);
    EXPECT_EQ(AttributeContent::OpTree, result.content);
    EXPECT_EQ(R"({
    "points": {"$float": [[1, 2, 3], ["nan", "-inf", "\\x7FC00001"]], "$times": [0, 0.5], "$tuple": 3},
    "text": "tab\\x09 )"
              "\xC3\xA9 \xF0\x9F\x98\x80"
              R"( \\xFF",
    "one": 1,
    "inner": {}
  })",
              rootOf(result.attribute));
}

TEST(TextForm, ALaterChildOfANameReplacesTheEarlierOneInItsPlace) {
    const Attribute group = read(R"({"a": 1, "b": 2, "a": "three", "c": 4, "a": 5})");
    const GroupAttribute wanted(
        {{"a", IntAttribute(5)}, {"b", IntAttribute(2)}, {"c", IntAttribute(4)}}, false);
    expectSame(wanted, group);
}

TEST(TextForm, ALongNameIsAName) {
    for (const std::size_t length : {254U, 255U, 256U, 70000U}) {
        const std::string name(length, 'n');
        const GroupAttribute group({{name, IntAttribute(1)}, {"b", IntAttribute(2)}}, false);
        expectSame(group, read("{\"" + name + "\": 1, \"b\": 2}"));
    }
}

TEST(TextForm, ANameMayHoldANulAndAStringMayNot) {
    EXPECT_EQ(std::string("a\0b", 3),
              castAttribute<GroupAttribute>(read(R"({"a\\x00b": 1})")).getChildName(0));
    EXPECT_EQ(std::string("a\0b", 3),
              castAttribute<GroupAttribute>(read(R"({"a\u0000b": 1})")).getChildName(0));
}

TEST(TextForm, WhatItHoldsIsALabel) {
    for (const AttributeContent content :
         {AttributeContent::Attribute, AttributeContent::StaticScene, AttributeContent::OpTree}) {
        std::string text;
        EXPECT_EQ(
            "",
            writeAttribute(IntAttribute(1), content, AttributeForm::Text, &text, ovtest::appendTo));
        EXPECT_EQ(content, readTextForm(text).content);
        EXPECT_EQ(AttributeForm::Text, readTextForm(text).form);
    }
}

struct Fault {
    const char* root;
    const char* error;
};

/// Columns count from the beginning of the root, which stands on a line of its own.
const Fault kFaults[] = {
    {"null", "line 2, column 1: The root can't be null."},
    {"true",
     "line 2, column 1: true stands where an object, an array, a string, a number or null is "
     "expected."},
    {"3000000000",
     "line 2, column 1: 3000000000 is no int of 32 bits. A double has a point or an exponent, or "
     "stands in {\"$double\": ...}."},
    {"1e999", "line 2, column 1: This number is too large for a double."},
    {"1e-999", "line 2, column 1: 1e-999 is too large or too small for a double."},
    {"[]",
     "line 2, column 2: An empty array does not tell its kind; write {\"$int\": []}, {\"$float\": "
     "[]}, {\"$double\": []} or {\"$string\": []}."},
    {"[1, \"a\"]", "line 2, column 5: The values of an array are all numbers or all strings."},
    {"[\"a\", 1]", "line 2, column 7: The values of an array are all numbers or all strings."},
    {"[1, 3000000000]",
     "line 2, column 15: One of these numbers is no int of 32 bits. A double has a point or an "
     "exponent, or stands in {\"$double\": ...}."},
    {"[1, null]", "line 2, column 5: null stands where a number or a string is expected."},
    {"[1, [2]]", "line 2, column 5: An array stands where a number or a string is expected."},
    {"[{}]", "line 2, column 2: An object stands where a number or a string is expected."},
    {"{\"a\": false}",
     "line 2, column 7: false stands where an object, an array, a string, a number or null is "
     "expected."},
    {"{\"a\": \"\\u0000\"}", "line 2, column 7: A string value can't hold a NUL byte."},
    {"[\"x\\\\\\\"\", \"\\\\x00\"]", "line 2, column 11: A string value can't hold a NUL byte."},
    {"{\"$inherit\": 1}", "line 2, column 14: A number stands where true or false is expected."},
    {"{\"$half\": [1]}",
     "line 2, column 2: \"$half\" is no known member. The name of a child that begins with \"$\" "
     "is "
     "written with one \"$\" more."},
    {"{\"a\": 1, \"$float\": [1]}",
     "line 2, column 10: An object is a group or holds values; it can't be both."},
    {"{\"$float\": [1], \"a\": 1}",
     "line 2, column 17: An object is a group or holds values; it can't be both."},
    {"{\"$float\": [1], \"$inherit\": true}",
     "line 2, column 17: An object is a group or holds values; it can't be both."},
    {"{\"$float\": [1], \"$int\": [1]}",
     "line 2, column 17: An attribute has values of one kind, and once."},
    {"{\"$tuple\": 3}",
     "line 2, column 13: This object has no values; \"$int\", \"$float\", \"$double\" or "
     "\"$string\" is expected."},
    {"{\"$int\": [1], \"$tuple\": 0}",
     "line 2, column 25: 0 is no tuple size; one is from 1 to 2147483647."},
    {"{\"$int\": [1], \"$tuple\": 1.5}",
     "line 2, column 25: 1.5 is no tuple size; one is from 1 to 2147483647."},
    {"{\"$tuple\": 1, \"$tuple\": 1}", "line 2, column 25: An attribute has one \"$tuple\"."},
    {"{\"$times\": [], \"$times\": []}", "line 2, column 26: An attribute has one \"$times\"."},
    {"{\"$int\": [1.5]}", "line 2, column 11: 1.5 is no int of 32 bits."},
    {"{\"$int\": [\"1\"]}", "line 2, column 11: A string stands where an int is expected."},
    {"{\"$string\": [1]}", "line 2, column 14: A number stands where a string is expected."},
    {"{\"$float\": [1e39]}", "line 2, column 13: 1e39 is too large or too small for a float."},
    {"{\"$float\": [\"1\"]}",
     "line 2, column 13: \"1\" stands where a float is expected: a number, \"nan\", \"inf\", "
     "\"-inf\" or \"\\\\x\" and its 8 hexadecimal digits."},
    {"{\"$double\": [\"\\\\x7FC00001\"]}",
     "line 2, column 14: \"\\x5Cx7FC00001\" stands where a double is expected: a number, \"nan\", "
     "\"inf\", \"-inf\" or \"\\\\x\" and its 16 hexadecimal digits."},
    {"{\"$float\": null}",
     "line 2, column 12: null stands where an array of values, or one value, is expected."},
    {"{\"$float\": [[1], [2]]}", "line 2, column 22: Samples are here, but no \"$times\"."},
    {"{\"$float\": [[1], [2, 3]], \"$times\": [0, 1]}",
     "line 2, column 23: This sample has 2 values, the first one has 1."},
    {"{\"$float\": [[1]], \"$times\": [0, 1]}",
     "line 2, column 35: 2 times and 1 sample don't go together."},
    {"{\"$float\": [1], \"$times\": [0]}",
     "line 2, column 30: With \"$times\", the values are an array of one array for each time."},
    {"{\"$float\": [1, [2]], \"$times\": [0]}",
     "line 2, column 16: Values and samples can't stand side by side."},
    {"{\"$float\": [[1], 2], \"$times\": [0]}",
     "line 2, column 18: Values and samples can't stand side by side."},
    {"{\"$float\": [[[1]]]}", "line 2, column 14: An array stands where a value is expected."},
    {"{\"$times\": 1}", "line 2, column 12: A number stands where an array of times is expected."},
    {"{\"$times\": [\"now\"]}", "line 2, column 13: now is no time; a time is a float."},
    {"{\"$times\": [[1]]}", "line 2, column 13: An array stands where a time is expected."},
    {"{\"\xC3\xA9\": \"\xE2\x82\xAC\", \"b\": nul}",
     "line 2, column 17: This is no value; an object, an array, a string, a number, true, false or "
     "null is expected."},
    {"{\n\n  \"a\" 1}", "line 4, column 7: A colon is expected behind the name of a member."},
    {"{\"a\": 1 \"b\": 2}", "line 2, column 9: A comma or \"}\" is expected behind a member."},
    {"[1 2]", "line 2, column 4: A comma or \"]\" is expected behind a value of an array."},
    {"{\"a\": 1,}", "line 2, column 9: The name of a member, in quotation marks, is expected."},
    {"[1,]",
     "line 2, column 4: This is no value; an object, an array, a string, a number, true, false or "
     "null is expected."},
    {"{a: 1}", "line 2, column 2: The name of a member, in quotation marks, is expected."},
    {"\"a\nb\"",
     "line 2, column 3: A string can't hold this as it stands; an escape such as \"\\n\" or "
     "\"\\\\\" is expected."},
    {"\"\\q\"",
     "line 2, column 2: A string can't hold this as it stands; an escape such as \"\\n\" or "
     "\"\\\\\" is expected."},
    {"\"\\u12g4\"", "line 2, column 2: Four hexadecimal digits are expected behind \"\\u\"."},
    {"\"\\ud800x\"",
     "line 2, column 2: This is half a surrogate pair; the other half is expected behind it."},
    {"\"\xFF\"",
     "line 2, column 2: This is no UTF-8; a byte of any value is written as \"\\\\x\" and two "
     "hexadecimal digits."},
    {"1.", "line 2, column 3: A digit is expected behind the point."},
    {"1e", "line 2, column 3: A digit is expected in the exponent."},
    {"-",
     "line 2, column 2: This is no value; an object, an array, a string, a number, true, false or "
     "null is expected."},
    {"01", "line 2, column 2: A comma or \"}\" is expected behind a member."},
};

TEST(TextForm, AFaultTellsItsPlaceAndWhatIsExpected) {
    for (const Fault& fault : kFaults) {
        const std::string text =
            "{\"format\": \"sylvar\", \"version\": 1, \"content\": \"attribute\", \"root\":\n" +
            std::string(fault.root) + "}";
        const AttributeReadResult result = readTextForm(text);
        EXPECT_EQ(fault.error, result.error) << fault.root;
        EXPECT_FALSE(result.attribute) << fault.root;
    }
}

const Fault kDocumentFaults[] = {
    {" ", "line 1, column 2: The text is empty; an object is expected."},
    {"{}", "line 1, column 2: The member \"format\" is missing."},
    {"{\"format\": \"sylvar\", \"version\": 1, \"root\": 1}",
     "line 1, column 45: The member \"content\" is missing."},
    {"{\"format\": \"other\"}", "line 1, column 12: The format is \"other\", not \"sylvar\"."},
    {"{\"format\": 1}",
     "line 1, column 12: A number stands where the text \"sylvar\" is expected."},
    {"{\"version\": 2}", "line 1, column 13: The version is 2; 1 is the one that is known."},
    {"{\"content\": \"scene\"}",
     "line 1, column 13: The content is \"scene\"; \"attribute\", \"static scene\" or \"op tree\" "
     "is "
     "expected."},
    {"{\"roots\": 1}",
     "line 1, column 2: \"roots\" stands where \"format\", \"version\", \"content\" or \"root\" is "
     "expected."},
    {"{\"root\": 1, \"root\": 2}", "line 1, column 13: \"root\" is told twice."},
    {"{\"root\": 1} x", "line 1, column 11: The member \"format\" is missing."},
    {"/ {}",
     "line 1, column 2: A comment begins with \"//\", or it begins with \"/*\" and ends with "
     "\"*/\"."},
    {"/* ",
     "line 1, column 4: A comment begins with \"//\", or it begins with \"/*\" and ends with "
     "\"*/\"."},
};

TEST(TextForm, ADocumentSaysWhatItIs) {
    for (const Fault& fault : kDocumentFaults) {
        EXPECT_EQ(fault.error, readTextForm(fault.root).error) << fault.root;
    }
    EXPECT_EQ(
        "line 1, column 71: Something follows the end of the object; nothing more is expected.",
        readTextForm(documentOf("1") + " x").error);
    EXPECT_EQ("line 1, column 70: A NUL byte stands behind the end of the object.",
              readTextForm(documentOf("1") + std::string("\0x", 2)).error);
}

TEST(TextForm, GroupsThatAreLaidOutForPeopleAreNeverTooMany) {
    std::vector<GroupAttribute::Child> groups;
    for (int i = 0; i < 60000; ++i) {
        const std::string name = std::to_string(i);
        groups.emplace_back(name, GroupAttribute({{name, Attribute()}}, false));
    }
    const GroupAttribute all(groups, false);
    const AttributeReadResult result = readTextForm(textOf(all));
    EXPECT_EQ("", result.error);
    EXPECT_EQ(all.getHash().str(), result.attribute.getHash().str());
}

std::string smallText() {
    const GroupAttribute inner(
        {{"$n", FloatAttribute(Samples{{0, {1, 2}}, {1.5F, {3, kInfinity}}}, 2)},
         {"s", StringAttribute(Strings{"a\n", "\xC3\xA9\xFF"})},
         {"null", Attribute()}},
        true);
    return textOf(GroupAttribute(
        {{"i", IntAttribute({1, 2})}, {"d", DoubleAttribute(0.5)}, {"g", inner}}, false));
}

TEST(TextForm, ATextThatIsCutShortIsAFault) {
    const std::string text = smallText();
    ASSERT_EQ("", readTextForm(text).error);
    for (std::size_t size = 0; size < text.size() - 1; ++size) {
        const AttributeReadResult result = readTextForm(text.substr(0, size));
        ASSERT_NE("", result.error) << size;
        ASSERT_FALSE(result.attribute) << size;
    }
}

TEST(TextForm, AFlippedBitGivesAnAttributeOrAFault) {
    const std::string text = smallText();
    for (std::size_t bit = 0; bit < text.size() * 8; ++bit) {
        std::string flipped = text;
        flipped[bit / 8] = static_cast<char>(flipped[bit / 8] ^ (1 << (bit % 8)));
        const AttributeReadResult result = readTextForm(flipped);
        ASSERT_EQ(result.error.empty(), static_cast<bool>(result.attribute)) << flipped;
        if (result.attribute) {
            const AttributeReadResult again = readTextForm(textOf(result.attribute));
            ASSERT_EQ(result.attribute.getHash().str(), again.attribute.getHash().str()) << flipped;
        }
    }
}

TEST(TextForm, AWriterThatIsStoppedSaysSo) {
    const auto stop = [](void* calls, const void*, long) {
        ++*static_cast<int*>(calls);
        return 0;
    };
    int calls = 0;
    const Attribute wide = ovtest::wideAttribute(20000);
    EXPECT_EQ("The writing was stopped.",
              writeAttribute(wide, AttributeContent::Attribute, AttributeForm::Text, &calls, stop));
    EXPECT_EQ(1, calls);
}

TEST(TextForm, IsWrittenInPiecesOfSixtyFourKilobytes) {
    const auto note = [](void* longest, const void*, long size) {
        *static_cast<long*>(longest) = std::max(*static_cast<long*>(longest), size);
        return 1;
    };
    long longest = 0;
    writeAttribute(ovtest::wideAttribute(20000),
                   AttributeContent::Attribute,
                   AttributeForm::Text,
                   &longest,
                   note);
    EXPECT_EQ(65536, longest);
}

}  // namespace
