// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/Patterns/PathPatterns.h"

#include "Platform/Embedded/Runtime/Op.h"
#include "unit/Ops/NaivePatterns.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <string>
#include <vector>

using namespace Sylvar3::internal::OvSylvar::Embedded;
using namespace ovtest;

namespace {

std::string parentOf(const std::string& path) {
    return path.substr(0, path.rfind('/'));
}

class Dice {
public:
    std::size_t upTo(std::size_t most) {
        return std::uniform_int_distribution<std::size_t>(0, most)(engine_);
    }
    const std::string& oneOf(const Texts& texts) { return texts[upTo(texts.size() - 1)]; }

    /// Names of one to four of these pieces, or now and then "**".
    std::string path(std::size_t most, const Texts& pieces, bool spans) {
        std::string path;
        for (std::size_t names = 1 + upTo(most); names > 0; --names) {
            path += "/";
            if (spans && upTo(3) == 0) {
                path += "**";
                continue;
            }
            for (std::size_t i = 1 + upTo(3); i > 0; --i) {
                path += oneOf(pieces);
            }
        }
        return path;
    }

    /// A list of patterns of one to three names.
    Texts list(const Texts& names, bool takesAway) {
        Texts patterns(1 + upTo(5));
        for (std::string& pattern : patterns) {
            pattern = takesAway && upTo(2) == 0 ? "!" : "";
            for (std::size_t i = 1 + upTo(2); i > 0; --i) {
                pattern += "/" + (upTo(2) == 0 ? std::string("**") : oneOf(names));
            }
        }
        return patterns;
    }

private:
    std::mt19937 engine_{7};
};

/// "" and all paths of one to five of the names "a", "b" and "ab", those above first.
Texts smallUniverse() {
    Texts paths = {""};
    const std::size_t atMostFourNames = 1 + 3 + 9 + 27 + 81;
    for (std::size_t i = 0; i < atMostFourNames; ++i) {
        for (const char* const name : {"/a", "/b", "/ab"}) {
            paths.push_back(paths[i] + name);
        }
    }
    return paths;
}

/// Patterns of which each matches one of the universe's names.
const Texts& patternsOfItsNames() {
    static const Texts patterns = {"a",
                                   "b",
                                   "ab",
                                   "*",
                                   "?",
                                   "a*",
                                   "*b",
                                   "?b",
                                   "[ab]",
                                   "[!a]",
                                   "{a,b}",
                                   "a{b,}",
                                   "*a*",
                                   "{a*,*b,?}",
                                   "[a-a]*",
                                   "*[b-c]"};
    return patterns;
}

/// What a list says of each path of the universe, by the slow matcher.
struct Expected {
    Expected(const Texts& patterns, const Texts& universe) {
        for (const std::string& path : universe) {
            matches[path] = naiveMatches(patterns, path);
        }
        for (auto path = universe.rbegin(); !path->empty(); ++path) {
            matchesBelow[parentOf(*path)] |= matches[*path] || matchesBelow[*path];
        }
    }

    std::map<std::string, bool> matches;
    std::map<std::string, bool> matchesBelow;
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
                           {{"/**"}, "", false},
                           {{"/{}"}, "/a", false},
                           {{"/a[z-b]*"}, "/az", false},
                           {{"/ab*ab"}, "/abab", true},
                           {{"/ab*ab"}, "/ab", false},
                           {{"/ab*", "/ab"}, "/ab", true},
                           {{"/ab", "!/ab*"}, "/ab", false},
                           {{"/{ab,a*}", "!/**/c"}, "/ab", true},
                           {{"/**/**/b"}, "/a/b", true},
                           {{}, "/root", false},
                           {{}, "", false}}) {
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
        const std::string pattern =
            dice.path(4, {"a", "b", "*", "?", "[!a]", "[a-b]", "{a,b}", "{,a*}"}, true);
        const std::string path = dice.path(5, {"a", "b"}, false);
        const bool expected = naiveMatches({pattern}, path);
        ASSERT_EQ(expected, PathPatterns({pattern}).matches(path)) << pattern << " " << path;
        matches += expected;
    }
    // Both answers were asked for often enough to mean something.
    EXPECT_GT(matches, 1000);
    EXPECT_LT(matches, 19000);
}

TEST(PathPatterns, AnswerForListsAsAMatcherDoesThatTriesEverything) {
    Dice dice;
    const Texts universe = smallUniverse();
    int matching = 0;
    for (int i = 0; i < 150; ++i) {
        const Texts list = dice.list(patternsOfItsNames(), i % 2 == 0);
        const PathPatterns patterns(list);
        Expected expected(list, universe);
        for (const std::string& path : universe) {
            ASSERT_EQ(expected.matches[path], patterns.matches(path))
                << testing::PrintToString(list) << " " << path;
            ASSERT_EQ(naiveIsWithinMatch(list, path), patterns.isWithinMatch(path))
                << testing::PrintToString(list) << " " << path;
            matching += expected.matches[path];
        }
    }
    EXPECT_GT(matching, 5000);
    EXPECT_LT(matching, 45000);
}

TEST(PathPatterns, NeverDenyAMatchBelow) {
    Dice dice;
    const Texts universe = smallUniverse();
    int denied = 0;
    for (int i = 0; i < 150; ++i) {
        const Texts list = dice.list(patternsOfItsNames(), true);
        const PathPatterns patterns(list);
        Expected expected(list, universe);
        for (const std::string& path : universe) {
            const bool canMatch = patterns.canMatchBelow(path);
            ASSERT_TRUE(canMatch || !expected.matchesBelow[path])
                << testing::PrintToString(list) << " " << path;
            ASSERT_TRUE(!canMatch || path.empty() || patterns.canMatchBelow(parentOf(path)))
                << testing::PrintToString(list) << " " << path;
            denied += !canMatch;
        }
    }
    EXPECT_GT(denied, 2000);
}

TEST(PathPatterns, KnowExactlyWhatCanMatchBelowWhenNothingIsTakenAway) {
    Dice dice;
    const Texts universe = smallUniverse();
    for (int i = 0; i < 150; ++i) {
        const Texts list = dice.list(patternsOfItsNames(), false);
        const PathPatterns patterns(list);
        Expected expected(list, universe);
        for (const std::string& path : universe) {
            // Below the others the universe is not deep enough for patterns of three names.
            if (std::count(path.begin(), path.end(), '/') <= 2) {
                ASSERT_EQ(expected.matchesBelow[path], patterns.canMatchBelow(path))
                    << testing::PrintToString(list) << " " << path;
            }
        }
    }
}

TEST(PathPatterns, KnowWhatIsTakenAwayBelow) {
    struct Row {
        Texts patterns;
        const char* path;
        bool canMatchBelow;
    };
    for (const Row& row : {Row{{}, "", false},
                           {{"/root"}, "", true},
                           {{"!/root"}, "", false},
                           {{"/root"}, "/root", false},
                           {{"/**"}, "/root", true},
                           {{"/root/{}"}, "/root", false},
                           {{"/**", "!/**"}, "", false},
                           {{"/root/**", "!/root/a/**"}, "/root", true},
                           {{"/root/**", "!/root/a/**"}, "/root/a", false},
                           {{"/root/**", "!/root/a/**"}, "/root/a/b", false},
                           {{"/root/**", "!/root/a/**"}, "/root/b", true},
                           {{"/root/**", "!/root/*/**"}, "/root", false},
                           {{"/root/**", "!/root/**/*"}, "/root", false},
                           {{"/root/**", "!/root/*"}, "/root", true},
                           {{"/root/**", "!/root/a*/**"}, "/root", true},
                           {{"/root/**", "!/root/a*/**"}, "/root/ab", false},
                           {{"/root/a", "!/root/a"}, "/root", false},
                           {{"!/root/**", "/root/a/b"}, "/root", true},
                           {{"/root/a/b", "!/root/**", "/root/c"}, "/root", true},
                           {{"/root/a/b", "!/root/**", "/root/c"}, "/root/a", false}}) {
        EXPECT_EQ(row.canMatchBelow, PathPatterns(row.patterns).canMatchBelow(row.path))
            << testing::PrintToString(row.patterns) << " " << row.path;
    }
}

TEST(PathPatterns, TellOfWhatIsWithinAMatchByTheNearestThatOneOfThemKnows) {
    struct Row {
        Texts patterns;
        const char* path;
        bool isWithinMatch;
    };
    for (const Row& row : {Row{{}, "/root", false},
                           {{"/**"}, "", false},
                           {{"/root/a"}, "/root", false},
                           {{"/root/a"}, "/root/a/b/c", true},
                           {{"/root/**", "!/root/a/**"}, "/root/b", true},
                           {{"/root/**", "!/root/a/**"}, "/root/a", false},
                           {{"/root/**", "!/root/a/**"}, "/root/a/b", false},
                           {{"/root", "!/root/a"}, "/root/a/b", false},
                           {{"!/root/a", "/root"}, "/root/a/b", false},
                           {{"/root", "!/root/a", "/root/a/b"}, "/root/a/b/c", true},
                           {{"/root/*", "!/root/*/a"}, "/root/x/b", true}}) {
        EXPECT_EQ(row.isWithinMatch, PathPatterns(row.patterns).isWithinMatch(row.path))
            << testing::PrintToString(row.patterns) << " " << row.path;
    }
}

TEST(PathPatterns, MatchEachByItsOwnPatternOfVeryMany) {
    Texts list;
    for (int i = 0; i < 3000; ++i) {
        const std::string number = std::to_string(i);
        list.push_back("/a/name" + number);
        list.push_back("/b/name" + number + "_*");
        list.push_back("/**/*_" + number + "geo");
        list.push_back("!/**/x*_" + number + "geo");
    }
    const PathPatterns patterns(list);
    for (int i = 0; i < 3000; ++i) {
        const std::string number = std::to_string(i);
        EXPECT_TRUE(patterns.matches("/a/name" + number)) << i;
        EXPECT_FALSE(patterns.matches("/b/name" + number)) << i;
        EXPECT_TRUE(patterns.matches("/b/name" + number + "_")) << i;
        EXPECT_TRUE(patterns.matches("/c/d/_" + number + "geo")) << i;
        EXPECT_FALSE(patterns.matches("/c/d/x_" + number + "geo")) << i;
        EXPECT_FALSE(patterns.matches("/a/name1" + number + "_")) << i;
    }
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

TEST(PathPatterns, RefuseListsWhoseBracesStandForTooMuch) {
    const std::string ten = "{0,1,2,3,4,5,6,7,8,9}";
    const std::string name = "/" + ten + ten + ten + std::string(200, 'x');
    EXPECT_NO_THROW(PathPatterns(Texts(80, name)));
    try {
        const PathPatterns patterns(Texts(100, name));
        FAIL();
    } catch (const OpError& error) {
        EXPECT_EQ("pattern \"" + name.substr(0, 200) +
                      "...\": with it the list's braces stand for more than 16777216 bytes",
                  std::string(error.what()));
    }
}

TEST(PathPatterns, TakeNoLongerForVeryManyPatternsThatCouldMatchInVeryManyWays) {
    Texts list;
    std::string spans;
    std::string braces;
    std::string path;
    for (int i = 0; i < 300; ++i) {
        spans += i % 2 ? "/**/a" : "/**/{a*,*a,[!b]}";
        braces += "/{a*,*a,a}";
        path += i < 100 ? "/a" : "";
        list.insert(list.end(), {spans, braces + "b"});
    }
    const PathPatterns patterns(list);
    EXPECT_TRUE(patterns.matches(path));
    EXPECT_TRUE(patterns.isWithinMatch(path));
    EXPECT_TRUE(patterns.canMatchBelow(path));
    EXPECT_FALSE(patterns.matches(path + "/b"));
}
