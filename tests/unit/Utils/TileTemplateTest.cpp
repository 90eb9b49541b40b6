// SPDX-License-Identifier: Apache-2.0
#include "TilePathTest.h"

#include <cstddef>

namespace {

using TileTemplate = ovtest::TilePathTest;

const std::string kPath = "/a/b/beauty.0001.exr";
const std::string kDefaultPath = "/a/b/tile_1_2.beauty.0001.exr";

/// The tokens in the order in which they are replaced, and what replaces them for the tile
/// 1, 2 of 3, 4 of the path above.
struct Token {
    std::string text;
    std::string value;
};
const Token kDefault = {"@DEFAULT@", "tile_1_2.beauty.0001.exr"};
const Token kColumns = {"@COLUMNS@", "3"};
const Token kColumn = {"@COLUMN@", "1"};
const Token kRows = {"@ROWS@", "4"};
const Token kRow = {"@ROW@", "2"};
const Token kStem = {"@STEM@", "beauty.0001"};
const Token kExt = {"@EXT@", ".exr"};
const std::vector<Token> kTokens = {kDefault, kColumns, kColumn, kRows, kRow, kStem, kExt};

/// A template that has some of the tokens, and what it should become.
struct Sample {
    std::string value;
    std::string result;
    std::vector<bool> has;

    bool isAcceptable() const {
        const auto at = [this](std::size_t token) { return bool{has[token]}; };
        return (at(2) && at(4) && at(5) && at(6)) || at(0);
    }
    bool wantsCounts() const { return has[1] || has[3]; }
};

/// Every set of the tokens as a template, with `between` before each of them.
std::vector<Sample> allSets(const std::vector<Token>& tokens, const std::string& between) {
    std::vector<Sample> all;
    for (unsigned set = 0; set < 1U << tokens.size(); ++set) {
        Sample sample;
        for (std::size_t i = 0; i < tokens.size(); ++i) {
            sample.has.push_back((set >> i & 1U) != 0);
            if (sample.has.back()) {
                sample.value += between + tokens[i].text;
                sample.result += between + tokens[i].value;
            }
        }
        all.push_back(sample);
    }
    return all;
}

std::vector<Token> withoutCounts() {
    std::vector<Token> tokens = kTokens;
    tokens[1].value = "UnknownColumns";
    tokens[3].value = "UnknownRows";
    return tokens;
}

}  // namespace

TEST_F(TileTemplate, IsUsedWhenItHasTheDefaultOrColumnRowStemAndExtension) {
    for (const std::string between : {"", "-", "/", "@", "x y"}) {
        for (const Sample& sample : allSets(kTokens, between)) {
            const std::string directory = between == "/" ? "" : "/a/b/";
            EXPECT_EQ(sample.isAcceptable() ? directory + sample.result : kDefaultPath,
                      byTemplate(sample.value, kPath, {1, 2, 3, 4}))
                << sample.value;
            const auto expected =
                sample.isAcceptable() ? std::vector<std::string>{} : missesTokens(sample.value);
            EXPECT_EQ(expected, heard());
        }
    }
}

TEST_F(TileTemplate, WithoutCountsIsUsedAllTheSameAndToldOfOnceWhenItAsksForThem) {
    for (const Tile& tile : {Tile{1, 2}, Tile{1, 2, 3}}) {
        for (const Sample& sample : allSets(withoutCounts(), "-")) {
            EXPECT_EQ(sample.isAcceptable() ? "/a/b/" + sample.result : kDefaultPath,
                      byTemplate(sample.value, kPath, tile))
                << sample.value;
            const auto silence = std::vector<std::string>{};
            const auto expected = !sample.isAcceptable() ? missesTokens(sample.value)
                                  : sample.wantsCounts() ? missesCounts(sample.value)
                                                         : silence;
            EXPECT_EQ(expected, heard());
        }
    }
}

TEST_F(TileTemplate, OfTheDefaultAloneIsAsGoodAsNone) {
    for (const std::string path : {kPath.c_str(), "x", "a/x", "/x.exr", "//net/x.exr", "/a/"}) {
        EXPECT_EQ(tilePath(path), byTemplate("@DEFAULT@", path)) << path;
    }
}

TEST_F(TileTemplate, MayHaveItsTokensSideBySide) {
    EXPECT_EQ("/a/b/12beauty.0001.exr", byTemplate("@COLUMN@@ROW@@STEM@@EXT@", kPath));
    EXPECT_EQ("/a/b/.exrbeauty.000121", byTemplate("@EXT@@STEM@@ROW@@COLUMN@", kPath));
}

TEST_F(TileTemplate, NeedsTheColumnItselfAndNotTheirNumber) {
    for (const Tile& tile : {Tile{1, 2}, Tile{1, 2, 3, 4}}) {
        const std::string columns = "@COLUMNS@@ROW@@STEM@@EXT@";
        EXPECT_EQ(kDefaultPath, byTemplate(columns, kPath, tile));
        EXPECT_EQ(missesTokens(columns), heard());
        const std::string rows = "@COLUMN@@ROWS@@STEM@@EXT@";
        EXPECT_EQ(kDefaultPath, byTemplate(rows, kPath, tile));
        EXPECT_EQ(missesTokens(rows), heard());
    }
}

TEST_F(TileTemplate, KnowsTokensByTheirCaseAndBothTheirSigns) {
    for (const std::string value : {"@default@",
                                    "@DEFAULT",
                                    "DEFAULT@",
                                    "DEFAULT",
                                    "@ DEFAULT @",
                                    "%DEFAULT%",
                                    "@Column@@Row@@Stem@@Ext@",
                                    "@COLUMN@ROW@STEM@EXT"}) {
        EXPECT_EQ(kDefaultPath, byTemplate(value, kPath)) << value;
        EXPECT_EQ(missesTokens(value), heard());
    }
}

TEST_F(TileTemplate, IsAcceptableByPlainSearchEvenWhereTokensShareTheirSigns) {
    EXPECT_EQ("/a/b/1ROWbeauty.0001EXT@", byTemplate("@COLUMN@ROW@STEM@EXT@", kPath));
}

TEST_F(TileTemplate, ThatIsSetToNothingIsToldOf) {
    EXPECT_EQ(kDefaultPath, byTemplate("", kPath));
    EXPECT_EQ(missesTokens(""), heard());
}

TEST_F(TileTemplate, IsToldAsItWasGiven) {
    for (const std::string value : {"%s %d \"quoted\"", "two\nlines", "\xFF", "a/b", " "}) {
        EXPECT_EQ(kDefaultPath, byTemplate(value, kPath));
        EXPECT_EQ(missesTokens(value), heard());
        EXPECT_EQ("/a/b/" + value + "UnknownRows" + kDefault.value,
                  byTemplate(value + "@ROWS@@DEFAULT@", kPath));
        EXPECT_EQ(missesCounts(value + "@ROWS@@DEFAULT@"), heard());
    }
}

TEST_F(TileTemplate, IsReadAnewForEveryPath) {
    setTemplate("one @DEFAULT@");
    EXPECT_EQ("one tile_1_2.x", tilePath("x"));
    setTemplate("two @DEFAULT@");
    EXPECT_EQ("two tile_1_2.x", tilePath("x"));
    unsetTemplate();
    EXPECT_EQ("tile_1_2.x", tilePath("x"));
}

TEST_F(TileTemplate, IsToldOfForEveryPath) {
    setTemplate("bad");
    for (int i = 0; i < 3; ++i) {
        tilePath("x");
        EXPECT_EQ(missesTokens("bad"), heard());
    }
}

TEST_F(TileTemplate, HasTheCountsFromFourElementsOn) {
    struct Row {
        Tile tile;
        std::string result;
        bool isKnown;
    };
    const Row rows[] = {
        {{1, 2}, "1 of UnknownColumns, 2 of UnknownRows, x.exr", false},
        {{1, 2, 3}, "1 of UnknownColumns, 2 of UnknownRows, x.exr", false},
        {{1, 2, 3, 4}, "1 of 3, 2 of 4, x.exr", true},
        {{1, 2, 3, 4, 5}, "1 of 3, 2 of 4, x.exr", true},
        {{1, 2, 3, 4, 5, 6, 7, 8, 9}, "1 of 3, 2 of 4, x.exr", true},
        {{-1, 0, -3, 0}, "-1 of -3, 0 of 0, x.exr", true},
        {{7, 8, 2147483647, -2147483647 - 1}, "7 of 2147483647, 8 of -2147483648, x.exr", true},
    };
    const std::string value = "@COLUMN@ of @COLUMNS@, @ROW@ of @ROWS@, @STEM@@EXT@";
    for (const Row& row : rows) {
        EXPECT_EQ(row.result, byTemplate(value, "x.exr", row.tile));
        EXPECT_EQ(row.isKnown ? std::vector<std::string>{} : missesCounts(value), heard());
    }
}

TEST_F(TileTemplate, WithoutCountsSaysSoInTheName) {
    EXPECT_EQ("/a/b/UnknownRows tile_1_2.beauty.0001.exr", byTemplate("@ROWS@ @DEFAULT@", kPath));
    EXPECT_EQ(missesCounts("@ROWS@ @DEFAULT@"), heard());
    EXPECT_EQ("/a/b/UnknownColumns tile_1_2.beauty.0001.exr",
              byTemplate("@COLUMNS@ @DEFAULT@", kPath));
    EXPECT_EQ(missesCounts("@COLUMNS@ @DEFAULT@"), heard());
}

TEST_F(TileTemplate, ThatDoesNotAskForCountsIsNotToldOfWhenTheFileNameBringsThemIn) {
    EXPECT_EQ("tile_1_2.xUnknownRows.UnknownColumns", byTemplate("@DEFAULT@", "x@ROWS@.@COLUMNS@"));
}

TEST_F(TileTemplate, HasEveryTokenReplacedWhereverItStands) {
    EXPECT_EQ("/a/b/1_1/2_2/x_x/.exr_.exr/3_3/4_4/tile_1_2.x.exr_tile_1_2.x.exr",
              byTemplate("@COLUMN@_@COLUMN@/@ROW@_@ROW@/@STEM@_@STEM@/@EXT@_@EXT@/"
                         "@COLUMNS@_@COLUMNS@/@ROWS@_@ROWS@/@DEFAULT@_@DEFAULT@",
                         "/a/b/x.exr",
                         {1, 2, 3, 4}));
}

TEST_F(TileTemplate, KeepsWhatIsNoToken) {
    EXPECT_EQ(
        "/a/b/@@ @X@ @ROW ROW@ # $HOME ~ \xFF %d x.exr12",
        byTemplate("@@ @X@ @ROW ROW@ # $HOME ~ \xFF %d @STEM@@EXT@@COLUMN@@ROW@", "/a/b/x.exr"));
}

TEST_F(TileTemplate, LosesTheExtensionWhereThePathHasNone) {
    EXPECT_EQ("/a/1_2.x", byTemplate("@COLUMN@_@ROW@.@STEM@@EXT@", "/a/x"));
    EXPECT_EQ("/a/[]1_2.x", byTemplate("[@EXT@]@COLUMN@_@ROW@.@STEM@", "/a/x"));
}

// Of two tokens that share a sign the one that is replaced first is there, and what is left of the
// other is no token.
TEST_F(TileTemplate, ReplacesItsTokensInTheirFixedOrder) {
    for (std::size_t left = 0; left < kTokens.size(); ++left) {
        for (std::size_t right = 0; right < kTokens.size(); ++right) {
            const std::string leftName = kTokens[left].text;
            const std::string rightName = kTokens[right].text;
            const std::string value = leftName + rightName.substr(1) + " @DEFAULT@";
            const std::string replaced =
                left <= right ? kTokens[left].value + rightName.substr(1)
                              : leftName.substr(0, leftName.size() - 1) + kTokens[right].value;
            EXPECT_EQ("/a/b/" + replaced + " " + kDefault.value,
                      byTemplate(value, kPath, {1, 2, 3, 4}))
                << value;
        }
    }
}

TEST_F(TileTemplate, ReplacesTokensThatCameInWithTheFileName) {
    struct Row {
        std::string value;
        std::string path;
        std::string result;
    };
    const std::string each = "@COLUMN@_@ROW@_@STEM@@EXT@";
    const Row rows[] = {
        // All others come after the default name.
        {"@DEFAULT@", "x@ROW@.exr", "tile_1_2.x2.exr"},
        {"@DEFAULT@", "@COLUMN@@COLUMNS@@ROWS@.exr", "tile_1_2.134.exr"},
        {"@DEFAULT@", "x.@STEM@", "tile_1_2.x.x"},
        {"@DEFAULT@", "x@EXT@.exr", "tile_1_2.x.exr.exr"},
        {"@DEFAULT@", "@STEM@.exr", "tile_1_2.@STEM@.exr"},
        {"@DEFAULT@", "@STEM@@ROW@.exr", "tile_1_2.@STEM@@ROW@2.exr"},
        // Those before the stem have had their turn, the extension has not.
        {each, "@ROW@.exr", "1_2_@ROW@.exr"},
        {each, "@DEFAULT@.exr", "1_2_@DEFAULT@.exr"},
        {each, "@EXT@.exr", "1_2_.exr.exr"},
        {each, "x.@STEM@", "1_2_x.@STEM@"},
        {each, "x.@EXT@", "1_2_x.@EXT@"},
        // What a token brings is not searched for that token again.
        {"@DEFAULT@", "@DEFAULT@.exr", "tile_1_2.@DEFAULT@.exr"},
        {each, "@STEM@.exr", "1_2_@STEM@.exr"},
        // A token may come together of two pieces.
        {"@DEFAULT@ROW@", "x.@", "tile_1_2.x.2"},
        {"@ROW@COLUMN@@ROW@@STEM@@EXT@", "x", "@ROW12x"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(row.result, byTemplate(row.value, row.path, {1, 2, 3, 4}))
            << row.value << " of " << row.path;
    }
}

TEST_F(TileTemplate, StandsInThePathsDirectoryUnlessItHasARootDirectory) {
    struct Row {
        std::string value;
        std::string path;
        std::string result;
    };
    const Row rows[] = {
        {"custom/@DEFAULT@", "/a/b/x.exr", "/a/b/custom/tile_1_2.x.exr"},
        {"custom/@DEFAULT@", "x.exr", "custom/tile_1_2.x.exr"},
        {"custom/@DEFAULT@", "/x.exr", "/custom/tile_1_2.x.exr"},
        {"custom/@DEFAULT@", "a/b/", "a/b/custom/tile_1_2.."},
        {"custom/@DEFAULT@", "//net/x.exr", "//net/custom/tile_1_2.x.exr"},
        {"custom/@DEFAULT@", "/", "/custom/tile_1_2."},
        {"custom/@DEFAULT@", "//", "//custom/tile_1_2."},
        {"./@DEFAULT@", "/a/x.exr", "/a/./tile_1_2.x.exr"},
        {"../@DEFAULT@", "/a/x.exr", "/a/../tile_1_2.x.exr"},
        {"@DEFAULT@/", "/a/x.exr", "/a/tile_1_2.x.exr/"},
        {"a//@DEFAULT@", "/a/x.exr", "/a/a//tile_1_2.x.exr"},
        {"~/@DEFAULT@", "/a/x.exr", "/a/~/tile_1_2.x.exr"},
        {"/tiles/@DEFAULT@", "/a/b/x.exr", "/tiles/tile_1_2.x.exr"},
        {"/tiles/@DEFAULT@", "x.exr", "/tiles/tile_1_2.x.exr"},
        {"/@DEFAULT@", "/a/b/x.exr", "/tile_1_2.x.exr"},
        {"/tiles/../@DEFAULT@", "/a/b/x.exr", "/tiles/../tile_1_2.x.exr"},
        {"///@DEFAULT@", "/a/b/x.exr", "///tile_1_2.x.exr"},
        {"//net/@DEFAULT@", "/a/b/x.exr", "//net/tile_1_2.x.exr"},
        {"//net/@DEFAULT@", "x.exr", "//net/tile_1_2.x.exr"},
        // Two slashes and a name are the name of a host, which is no directory.
        {"//@DEFAULT@", "/a/b/x.exr", "/a/b//tile_1_2.x.exr"},
        {"//@DEFAULT@", "x.exr", "//tile_1_2.x.exr"},
        {"//@ROW@@COLUMN@@STEM@@EXT@", "/a/b/", "/a/b//21."},
        {"//@DEFAULT@", "/", "///tile_1_2."},
        // The result counts: what comes in with the file name may be a host's name too.
        {"@STEM@@EXT@/@COLUMN@@ROW@", "//net", "//net/12"},
        {"@STEM@@EXT@@COLUMN@@ROW@", "//net", "//net12"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(row.result, byTemplate(row.value, row.path)) << row.value << " of " << row.path;
    }
}

TEST_F(TileTemplate, IsTheWholeResultForAPathWithoutADirectory) {
    EXPECT_EQ("x 1 2.exr", byTemplate("@STEM@ @COLUMN@ @ROW@@EXT@", "x.exr"));
    EXPECT_EQ("custom/tile_1_2.x.exr", byTemplate("custom/@DEFAULT@", "x.exr"));
}

TEST_F(TileTemplate, MayBeSetFromALineOfCommand) {
    auto* const config = Sylvar3::OvConfiguration::v1::Config();
    ASSERT_EQ("", config->setFromArgument("VARLIN_TILE_FILENAME=@DEFAULT@=@ROW@"));
    EXPECT_EQ("/a/tile_1_2.x=2", tilePath("/a/x"));
}
