// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/PathPatterns.h"

#include "Platform/Embedded/Runtime/Op.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

using namespace Sylvar3::internal::OvSylvar::Embedded;

namespace {

using Texts = std::vector<std::string>;

/// A matcher of "*" and "?" that tries everything.
bool naiveName(std::string_view pattern, std::string_view name) {
    if (pattern.empty()) {
        return name.empty();
    }
    if (pattern.front() == '*') {
        return naiveName(pattern.substr(1), name) ||
               (!name.empty() && naiveName(pattern, name.substr(1)));
    }
    return !name.empty() && (pattern.front() == '?' || pattern.front() == name.front()) &&
           naiveName(pattern.substr(1), name.substr(1));
}

bool naivePath(const Texts& pattern, std::size_t at, const Texts& path, std::size_t name) {
    if (at == pattern.size()) {
        return name == path.size();
    }
    if (pattern[at] == "**") {
        return naivePath(pattern, at + 1, path, name) ||
               (name < path.size() && naivePath(pattern, at, path, name + 1));
    }
    return name < path.size() && naiveName(pattern[at], path[name]) &&
           naivePath(pattern, at + 1, path, name + 1);
}

std::string joined(const Texts& names) {
    std::string path;
    for (const std::string& name : names) {
        path += "/" + name;
    }
    return path;
}

class Dice {
public:
    std::size_t upTo(std::size_t most) {
        return std::uniform_int_distribution<std::size_t>(0, most)(engine_);
    }
    Texts names(std::size_t most, const std::string& letters, bool spans) {
        Texts names(1 + upTo(most));
        for (std::string& name : names) {
            if (spans && upTo(3) == 0) {
                name = "**";
                continue;
            }
            const std::size_t length = 1 + upTo(3);
            while (name.size() < length) {
                name += letters[upTo(letters.size() - 1)];
            }
        }
        return names;
    }

private:
    std::mt19937 engine_{7};
};

}  // namespace

TEST(PathPatterns, MatchByTheirRules) {
    struct Row {
        Texts patterns;
        const char* path;
        bool matches;
    };
    for (const Row& row : {Row{{"/root"}, "/root", true},
                           {{"/root"}, "/root/a", false},
                           {{"/root/*"}, "/root/a", true},
                           {{"/root/*"}, "/root", false},
                           {{"/root/*"}, "/root/a/b", false},
                           {{"/root/**"}, "/root", true},
                           {{"/root/**"}, "/root/a/b", true},
                           {{"/**"}, "/root/a/b", true},
                           {{"/**/b"}, "/root/a/b", true},
                           {{"/**/b"}, "/b", true},
                           {{"/**/b"}, "/root/b/a", false},
                           {{"/**/a/**/a"}, "/a/b/a", true},
                           {{"/**/a/**/a"}, "/a/b", false},
                           {{"/root/**x"}, "/root/ax", true},
                           {{"/root/**x"}, "/root/a/x", false},
                           {{"/a?c"}, "/abc", true},
                           {{"/a?c"}, "/ac", false},
                           {{"/a[0-9]"}, "/a5", true},
                           {{"/a[0-9]"}, "/ab", false},
                           {{"/a[!0-9]"}, "/ab", true},
                           {{"/a[!0-9]"}, "/a5", false},
                           {{"/a[]-]"}, "/a]", true},
                           {{"/a[]-]"}, "/a-", true},
                           {{"/a[!]"}, "/a!", true},
                           {{"/a[-x]"}, "/a-", true},
                           {{"/{left,right}_eye"}, "/right_eye", true},
                           {{"/{left,right}_eye"}, "/left", false},
                           {{"/x{,1,2}"}, "/x", true},
                           {{"/x{,1,2}{a,b}"}, "/x2b", true},
                           {{"/{a*,?b}"}, "/abc", true},
                           {{"/a}"}, "/a}", true},
                           {{"/a.b"}, "/aXb", false},
                           {{"/*\xC3*"}, "/\xC3\xA9", true},
                           {{"/root/**", "!/root/a/**"}, "/root/b", true},
                           {{"/root/**", "!/root/a/**"}, "/root/a", false},
                           {{"/root/**", "!/root/a/**", "/root/a/b"}, "/root/a/b", true},
                           {{"!/root"}, "/root", false},
                           {{"!/root"}, "/a", false},
                           {{}, "/root", false}}) {
        EXPECT_EQ(row.matches, PathPatterns(row.patterns).matches(row.path))
            << testing::PrintToString(row.patterns) << " " << row.path;
    }
}

TEST(PathPatterns, RefuseWhatIsNone) {
    for (const char* const pattern : {"",
                                      "!",
                                      "/",
                                      "!/",
                                      "root",
                                      "**",
                                      "//",
                                      "/root/",
                                      "/root//a",
                                      "/[a",
                                      "/a[",
                                      "/[]",
                                      "/{a",
                                      "/{a/b,c}",
                                      "/{a,b}{a,b}{a,b}{a,b}{a,b}{a,b}{a,b}{a,b}{a,b}{a,b}{a,b}"}) {
        EXPECT_THROW(PathPatterns({"/root", pattern}), OpError) << pattern;
    }
}

TEST(PathPatterns, MatchWhatAMatcherMatchesThatTriesEverything) {
    Dice dice;
    int matches = 0;
    for (int i = 0; i < 20000; ++i) {
        const Texts pattern = dice.names(4, "ab*?", true);
        const Texts path = dice.names(5, "ab", false);
        const bool expected = naivePath(pattern, 0, path, 0);
        ASSERT_EQ(expected, PathPatterns({joined(pattern)}).matches(joined(path)))
            << joined(pattern) << " " << joined(path);
        matches += expected;
    }
    // Both answers were asked for often enough to mean something.
    EXPECT_GT(matches, 1000);
    EXPECT_LT(matches, 19000);
}

TEST(PathPatterns, TakeNoLongerForAPatternThatCouldMatchInVeryManyWays) {
    // Tried one after the other, the ways would take longer than anybody lives.
    std::string name = "/";
    std::string path = "/";
    std::string names;
    std::string paths;
    for (int i = 0; i < 60; ++i) {
        name += "*a";
        path += "aa";
        names += "/**/a";
        paths += "/a/a";
    }
    EXPECT_FALSE(PathPatterns({name + "b"}).matches(path));
    EXPECT_FALSE(PathPatterns({names + "/b"}).matches(paths));
    EXPECT_TRUE(PathPatterns({names}).matches(paths));
}
