// SPDX-License-Identifier: Apache-2.0
#include "Print/TextTable.h"

#include "Print/Terminal.h"
#include "Print/WrappedText.h"

#include <algorithm>

namespace ovscene {

void TextTable::add(std::vector<Cell> cells, std::string text) {
    widths_.resize(std::max(widths_.size(), cells.size()));
    for (std::size_t i = 0; i < cells.size(); ++i) {
        widths_[i] = std::max(widths_[i], cells[i].width);
    }
    lines_.emplace_back(std::move(cells), std::move(text));
}

void TextTable::finish() {
    Table table(output_);
    for (auto& [cells, text] : lines_) {
        const std::vector<Cell> none(cells.size());
        for (const std::string& line : wrappedLines(text, textColumns())) {
            cells.push_back(Cell::left(line));
            table.add(std::exchange(cells, none));
        }
    }
    table.finish();
}

std::size_t TextTable::textColumns() const {
    constexpr std::size_t kGap = 2;
    constexpr std::size_t kFewest = 30;
    std::size_t taken = 0;
    for (const std::size_t width : widths_) {
        taken += width + kGap;
    }
    const std::size_t columns = outputColumns();
    return std::max(kFewest, columns - std::min(columns, taken));
}

void printParagraph(std::string_view text, Output& output) {
    for (const std::string& line : wrappedLines(text, outputColumns())) {
        output.write(line + "\n");
    }
}

}  // namespace ovscene
