// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/PyString.h>

#include <gtest/gtest.h>

#include <limits>

using namespace Sylvar3::internal;

namespace {

constexpr int kMax = std::numeric_limits<int>::max();
constexpr int kMin = std::numeric_limits<int>::min();

using Pieces = std::vector<std::string>;

Pieces split(const std::string& text, const std::string& separator, int maxSplits) {
    Pieces pieces{"left over"};
    pystring_v1::split(text, pieces, separator, maxSplits);
    return pieces;
}

std::string repeated(const std::string& text, int count) {
    std::string result;
    for (int i = 0; i < count; ++i) {
        result += text;
    }
    return result;
}

}  // namespace

// The rows are answers of Python 3.11.

TEST(PyStringStartswith, AnswersAsPython) {
    struct Row {
        std::string text;
        std::string prefix;
        int start;
        int end;
        bool answer;
    };
    const Row rows[] = {
        Row{"render", "ren", 0, kMax, true},
        Row{"render", "end", 0, kMax, false},
        Row{"render", "", 0, kMax, true},
        Row{"", "", 0, kMax, true},
        Row{"", "a", 0, kMax, false},
        Row{"render", "end", 1, kMax, true},
        Row{"render", "er", -2, kMax, true},
        Row{"render", "er", -2, -1, false},
        Row{"render", "ren", 0, 3, true},
        Row{"render", "ren", 0, 2, false},
        Row{"render", "ren", -99, kMax, true},
        Row{"render", "", 6, kMax, true},
        Row{"render", "", 7, kMax, false},
        Row{"render", "", 3, 2, false},
        Row{"render", "d", 3, 4, true},
        Row{"render", "d", kMax, kMax, false},
        Row{"render", "ren", kMin, kMax, true},
        Row{"render", "", 0, kMin, true},
        Row{"render", "render.", 0, kMax, false},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(row.answer, pystring_v1::startswith(row.text, row.prefix, row.start, row.end))
            << row.text << ", " << row.prefix << ", " << row.start << ", " << row.end;
    }
}

TEST(PyStringRfind, AnswersAsPython) {
    struct Row {
        std::string text;
        std::string wanted;
        int start;
        int end;
        int found;
    };
    const Row rows[] = {
        Row{"a/b/c", "/", 0, kMax, 3},     Row{"a/b/c", "x", 0, kMax, -1},
        Row{"a/b/c", "/", 0, 3, 1},        Row{"a/b/c", "/", 0, -2, 1},
        Row{"a/b/c", "/", -2, kMax, 3},    Row{"a/b/c", "/", -1, kMax, -1},
        Row{"a/b/c", "/", 2, 3, -1},       Row{"a/b/c", "b/c", 0, kMax, 2},
        Row{"a/b/c", "b/c", 0, 4, -1},     Row{"a/b/c", "", 0, kMax, 5},
        Row{"a/b/c", "", 0, 2, 2},         Row{"a/b/c", "", 5, kMax, 5},
        Row{"a/b/c", "", 6, kMax, -1},     Row{"a/b/c", "", 3, 2, -1},
        Row{"", "", 0, kMax, 0},           Row{"", "a", 0, kMax, -1},
        Row{"a/b/c", "a", kMin, kMax, 0},  Row{"a/b/c", "c", kMin, 99, 4},
        Row{"a/b/c", "a", kMax, kMax, -1}, Row{"aba", "a", 0, -1, 0},
        Row{"aabaa", "aa", 0, 4, 0},       Row{"aabaa", "aa", 1, kMax, 3},
        Row{"ab", "abc", 0, kMax, -1},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(row.found, pystring_v1::rfind(row.text, row.wanted, row.start, row.end))
            << row.text << ", " << row.wanted << ", " << row.start << ", " << row.end;
    }
}

TEST(PyStringSlice, AnswersAsPython) {
    struct Row {
        std::string text;
        int start;
        int end;
        std::string slice;
    };
    const Row rows[] = {
        Row{"camera", 0, kMax, "camera"},
        Row{"camera", 2, kMax, "mera"},
        Row{"camera", 0, -2, "came"},
        Row{"camera", -3, -1, "er"},
        Row{"camera", 2, 4, "me"},
        Row{"camera", 4, 2, ""},
        Row{"camera", 3, 3, ""},
        Row{"camera", 6, kMax, ""},
        Row{"camera", 7, 9, ""},
        Row{"camera", -99, 2, "ca"},
        Row{"camera", kMin, kMax, "camera"},
        Row{"camera", 0, kMin, ""},
        Row{"camera", kMax, kMax, ""},
        Row{"camera", -1, 1, ""},
        Row{"", 0, kMax, ""},
        Row{"", -1, 1, ""},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(row.slice, pystring_v1::slice(row.text, row.start, row.end))
            << row.text << ", " << row.start << ", " << row.end;
    }
}

TEST(PyString, TakesTheWholeTextUnlessARangeIsGiven) {
    EXPECT_TRUE(pystring_v1::startswith("camera", "cam"));
    EXPECT_EQ(5, pystring_v1::rfind("camera", "a"));
    EXPECT_EQ("camera", pystring_v1::slice("camera"));
    EXPECT_EQ("mera", pystring_v1::slice("camera", 2));
}

TEST(PyStringSplit, AnswersAsPython) {
    struct Row {
        std::string text;
        std::string separator;
        int maxSplits;
        Pieces pieces;
    };
    const Row rows[] = {
        Row{"a,b,,c", ",", -1, {"a", "b", "", "c"}},
        Row{"a,b,,c", ",", 1, {"a", "b,,c"}},
        Row{"a,b,,c", ",", 0, {"a,b,,c"}},
        Row{"a,b,,c", ",", 99, {"a", "b", "", "c"}},
        Row{"", ",", -1, {""}},
        Row{",", ",", -1, {"", ""}},
        Row{",a,", ",", -1, {"", "a", ""}},
        Row{"a--b---c", "--", -1, {"a", "b", "-c"}},
        Row{"abc", "abcd", -1, {"abc"}},
        Row{"abc", "abc", -1, {"", ""}},
        Row{"  a  b c ", "", -1, {"a", "b", "c"}},
        Row{"  a  b c ", "", 0, {"a  b c "}},
        Row{"  a  b c ", "", 1, {"a", "b c "}},
        Row{"  a  b c ", "", 2, {"a", "b", "c "}},
        Row{"  a  b c ", "", 3, {"a", "b", "c"}},
        Row{"  a  b c ", "", -7, {"a", "b", "c"}},
        Row{"", "", -1, {}},
        Row{" \t\n\v\f\r", "", -1, {}},
        Row{"a\tb\nc\vd\fe\rf", "", -1, {"a", "b", "c", "d", "e", "f"}},
        Row{"a\205b\240c\034d", "", -1, {"a\205b\240c\034d"}},
        Row{"a b", "  ", -1, {"a b"}},
        Row{"   ", "", 0, {}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(row.pieces, split(row.text, row.separator, row.maxSplits))
            << '"' << row.text << "\", \"" << row.separator << "\", " << row.maxSplits;
    }
}

TEST(PyStringSplit, SplitsAtWhiteSpaceWithoutLimitUnlessToldOtherwise) {
    Pieces pieces;
    pystring_v1::split(" a  b ", pieces);
    EXPECT_EQ((Pieces{"a", "b"}), pieces);
}

TEST(PyStringStrip, AnswersAsPython) {
    struct Row {
        std::string text;
        std::string characters;
        std::string stripped;
        std::string strippedInFront;
    };
    const Row rows[] = {
        Row{"  a b  ", "", "a b", "a b  "},
        Row{" \t\n\v\f\ra\r\f\v\n\t ", "", "a", "a\r\f\v\n\t "},
        Row{"\240a\205", "", "\240a\205", "\240a\205"},
        Row{"", "", "", ""},
        Row{"   ", "", "", ""},
        Row{"//a/b//", "/", "a/b", "a/b//"},
        Row{"/////", "/", "", ""},
        Row{"xyaxy", "yx", "a", "axy"},
        Row{"a", "a", "", ""},
        Row{"abc", " ", "abc", "abc"},
        Row{" a ", "a", " a ", " a "},
        Row{"", "x", "", ""},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(row.stripped, pystring_v1::strip(row.text, row.characters)) << row.text;
        EXPECT_EQ(row.strippedInFront, pystring_v1::lstrip(row.text, row.characters)) << row.text;
    }
}

TEST(PyString, TreatsTheByteZeroAsAnyOther) {
    const std::string text("\0 a\0b \0", 7);
    EXPECT_EQ(text, pystring_v1::strip(text));
    EXPECT_EQ(std::string(" a\0b ", 5), pystring_v1::strip(text, std::string("\0", 1)));
    EXPECT_EQ((Pieces{"", " a", "b ", ""}), split(text, std::string("\0", 1), -1));
    EXPECT_EQ("- a-b -", pystring_v1::replace(text, std::string("\0", 1), "-"));
    EXPECT_EQ(6, pystring_v1::rfind(text, std::string("\0", 1)));
}

TEST(PyStringReplace, AnswersAsPython) {
    struct Row {
        std::string text;
        std::string oldText;
        std::string newText;
        int count;
        std::string replaced;
    };
    const Row rows[] = {
        Row{"a.b.c", ".", "/", -1, "a/b/c"}, Row{"a.b.c", ".", "/", 1, "a/b.c"},
        Row{"a.b.c", ".", "/", 0, "a.b.c"},  Row{"a.b.c", ".", "/", 99, "a/b/c"},
        Row{"a.b.c", ".", "/", -9, "a/b/c"}, Row{"aaaa", "aa", "b", -1, "bb"},
        Row{"aaa", "aa", "b", -1, "ba"},     Row{"abab", "ab", "", -1, ""},
        Row{"a", "a", "aa", -1, "aa"},       Row{"abc", "", "-", -1, "-a-b-c-"},
        Row{"abc", "", "-", 2, "-a-bc"},     Row{"abc", "", "-", 0, "abc"},
        Row{"abc", "", "-", 4, "-a-b-c-"},   Row{"abc", "", "-", 3, "-a-b-c"},
        Row{"", "", "-", -1, "-"},           Row{"", "", "-", 0, ""},
        Row{"", "a", "-", -1, ""},           Row{"abc", "x", "-", -1, "abc"},
        Row{"abc", "abcd", "-", -1, "abc"},  Row{"\\\"x", "\"", "\\\"", -1, "\\\\\"x"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(row.replaced, pystring_v1::replace(row.text, row.oldText, row.newText, row.count))
            << row.text << ", " << row.oldText << ", " << row.newText << ", " << row.count;
    }
}

TEST(PyStringReplace, TakesTimeInProportionToTheText) {
    const int count = 1 << 20;
    const std::string replaced = pystring_v1::replace(repeated("ab", count), "a", "xyz");
    EXPECT_EQ(std::size_t{4} * count, replaced.size());
    EXPECT_EQ("xyzbxyzb", replaced.substr(0, 8));
}
