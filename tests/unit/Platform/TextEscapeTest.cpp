// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Attributes/Forms/TextEscape.h"

#include "support/RandomAttribute.h"

#include <gtest/gtest.h>

namespace {

using namespace Sylvar3::internal::OvAttribute::Embedded;
using namespace std::string_literals;

struct Row {
    std::string plain;
    std::string escaped;
};

const Row kRows[] = {
    {"", ""},
    {"plain text, 100 %", "plain text, 100 %"},
    {"C:\\xylophone\\new", "C:\\xylophone\\new"},
    {"\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80", "\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80"},
    {"a\tb\nc\r", "a\\x09b\\x0Ac\\x0D"},
    {"a\0b"s, "a\\x00b"},
    {"\x1B[31m", "\\x1B[31m"},
    {"\x7F", "\\x7F"},
    {"\xC2\x80\xC2\x9F", "\\xC2\\x80\\xC2\\x9F"},
    {"\xC2\xA0", "\xC2\xA0"},
    {"\xFF", "\\xFF"},
    {"\xE2\x82", "\\xE2\\x82"},
    {"\xE2\x82x", "\\xE2\\x82x"},
    {"\xC0\xAF", "\\xC0\\xAF"},
    {"\xE0\x9F\xBF", "\\xE0\\x9F\\xBF"},
    {"\xE0\xA0\x80", "\xE0\xA0\x80"},
    {"\xED\x9F\xBF", "\xED\x9F\xBF"},
    {"\xED\xA0\x80", "\\xED\\xA0\\x80"},
    {"\xEE\x80\x80", "\xEE\x80\x80"},
    {"\xEF\xBF\xBD", "\xEF\xBF\xBD"},
    {"\xEF\xBF\xBE\xEF\xBF\xBF", "\\xEF\\xBF\\xBE\\xEF\\xBF\\xBF"},
    {"\xF0\x8F\xBF\xBF", "\\xF0\\x8F\\xBF\\xBF"},
    {"\xF4\x8F\xBF\xBD", "\xF4\x8F\xBF\xBD"},
    {"\xF4\x90\x80\x80", "\\xF4\\x90\\x80\\x80"},
    {"\\x41", "\\x5Cx41"},
    {"\\xfF", "\\x5CxfF"},
    {"\\\\x41", "\\\\x5Cx41"},
    {"\\x4", "\\x4"},
    {"\\x4\x01", "\\x4\\x01"},
    {"\\x\xFF", "\\x\\xFF"},
    {"\\xG0", "\\xG0"},
    {"\\X41", "\\X41"},
    {"0123456\\x41", "0123456\\x5Cx41"},
    {"01234567\n", "01234567\\x0A"},
};

TEST(TextEscape, EscapesWhatATextCannotHoldAndNothingElse) {
    for (const Row& row : kRows) {
        EXPECT_EQ(row.escaped, TextEscape::escaped(row.plain));
        EXPECT_EQ(row.plain, TextEscape::unescaped(row.escaped));
    }
}

TEST(TextEscape, ReadsDigitsOfEitherCase) {
    EXPECT_EQ("\xAB\xAB", TextEscape::unescaped("\\xab\\xAB"));
}

TEST(TextEscape, AMalformedEscapeStays) {
    for (const char* const text : {"\\", "\\x", "\\x4", "\\xg1", "\\x1g", "\\u0041", "x41"}) {
        EXPECT_EQ(text, TextEscape::unescaped(text));
    }
}

TEST(TextEscape, EveryByteStandsBesideEveryOther) {
    for (int first = 0; first < 256; ++first) {
        for (int second = 0; second < 256; ++second) {
            const std::string text{static_cast<char>(first), static_cast<char>(second)};
            ASSERT_EQ(text, TextEscape::unescaped(TextEscape::escaped(text)));
        }
    }
}

TEST(TextEscape, AnEscapedTextHoldsNoControlCharacterAndIsUtf8) {
    ovtest::RandomAttribute random(7);
    for (int i = 0; i < 20000; ++i) {
        const std::string text = random.text() + random.text() + random.text();
        const std::string escaped = TextEscape::escaped(text);
        ASSERT_EQ(text, TextEscape::unescaped(escaped));
        for (std::string_view left = escaped; !left.empty();) {
            const std::size_t span = TextEscape::utf8Span(left);
            ASSERT_NE(0U, span) << escaped;
            ASSERT_TRUE(span > 1 || (left[0] >= 0x20 && left[0] != 0x7F)) << escaped;
            left.remove_prefix(span);
        }
    }
}

}  // namespace
