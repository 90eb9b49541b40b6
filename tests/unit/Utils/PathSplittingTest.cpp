// SPDX-License-Identifier: Apache-2.0
// How the path of a picture divides into directory, stem and extension: as a path of
// Boost.Filesystem version 3 does, other than the one of today's standard library; but a path of
// slashes alone has no file name.
#include "TilePathTest.h"

namespace {

/// A path, that of its tile, and that by a template which shows stem and extension apart.
struct Row {
    std::string path;
    std::string tile;
    std::string parts;
};

class PathSplitting : public ovtest::TilePathTest {
protected:
    static void expectDivided(const std::vector<Row>& rows) {
        for (const Row& row : rows) {
            EXPECT_EQ(row.tile, tilePath(row.path)) << row.path;
            EXPECT_EQ(row.tile, byTemplate("@DEFAULT@", row.path)) << row.path;
            EXPECT_EQ(row.parts, byTemplate("@COLUMN@@ROW@[@STEM@][@EXT@]", row.path)) << row.path;
        }
    }
};

}  // namespace

TEST_F(PathSplitting, DividesNamesAtTheirLastDot) {
    expectDivided({
        {"", "tile_1_2.", "12[][]"},
        {"x", "tile_1_2.x", "12[x][]"},
        {"x.", "tile_1_2.x.", "12[x][.]"},
        {"x.y", "tile_1_2.x.y", "12[x][.y]"},
        {"x.y.z", "tile_1_2.x.y.z", "12[x.y][.z]"},
        {"x..", "tile_1_2.x..", "12[x.][.]"},
        {"x..y", "tile_1_2.x..y", "12[x.][.y]"},
        {".hidden.exr", "tile_1_2..hidden.exr", "12[.hidden][.exr]"},
        {"..x", "tile_1_2...x", "12[.][.x]"},
        {"...", "tile_1_2....", "12[..][.]"},
        {".", "tile_1_2..", "12[.][]"},
        {"..", "tile_1_2...", "12[..][]"},
        {" ", "tile_1_2. ", "12[ ][]"},
        {" x .exr ", "tile_1_2. x .exr ", "12[ x ][.exr ]"},
        {"x\ty\n.exr", "tile_1_2.x\ty\n.exr", "12[x\ty\n][.exr]"},
        {"x\\y.exr", "tile_1_2.x\\y.exr", "12[x\\y][.exr]"},
        {"c:x.exr", "tile_1_2.c:x.exr", "12[c:x][.exr]"},
        {"\xC3\xA9.exr", "tile_1_2.\xC3\xA9.exr", "12[\xC3\xA9][.exr]"},
        {"\xFF.\xFE", "tile_1_2.\xFF.\xFE", "12[\xFF][.\xFE]"},
    });
}

TEST_F(PathSplitting, HasAnExtensionAndNoStemWhereTheOnlyDotComesFirst) {
    expectDivided({
        {".hidden", "tile_1_2..hidden", "12[][.hidden]"},
        {"dir.d/.x", "dir.d/tile_1_2..x", "dir.d/12[][.x]"},
    });
}

TEST_F(PathSplitting, LeavesTheDirectoryAndPutsTheTileInFrontOfTheFileName) {
    expectDivided({
        {"a/x.exr", "a/tile_1_2.x.exr", "a/12[x][.exr]"},
        {"/x.exr", "/tile_1_2.x.exr", "/12[x][.exr]"},
        {"/a/x.exr", "/a/tile_1_2.x.exr", "/a/12[x][.exr]"},
        {"./x.exr", "./tile_1_2.x.exr", "./12[x][.exr]"},
        {"../x.exr", "../tile_1_2.x.exr", "../12[x][.exr]"},
        {"/a/../x.exr", "/a/../tile_1_2.x.exr", "/a/../12[x][.exr]"},
        {"dir.d/x", "dir.d/tile_1_2.x", "dir.d/12[x][]"},
        {"a/.hidden.exr", "a/tile_1_2..hidden.exr", "a/12[.hidden][.exr]"},
        {"a/..", "a/tile_1_2...", "a/12[..][]"},
        {"a/.", "a/tile_1_2..", "a/12[.][]"},
        {"/..", "/tile_1_2...", "/12[..][]"},
        {"/.", "/tile_1_2..", "/12[.][]"},
        {"a b/ c d.exr", "a b/tile_1_2. c d.exr", "a b/12[ c d][.exr]"},
        {" /x", " /tile_1_2.x", " /12[x][]"},
        {"a/ ", "a/tile_1_2. ", "a/12[ ][]"},
        {"\xFF/\xFE.exr", "\xFF/tile_1_2.\xFE.exr", "\xFF/12[\xFE][.exr]"},
        {"~/x.exr", "~/tile_1_2.x.exr", "~/12[x][.exr]"},
    });
}

TEST_F(PathSplitting, HasADotForTheFileNameOfADirectoryAlone) {
    expectDivided({
        {"a/", "a/tile_1_2..", "a/12[.][]"},
        {"/a/", "/a/tile_1_2..", "/a/12[.][]"},
        {"/a/b.exr/", "/a/b.exr/tile_1_2..", "/a/b.exr/12[.][]"},
        {"./", "./tile_1_2..", "./12[.][]"},
        {"../", "../tile_1_2..", "../12[.][]"},
        {"a/./", "a/./tile_1_2..", "a/./12[.][]"},
        {"a//", "a/tile_1_2..", "a/12[.][]"},
        {"///a///", "///a/tile_1_2..", "///a/12[.][]"},
    });
}

TEST_F(PathSplitting, LosesSlashesInFrontOfTheFileNameThatAreTooMany) {
    expectDivided({
        {"a//b.exr", "a/tile_1_2.b.exr", "a/12[b][.exr]"},
        {"a///b.exr", "a/tile_1_2.b.exr", "a/12[b][.exr]"},
        {"a//b//c.exr", "a//b/tile_1_2.c.exr", "a//b/12[c][.exr]"},
        {"///b.exr", "/tile_1_2.b.exr", "/12[b][.exr]"},
        {"///a/b.exr", "///a/tile_1_2.b.exr", "///a/12[b][.exr]"},
        {"///a///b.exr", "///a/tile_1_2.b.exr", "///a/12[b][.exr]"},
    });
}

TEST_F(PathSplitting, TakesTwoSlashesAndANameForOneNameThatOfAHost) {
    expectDivided({
        {"//net/x.exr", "//net/tile_1_2.x.exr", "//net/12[x][.exr]"},
        {"//net//x.exr", "//net/tile_1_2.x.exr", "//net/12[x][.exr]"},
        {"//net/a/x.exr", "//net/a/tile_1_2.x.exr", "//net/a/12[x][.exr]"},
        {"//net/a/", "//net/a/tile_1_2..", "//net/a/12[.][]"},
        {"//net", "tile_1_2.//net", "12[//net][]"},
        {"//net.exr", "tile_1_2.//net.exr", "12[//net][.exr]"},
        {"//a", "tile_1_2.//a", "12[//a][]"},
        {"//..", "tile_1_2.//..", "12[//.][.]"},
        {"//net/", "//net/tile_1_2./", "//net/12[/][]"},
    });
}

TEST_F(PathSplitting, HasNoFileNameForSlashesAlone) {
    expectDivided({
        {"/", "/tile_1_2.", "/12[][]"},
        {"//", "//tile_1_2.", "//12[][]"},
        {"///", "///tile_1_2.", "///12[][]"},
        {"////", "////tile_1_2.", "////12[][]"},
        {"/////////", "/////////tile_1_2.", "/////////12[][]"},
    });
}

TEST_F(PathSplitting, TakesPathsOfAnyLength) {
    const std::string name(100'000, 'n');
    const std::string directory = "/" + std::string(100'000, 'd');
    EXPECT_EQ(directory + "/tile_1_2." + name + ".exr", tilePath(directory + "/" + name + ".exr"));
    const std::string slashes(100'000, '/');
    EXPECT_EQ(slashes + "tile_1_2.", tilePath(slashes));
}
