// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/PathPatterns.h"

#include "Platform/Embedded/Ops/NearestName.h"
#include "Platform/Embedded/Runtime/Op.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <string>
#include <vector>

using namespace Sylvar3::internal::OvSylvar::Embedded;

namespace {

using Texts = std::vector<std::string>;

/// Whether one of the bytes between the brackets of "[a-z]" is `byte`.
bool naiveSet(const std::string& set, char byte) {
    std::string bytes;
    for (std::size_t i = 0; i < set.size(); ++i) {
        if (i + 2 < set.size() && set[i + 1] == '-') {
            for (char c = set[i]; c <= set[i + 2]; ++c) {
                bytes += c;
            }
            i += 2;
        } else {
            bytes += set[i];
        }
    }
    return bytes.find(byte) != std::string::npos;
}

/// A matcher of names that tries everything.
bool naiveName(const std::string& pattern, const std::string& name) {
    if (pattern.empty()) {
        return name.empty();
    }
    const std::string rest = pattern.substr(1);
    if (pattern[0] == '{') {
        const std::size_t close = pattern.find('}');
        for (std::size_t at = 0; at < close;) {
            const std::size_t end = std::min(pattern.find(',', at + 1), close);
            if (naiveName(pattern.substr(at + 1, end - at - 1) + pattern.substr(close + 1), name)) {
                return true;
            }
            at = end;
        }
        return false;
    }
    if (pattern[0] == '*') {
        return naiveName(rest, name) || (!name.empty() && naiveName(pattern, name.substr(1)));
    }
    if (name.empty()) {
        return false;
    }
    if (pattern[0] == '[') {
        const std::size_t close = pattern.find(']', 2);
        const bool isInverted = pattern[1] == '!';
        const std::size_t first = isInverted ? 2 : 1;
        return naiveSet(pattern.substr(first, close - first), name[0]) != isInverted &&
               naiveName(pattern.substr(close + 1), name.substr(1));
    }
    return (pattern[0] == '?' || pattern[0] == name[0]) && naiveName(rest, name.substr(1));
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

Texts namesOf(const std::string& path) {
    Texts names;
    for (const char byte : path) {
        if (byte == '/') {
            names.emplace_back();
        } else {
            names.back() += byte;
        }
    }
    return names;
}

std::string joined(const Texts& names) {
    std::string path;
    for (const std::string& name : names) {
        path += "/" + name;
    }
    return path;
}

/// The last pattern that matches decides.
bool naiveList(const Texts& patterns, const std::string& path) {
    bool matches = false;
    for (const std::string& pattern : patterns) {
        const bool takesAway = pattern[0] == '!';
        if (naivePath(namesOf(pattern.substr(takesAway ? 1 : 0)), 0, namesOf(path), 0)) {
            matches = !takesAway;
        }
    }
    return matches;
}

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
    Texts names(std::size_t most, const Texts& pieces, bool spans) {
        Texts names(1 + upTo(most));
        for (std::string& name : names) {
            if (spans && upTo(3) == 0) {
                name = "**";
                continue;
            }
            for (std::size_t i = 1 + upTo(3); i > 0; --i) {
                name += oneOf(pieces);
            }
        }
        return names;
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
            matches[path] = !path.empty() && naiveList(patterns, path);
            matchesAtOrAbove[path] =
                matches[path] || (!path.empty() && matchesAtOrAbove[parentOf(path)]);
        }
        for (auto path = universe.rbegin(); *path != ""; ++path) {
            matchesBelow[parentOf(*path)] |= matches[*path] || matchesBelow[*path];
        }
    }

    std::map<std::string, bool> matches;
    std::map<std::string, bool> matchesAtOrAbove;
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
        const Texts pattern =
            dice.names(4, {"a", "b", "*", "?", "[!a]", "[a-b]", "{a,b}", "{,a*}"}, true);
        const Texts path = dice.names(5, {"a", "b"}, false);
        const bool expected = naivePath(pattern, 0, path, 0);
        ASSERT_EQ(expected, PathPatterns({joined(pattern)}).matches(joined(path)))
            << joined(pattern) << " " << joined(path);
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
            ASSERT_EQ(expected.matchesAtOrAbove[path], patterns.matchesAtOrAbove(path))
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
            if (namesOf(path).size() <= 2) {
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
    EXPECT_TRUE(patterns.matchesAtOrAbove(path));
    EXPECT_TRUE(patterns.canMatchBelow(path));
    EXPECT_FALSE(patterns.matches(path + "/b"));
}

TEST(NearestName, IsOneThatWasProbablyMeant) {
    const std::vector<std::string_view> names = {
        "breadth", "depth", "at", "attributes", "failEvery"};
    struct Row {
        std::string written;
        const char* nearest;
    };
    for (const Row& row : {Row{"bredth", "breadth"},
                           {"Breadth", "breadth"},
                           {"dept", "depth"},
                           {"a", "at"},
                           {"attribute", "attributes"},
                           {"failevery", "failEvery"},
                           {"colour", ""},
                           {"", ""},
                           {std::string(100000, 'a'), ""}}) {
        EXPECT_EQ(row.nearest, nearestName(row.written, names)) << row.written.substr(0, 20);
    }
    EXPECT_EQ("", nearestName("a", {}));
}
