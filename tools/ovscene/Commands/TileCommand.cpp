// SPDX-License-Identifier: Apache-2.0
#include "Commands/Commands.h"
#include "Commands/NumberOptions.h"
#include "Print/SafeText.h"
#include "Scene/RenderOutputs.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace ovscene {
namespace {

struct TileOptions {
    std::string path;
    int column = 0;
    int row = 0;
    std::optional<int> columns;
    std::optional<int> rows;
};

void runTile(const TileOptions& options, Output& output) {
    std::vector<int> tile = {options.column, options.row};
    if (options.columns && options.rows) {
        tile.insert(tile.end(), {*options.columns, *options.rows});
    }
    output.write(safeText(pathOfTile(tile, options.path)) + "\n");
}

}  // namespace

void addTileCommand(CLI::App& app, Output& output) {
    const auto options = std::make_shared<TileOptions>();
    CLI::App* command = app.add_subcommand("tile", "Tells the path of one tile of a picture");
    command->add_option("PATH", options->path, "The path of the whole picture")->required();
    const auto addInt = [command](const char* name, auto& value, const char* help) {
        return command->add_option(name, value, help)->check(isInt())->option_text(" ");
    };
    addInt("COL", options->column, "The tile's column")->required();
    addInt("ROW", options->row, "The tile's row")->required();
    CLI::Option* columns = addInt("COLS", options->columns, "How many columns of tiles there are");
    CLI::Option* rows = addInt("ROWS", options->rows, "How many rows; taken with COLS alone");
    columns->needs(rows);
    command->footer(
        "The setting VARLIN_TILE_FILENAME is a template for the name, of the tokens\n"
        "@DEFAULT@, @COLUMN@, @ROW@, @COLUMNS@, @ROWS@, @STEM@ and @EXT@.\n\n"
        "Examples:\n"
        "  ovscene tile beauty.0001.exr 1 2\n"
        "  ovscene tile beauty.0001.exr 1 2 4 3 \\\n"
        "      --set VARLIN_TILE_FILENAME=@STEM@.@COLUMN@of@COLUMNS@.@ROW@of@ROWS@@EXT@");
    command->callback([options, &output] { runTile(*options, output); });
}

}  // namespace ovscene
