// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/PyString.h>

#include "support/EnvironmentVariable.h"
#include "support/Threads.h"

#include <gtest/gtest.h>

#include <map>
#include <optional>

using namespace Sylvar3::internal::pystring_v1;
using os::path::expanduser;
using os::path::expandvars;
using ovtest::EnvironmentVariable;

namespace {

class FixedEnvironment final : public EnvironmentInterface {
public:
    bool get(const std::string& name, std::string& value) const override {
        const auto found = values_.find(name);
        if (found != values_.end()) {
            value = found->second;
        }
        return found != values_.end();
    }

private:
    const std::map<std::string, std::string> values_{{"A", "1"},
                                                     {"LONG_name9", "$A"},
                                                     {"EMPTY", ""},
                                                     {"a b", "spaced"},
                                                     {"${", "odd"}};
};

}  // namespace

// The rows are answers of Python 3.11.

TEST(ExpandVars, AnswersAsPython) {
    const FixedEnvironment environment;
    struct Row {
        std::string path;
        std::string expanded;
    };
    const Row rows[] = {
        Row{"", ""},
        Row{"plain", "plain"},
        Row{"$A", "1"},
        Row{"${A}", "1"},
        Row{"$A$A", "11"},
        Row{"x$A.y", "x1.y"},
        Row{"$AB", "$AB"},
        Row{"${A}B", "1B"},
        Row{"$UNKNOWN", "$UNKNOWN"},
        Row{"${UNKNOWN}/$A", "${UNKNOWN}/1"},
        Row{"$", "$"},
        Row{"$$A", "$1"},
        Row{"$$", "$$"},
        Row{"${", "${"},
        Row{"${A", "${A"},
        Row{"${}", "${}"},
        Row{"${a b}", "spaced"},
        Row{"$a b", "$a b"},
        Row{"${${}", "odd"},
        Row{"${${A}}", "${${A}}"},
        Row{"{$A}", "{1}"},
        Row{"$EMPTY|", "|"},
        Row{"$LONG_name9", "$A"},
        Row{"$LONG_name9x", "$LONG_name9x"},
        Row{"$A-${A}-$A", "1-1-1"},
        Row{"$\351", "$\351"},
        Row{"${\351}", "${\351}"},
        Row{"$A\351", "1\351"},
        Row{"$ A", "$ A"},
        Row{"$1", "$1"},
        Row{"100%$A", "100%1"},
        Row{"${A}}", "1}"},
        Row{"\\$A", "\\1"},
        Row{"~$A", "~1"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(row.expanded, expandvars(row.path, &environment)) << row.path;
    }
}

TEST(ExpandVars, ReadsTheProcessesOwnEnvironmentUnlessGivenOne) {
    const EnvironmentVariable set("OV_TEST_VARIABLE", "value");
    EXPECT_EQ("value/value", expandvars("$OV_TEST_VARIABLE/${OV_TEST_VARIABLE}"));
    EXPECT_EQ("value", expandvars("$OV_TEST_VARIABLE", nullptr));
}

TEST(ExpandVars, LeavesWhatNoVariableCanBeCalled) {
    const EnvironmentVariable set("OV_TEST_VARIABLE", "b=c");
    for (const std::string& path : {std::string("${OV_TEST_VARIABLE=b}"),
                                    std::string("${OV_TEST_VARIABLE\0}", 20),
                                    std::string("${}")}) {
        EXPECT_EQ(path, expandvars(path));
    }
}

TEST(ExpandVars, LeavesAnyNumberOfBracesThatNobodyCloses) {
    std::string path = "${}";
    for (int i = 0; i < 1'000'000; ++i) {
        path += "${";
    }
    EXPECT_TRUE(path == expandvars(path));
}

TEST(ExpandUser, AnswersAsPython) {
    struct Row {
        std::string home;
        std::string path;
        std::string expanded;
    };
    const Row rows[] = {
        Row{"/home/me", "", ""},
        Row{"/home/me", "plain", "plain"},
        Row{"/home/me", "/~", "/~"},
        Row{"/home/me", "x~", "x~"},
        Row{"/home/me", "~", "/home/me"},
        Row{"/home/me//", "~", "/home/me"},
        Row{"/", "~", "/"},
        Row{"", "~", "/"},
        Row{"rel", "~", "rel"},
        Row{"//", "~", "/"},
        Row{"/home/me", "~/", "/home/me/"},
        Row{"/home/me//", "~/", "/home/me/"},
        Row{"/", "~/", "/"},
        Row{"", "~/", "/"},
        Row{"rel", "~/", "rel/"},
        Row{"//", "~/", "/"},
        Row{"/home/me", "~/a", "/home/me/a"},
        Row{"/home/me//", "~/a", "/home/me/a"},
        Row{"/", "~/a", "/a"},
        Row{"", "~/a", "/a"},
        Row{"rel", "~/a", "rel/a"},
        Row{"//", "~/a", "/a"},
        Row{"/home/me", "~//a", "/home/me//a"},
        Row{"/home/me//", "~//a", "/home/me//a"},
        Row{"/", "~//a", "//a"},
        Row{"", "~//a", "//a"},
        Row{"rel", "~//a", "rel//a"},
        Row{"//", "~//a", "//a"},
        Row{"/home/me", "~/a/~", "/home/me/a/~"},
        Row{"/home/me//", "~/a/~", "/home/me/a/~"},
        Row{"/", "~/a/~", "/a/~"},
        Row{"", "~/a/~", "/a/~"},
        Row{"rel", "~/a/~", "rel/a/~"},
        Row{"//", "~/a/~", "/a/~"},
        Row{"/home/me", "~\\a", "~\\a"},
    };
    for (const Row& row : rows) {
        const EnvironmentVariable home("HOME", row.home);
        EXPECT_EQ(row.expanded, expanduser(row.path)) << row.path << " with HOME " << row.home;
    }
}

TEST(ExpandUser, LeavesTheTildeWhenHomeIsNotSet) {
    const EnvironmentVariable home("HOME", std::nullopt);
    EXPECT_EQ("~", expanduser("~"));
    EXPECT_EQ("~/a", expanduser("~/a"));
}

TEST(ExpandUser, LooksAUserUpInTheUserDatabase) {
    const EnvironmentVariable home("HOME", "/not/this/one");
    EXPECT_EQ("/root", expanduser("~root"));
    EXPECT_EQ("/root/a", expanduser("~root/a"));
}

TEST(ExpandUser, LeavesTheNameOfAnUnknownUser) {
    for (const std::string& path :
         {std::string("~nobody-is-called-this/a"), std::string("~root\0/a", 8)}) {
        EXPECT_EQ(path, expanduser(path));
    }
}

TEST(ExpandUser, AnswersEightThreadsAtOnce) {
    const EnvironmentVariable home("HOME", "/home/me");
    ovtest::onThreads(8, [](int) {
        for (int round = 0; round < 100; ++round) {
            ASSERT_EQ("/home/me/a", expanduser("~/a"));
            ASSERT_EQ("/root/a", expanduser("~root/a"));
        }
    });
}
