// SPDX-License-Identifier: Apache-2.0
#include "Print/Table.h"

#include <algorithm>
#include <utility>

namespace ovscene {
namespace {

constexpr std::size_t kBlockLines = 1000;
constexpr std::size_t kWidestColumn = 60;
constexpr std::size_t kGap = 2;

std::vector<std::size_t> columnWidths(const std::vector<std::vector<Cell>>& lines) {
    std::vector<std::size_t> widths;
    for (const auto& line : lines) {
        widths.resize(std::max(widths.size(), line.size()));
        for (std::size_t i = 0; i < line.size(); ++i) {
            widths[i] = std::max(widths[i], std::min(line[i].width, kWidestColumn));
        }
    }
    return widths;
}

std::size_t cellsInUse(const std::vector<Cell>& line) {
    std::size_t count = line.size();
    while (count > 0 && line[count - 1].text.empty()) {
        --count;
    }
    return count;
}

}  // namespace

void Table::add(std::vector<Cell> line) {
    block_.push_back(std::move(line));
    if (block_.size() >= kBlockLines) {
        finish();
    }
}

void Table::finish() {
    const std::vector<std::size_t> widths = columnWidths(block_);
    for (const auto& line : block_) {
        writeLine(line, widths);
    }
    block_.clear();
}

void Table::writeLine(const std::vector<Cell>& line, const std::vector<std::size_t>& widths) {
    const std::size_t count = cellsInUse(line);
    for (std::size_t i = 0; i < count; ++i) {
        const Cell& cell = line[i];
        const std::string padding(widths[i] > cell.width ? widths[i] - cell.width : 0, ' ');
        const bool last = i + 1 == count;
        output_.write(cell.right ? padding + cell.text : cell.text);
        output_.write(last || cell.right ? "" : padding);
        output_.write(last ? "" : std::string(kGap, ' '));
    }
    output_.put('\n');
}

}  // namespace ovscene
