// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Print/Output.h"
#include "Print/SafeText.h"

#include <cstddef>
#include <string>
#include <vector>

namespace ovscene {

/// One cell of a line: its text, and how many columns it takes without its colours.
struct Cell {
    std::string text;
    std::size_t width = 0;
    bool right = false;  ///< Stands at the right edge of its column.

    static Cell left(const std::string& text) { return {text, displayWidth(text), false}; }
    static Cell number(const std::string& text) { return {text, displayWidth(text), true}; }
};

/// Lines of cells, aligned below each other. They are written in blocks of many lines, each
/// aligned by itself, so that a list of any length takes little memory.
class Table {
public:
    explicit Table(Output& output) : output_(output) {}

    void add(std::vector<Cell> line);

    /// Writes the last block; called once at the end.
    void finish();

private:
    void writeLine(const std::vector<Cell>& line, const std::vector<std::size_t>& widths);

    Output& output_;
    std::vector<std::vector<Cell>> block_;
};

}  // namespace ovscene
