// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/DelimiterCodec.h>

#include <gtest/gtest.h>

using namespace Sylvar3::internal::OvAttribute;

TEST(DelimiterEncode, EscapesDotsSlashesAndPercentSignsAlone) {
    struct Row {
        const char* name;
        const char* encoded;
    };
    for (const Row& row : {Row{"", ""},
                           Row{"plain name", "plain name"},
                           Row{".", "%2E"},
                           Row{"/", "%2F"},
                           Row{"%", "%25"},
                           Row{"a.b/c%d", "a%2Eb%2Fc%25d"},
                           Row{"%2E", "%252E"},
                           Row{"\xc3\xa9:\\", "\xc3\xa9:\\"}}) {
        EXPECT_EQ(row.encoded, DelimiterEncode(row.name)) << row.name;
    }
}

TEST(DelimiterDecode, ReadsEscapesAndLeavesMalformedOnesAsTheyStand) {
    struct Row {
        const char* encoded;
        const char* name;
    };
    for (const Row& row : {Row{"", ""},
                           Row{"plain", "plain"},
                           Row{"a%2Eb", "a.b"},
                           Row{"%2e%2f%2F", ".//"},
                           Row{"%41%4a%4A%fF", "AJJ\xff"},
                           Row{"%252E", "%2E"},
                           Row{"%", "%"},
                           Row{"%2", "%2"},
                           Row{"a%", "a%"},
                           Row{"%2x", "%2x"},
                           Row{"%x2", "%x2"},
                           Row{"%g0%0g", "%g0%0g"},
                           Row{"%%2E", "%."},
                           Row{"%2%2E", "%2."},
                           Row{"% 2", "% 2"},
                           Row{"%+1%-1%0x", "%+1%-1%0x"},
                           Row{"%@A%`A%:0", "%@A%`A%:0"}}) {
        EXPECT_EQ(row.name, DelimiterDecode(row.encoded)) << row.encoded;
    }
}

TEST(DelimiterDecode, ReadsTheByteZero) {
    EXPECT_EQ(std::string("a\0b", 3), DelimiterDecode("a%00b"));
}

TEST(DelimiterDecode, UndoesTheEncodingOfEveryByte) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte) {
        all += static_cast<char>(byte);
    }
    all += all;
    EXPECT_EQ(all, DelimiterDecode(DelimiterEncode(all)));
}

TEST(DelimiterDecodeAppend, AppendsTheDecodedName) {
    std::string path = "/root%2E/";
    DelimiterDecodeAppend("a%2Eb", path);
    EXPECT_EQ("/root%2E/a.b", path);
}
