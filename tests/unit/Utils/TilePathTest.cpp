// SPDX-License-Identifier: Apache-2.0
#include "TilePathTest.h"

#include "support/Threads.h"

#include <limits>
#include <locale>

namespace {

using TilePath = ovtest::TilePathTest;

struct GroupedDigits : std::numpunct<char> {
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

TEST_F(TilePath, HasColumnAndRowInFrontOfTheName) {
    EXPECT_EQ("/a/b/tile_1_2.beauty.0001.exr", tilePath("/a/b/beauty.0001.exr", {1, 2}));
}

TEST_F(TilePath, WithoutADirectoryIsTheNameAlone) {
    EXPECT_EQ("tile_1_2.beauty.exr", tilePath("beauty.exr"));
}

TEST_F(TilePath, WithoutAnExtensionEndsInTheStem) {
    EXPECT_EQ("/a/tile_1_2.beauty", tilePath("/a/beauty"));
}

TEST_F(TilePath, ReadsNothingBeyondColumnAndRowWithoutATemplate) {
    for (const Tile& tile : {Tile{1, 2},
                             Tile{1, 2, 3},
                             Tile{1, 2, 3, 4},
                             Tile{1, 2, 3, 4, 5},
                             Tile{1, 2, 0, -7, 5, 6, 7, 8}}) {
        EXPECT_EQ("/a/tile_1_2.beauty.exr", tilePath("/a/beauty.exr", tile)) << tile.size();
    }
}

TEST_F(TilePath, WritesEveryIntInPlainDecimal) {
    using Limits = std::numeric_limits<int>;
    EXPECT_EQ("tile_0_-1.x", tilePath("x", {0, -1}));
    EXPECT_EQ("tile_-2147483648_2147483647.x", tilePath("x", {Limits::min(), Limits::max()}));
}

TEST_F(TilePath, WritesNumbersAlikeWhenNewStreamsGroupDigits) {
    const StreamLocale foreign(std::locale(std::locale::classic(), new GroupedDigits));
    EXPECT_EQ("tile_1234567_-1000.x", tilePath("x", {1234567, -1000}));
    EXPECT_EQ(
        "1234567 1000 2000000 3000 tile_1234567_1000.x",
        byTemplate(
            "@COLUMN@ @ROW@ @COLUMNS@ @ROWS@ @DEFAULT@", "x", {1234567, 1000, 2000000, 3000}));
}

TEST_F(TilePath, KeepsTokensThatStandInThePathWhenThereIsNoTemplate) {
    EXPECT_EQ("/@ROW@/tile_1_2.@COLUMN@@DEFAULT@.@ROWS@",
              tilePath("/@ROW@/@COLUMN@@DEFAULT@.@ROWS@"));
}

TEST_F(TilePath, IsThePathUnchangedWithoutColumnAndRowAndToldAsAnErrorOnce) {
    for (const Tile& tile : {Tile{}, Tile{1}}) {
        for (const std::string path : {"/a/b/beauty.0001.exr", "/a//b/", "/", "//", "x", ""}) {
            EXPECT_EQ(path, tilePath(path, tile));
            EXPECT_EQ(missesPlace(), heard());
        }
    }
}

TEST_F(TilePath, IsThePathUnchangedWithoutColumnAndRowWhateverTheTemplate) {
    for (const std::string value :
         {"", "@DEFAULT@", "/tiles/@DEFAULT@", "bad", "@ROWS@@DEFAULT@"}) {
        for (const Tile& tile : {Tile{}, Tile{1}}) {
            EXPECT_EQ("/a/beauty.exr", byTemplate(value, "/a/beauty.exr", tile));
            EXPECT_EQ(missesPlace(), heard()) << value;
        }
    }
}

TEST_F(TilePath, AsksNothingOfTheFileSystem) {
    EXPECT_EQ("/tile_1_2.usr", tilePath("/usr"));
    EXPECT_EQ("/not/there/tile_1_2.x.exr", tilePath("/not/there/x.exr"));
    EXPECT_EQ("/usr/../usr/tile_1_2.bin", tilePath("/usr/../usr/bin"));
}

TEST_F(TilePath, MaySayNothingWhenItsLevelIsOff) {
    using OvLoggingHost::LogLevel;
    OvLoggingHost::setLevel("RenderOutputUtils", LogLevel::Error);
    EXPECT_EQ("/a/tile_1_2.x", byTemplate("bad", "/a/x"));
    EXPECT_EQ("/a/UnknownRows tile_1_2.x", byTemplate("@ROWS@ @DEFAULT@", "/a/x"));
    EXPECT_EQ(std::vector<std::string>{}, heard());
    EXPECT_EQ("/a/x", tilePath("/a/x", {1}));
    EXPECT_EQ(missesPlace(), heard());

    OvLoggingHost::setLevel("RenderOutputUtils", LogLevel::Off);
    EXPECT_EQ("/a/x", tilePath("/a/x", {1}));
    EXPECT_EQ(std::vector<std::string>{}, heard());
}

TEST_F(TilePath, IsTheSameOnEightThreadsAtOnce) {
    setTemplate("@COLUMN@ of @COLUMNS@ @ROW@ of @ROWS@ @STEM@@EXT@");
    ovtest::onThreads(8, [](int row) {
        const std::string number = std::to_string(row);
        const std::string expected = "/a/7 of 8 " + number + " of 9 beauty.exr";
        for (int round = 0; round < 100; ++round) {
            ASSERT_EQ(expected, tilePath("/a/beauty.exr", {7, row, 8, 9}));
        }
    });
}
