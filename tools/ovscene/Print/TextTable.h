// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Print/Table.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ovscene {

/// Lines whose last cell is a text of any origin, wrapped into what the other cells leave of the
/// terminal.
class TextTable {
public:
    explicit TextTable(Output& output) : output_(output) {}

    void add(std::vector<Cell> cells, std::string text);

    /// Writes all lines; called once at the end.
    void finish();

private:
    std::size_t textColumns() const;

    Output& output_;
    std::vector<std::size_t> widths_;
    std::vector<std::pair<std::vector<Cell>, std::string>> lines_;
};

/// One paragraph of any origin, wrapped into the terminal.
void printParagraph(std::string_view text, Output& output);

}  // namespace ovscene
