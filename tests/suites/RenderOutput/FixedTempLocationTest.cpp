// SPDX-License-Identifier: Apache-2.0
#include "suites/RenderOutput/TempLocation.h"
#include "support/EnvironmentVariable.h"

#include <limits>
#include <locale>

using ovtest::EnvironmentVariable;
using ovtest::StaticScene;

namespace {

using FixedTempLocation = ovtest::TempLocationTest;

struct Grouped : std::numpunct<char> {
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

/// The locale that new streams have.
class StreamLocale {
public:
    explicit StreamLocale(const std::locale& locale) : old_(std::locale::global(locale)) {}
    ~StreamLocale() { std::locale::global(old_); }
    StreamLocale(const StreamLocale&) = delete;
    StreamLocale& operator=(const StreamLocale&) = delete;

private:
    std::locale old_;
};

}  // namespace

TEST_F(FixedTempLocation, WithoutARunIsTheSameAtEveryFrame) {
    for (const float frame : {0.0F, 7.9F, -5.0F, 123456.0F}) {
        EXPECT_EQ("/tmp/out.exr", fixed("/tmp/out.exr", frame)) << frame;
    }
}

TEST_F(FixedTempLocation, TakesNoNoticeOfDirectoryIdPrefixAndSuffix) {
    StaticScene scene;
    scene.set("/root", kFixed, "out.#").set("/root", kDirectory, "/tmp").set("/root", kId, "17");
    EXPECT_EQ("out.3", tempLocation(at(scene), "pre_", "exr", 3.0F));
    EXPECT_EQ("out.3", tempLocation(at(scene), nullptr, nullptr, 3.0F));
}

TEST_F(FixedTempLocation, HasTheFrameInPlaceOfARun) {
    struct Row {
        const char* location;
        float frame;
        const char* path;
    };
    for (const Row& row : {Row{"/tmp/out.###.exr", 7.9F, "/tmp/out.007.exr"},
                           Row{"/tmp/out.#.exr", 7.9F, "/tmp/out.7.exr"},
                           Row{"out.##.exr", 123.0F, "out.123.exr"},
                           Row{"out.###.exr", 123.0F, "out.123.exr"},
                           Row{"####", 0.0F, "0000"},
                           Row{"#", 0.0F, "0"},
                           Row{"a#", 1.0F, "a1"},
                           Row{"#a", 1.0F, "1a"},
                           Row{"# #", 1.0F, "1 1"},
                           Row{"a\n##\nb", 1.0F, "a\n01\nb"},
                           Row{"\xFF#\xC3",
                               1.0F,
                               "\xFF"
                               "1\xC3"}}) {
        EXPECT_EQ(row.path, fixed(row.location, row.frame)) << row.location << " " << row.frame;
    }
}

TEST_F(FixedTempLocation, HasTheFrameInEachOfTwoRunsInItsOwnWidth) {
    EXPECT_EQ("/shots/0012/out.12.exr", fixed("/shots/####/out.#.exr", 12.0F));
    EXPECT_EQ("012_12_0012", fixed("###_##_####", 12.0F));
}

TEST_F(FixedTempLocation, HasTheFrameTruncatedAndNotRounded) {
    EXPECT_EQ("out.7", fixed("out.#", 7.0F));
    EXPECT_EQ("out.7", fixed("out.#", 7.99F));
    EXPECT_EQ("out.0", fixed("out.#", 0.99F));
    EXPECT_EQ("out.0", fixed("out.#", -0.99F));
    EXPECT_EQ("out.-7", fixed("out.#", -7.99F));
}

// An oddity: the zeros stand in front of the sign.
TEST_F(FixedTempLocation, FillsANegativeFrameInFrontOfItsSign) {
    EXPECT_EQ("00-5", fixed("####", -5.0F));
    EXPECT_EQ("-5", fixed("##", -5.0F));
    EXPECT_EQ("-5", fixed("#", -5.0F));
    EXPECT_EQ("0-12", fixed("####", -12.9F));
}

TEST_F(FixedTempLocation, ClampsFramesThatNoIntegerHolds) {
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    struct Row {
        float frame;
        const char* path;
    };
    for (const Row& row : {Row{1e20F, "02147483647"},
                           Row{kInfinity, "02147483647"},
                           Row{2147483648.0F, "02147483647"},
                           Row{2147483520.0F, "02147483520"},
                           Row{-1e20F, "-2147483648"},
                           Row{-kInfinity, "-2147483648"},
                           Row{-2147483648.0F, "-2147483648"},
                           Row{std::numeric_limits<float>::quiet_NaN(), "00000000000"}}) {
        EXPECT_EQ(row.path, fixed("###########", row.frame)) << row.frame;
    }
}

TEST_F(FixedTempLocation, HasNumbersWithoutSeparatorsInEveryLocale) {
    const StreamLocale grouped(std::locale(std::locale(), new Grouped));
    EXPECT_EQ("out.1234567", fixed("out.#", 1234567.0F));
}

TEST_F(FixedTempLocation, MayHaveARunOfAnyLength) {
    constexpr std::size_t kWidth = 300000;
    EXPECT_EQ(std::string(kWidth - 1, '0') + "7/" + std::string(kWidth, 'x'),
              fixed(std::string(kWidth, '#') + "/" + std::string(kWidth, 'x'), 7.0F));
}

TEST_F(FixedTempLocation, BeginsWithTheHomeOfTheUserForATilde) {
    const EnvironmentVariable home("HOME", "/home/me");
    EXPECT_EQ("/home/me/x.2.exr", fixed("~/x.#.exr", 2.0F));
    EXPECT_EQ("/tmp/~/x", fixed("/tmp/~/x"));
}

TEST_F(FixedTempLocation, KeepsTheTildeWhenThereIsNoHome) {
    const EnvironmentVariable home("HOME", std::nullopt);
    EXPECT_EQ("~/x.2.exr", fixed("~/x.#.exr", 2.0F));
}

TEST_F(FixedTempLocation, HasTheVariablesOfTheProcessFilledIn) {
    const EnvironmentVariable job("OV_TEST_JOB", "/jobs/one");
    const EnvironmentVariable gone("OV_TEST_GONE", std::nullopt);
    EXPECT_EQ("/jobs/one/x.2/jobs/one", fixed("$OV_TEST_JOB/x.#${OV_TEST_JOB}", 2.0F));
    EXPECT_EQ("$OV_TEST_GONE/x.2", fixed("$OV_TEST_GONE/x.#", 2.0F));
}

TEST_F(FixedTempLocation, HasTheHomeFilledInBeforeTheVariablesAndTheFrameLast) {
    const EnvironmentVariable home("HOME", "/home/$OV_TEST_USER");
    const EnvironmentVariable user("OV_TEST_USER", "me##");
    const EnvironmentVariable tilde("OV_TEST_TILDE", "~");
    EXPECT_EQ("/home/me02/x", fixed("~/x", 2.0F));
    EXPECT_EQ("~/x", fixed("$OV_TEST_TILDE/x", 2.0F));
}

TEST_F(FixedTempLocation, MayBeEmptyOnceItIsExpanded) {
    const EnvironmentVariable empty("OV_TEST_EMPTY", "");
    EXPECT_EQ("", fixed("$OV_TEST_EMPTY"));
}
