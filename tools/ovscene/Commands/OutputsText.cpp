// SPDX-License-Identifier: Apache-2.0
#include "Commands/OutputsText.h"

#include "Print/NumberText.h"
#include "Print/SafeText.h"
#include "Print/Table.h"

#include <cstdint>

namespace ovscene {
namespace {

constexpr std::size_t kColumnAndRow = 2;
constexpr std::size_t kWithCounts = 4;

std::string pictureText(const Picture& picture) {
    return safeText(picture.name) + "  " + numberText(picture.width) + " x " +
           numberText(picture.height);
}

/// "column 1, row 2", "column 1 of 4, row 2 of 3", or that there is none.
std::string tileText(const std::optional<std::vector<int>>& setting) {
    if (!setting) {
        return "none";
    }
    const std::vector<int>& tile = *setting;
    if (tile.size() < kColumnAndRow) {
        return "none; it takes a column and a row, and the scene has " +
               counted(static_cast<std::int64_t>(tile.size()), "number");
    }
    const bool isCountKnown = tile.size() >= kWithCounts;
    const auto part = [&](const char* name, std::size_t place) {
        return name + numberText(tile[place]) +
               (isCountKnown ? " of " + numberText(tile[place + kColumnAndRow]) : "");
    };
    return part("column ", 0) + ", " + part("row ", 1);
}

void printRender(const OutputsView& view, Output& output) {
    Table table(output);
    const auto add = [&](const char* name, const std::string& text) {
        table.add({Cell::left(name), Cell::left(text)});
    };
    add("camera", safeText(view.cameraPath));
    add("resolution", pictureText(view.picture));
    add("frame", numberText(view.frame));
    add("tile", tileText(view.tile));
    table.finish();
}

}  // namespace

void printOutputs(const OutputsView& view, Output& output) {
    printRender(view, output);
    output.put('\n');
    if (view.outputs.empty()) {
        output.write("no outputs: " + view.whyNone + "\n");
        return;
    }
    Table table(output);
    table.add({Cell::left("output"),
               Cell::left("temporary location"),
               Cell::left(view.tile ? "tile" : "")});
    for (const OutputPlace& place : view.outputs) {
        table.add({Cell::left(safeText(place.name)),
                   Cell::left(safeText(place.tempLocation)),
                   Cell::left(safeText(place.tilePath))});
    }
    table.finish();
}

}  // namespace ovscene
