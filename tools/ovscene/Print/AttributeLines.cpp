// SPDX-License-Identifier: Apache-2.0
#include "Print/AttributeLines.h"

#include "Print/AttributeText.h"
#include "Print/NumberText.h"
#include "Print/SafeText.h"
#include "Print/Table.h"
#include "Print/Terminal.h"
#include "Scene/AttributeWalk.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace ovscene {
namespace {

constexpr std::size_t kLevelsIndented = 20;
constexpr std::size_t kLongestName = 60;
constexpr std::size_t kLinesMeasured = 1000;
constexpr std::size_t kFewestValueColumns = 24;

std::string indentation(std::size_t levels) {
    constexpr std::size_t kStep = 2;
    if (levels <= kLevelsIndented) {
        return std::string(levels * kStep, ' ');
    }
    const std::size_t more = levels - kLevelsIndented;
    return std::string(kLevelsIndented * kStep, ' ') + "(+" +
           numberText(static_cast<std::int64_t>(more)) + ") ";
}

/// The lines of a list of attributes: name, kind, samples and values. The values get the columns
/// that the lines measured leave.
class AttributeLines {
public:
    AttributeLines(Output& output, std::string topName, std::size_t firstDepth)
        : table_(output), topName_(std::move(topName)), firstDepth_(firstDepth) {
        const std::vector<Cell> heading = {
            Cell::left("name"), Cell::left("kind"), Cell::left("samples")};
        measure(heading);
        add(heading, "values");
    }

    void measure(const AttributeWalk& walk) { measure(cells(walk)); }

    void add(const AttributeWalk& walk) {
        const std::size_t columns = outputColumns();
        const std::size_t room = columns - std::min(columns, taken_);
        add(cells(walk), valuesText(walk.attribute(), std::max(kFewestValueColumns, room)));
    }

    void finish() { table_.finish(); }

private:
    std::vector<Cell> cells(const AttributeWalk& walk) const {
        const std::string name = walk.depth() == 0 ? topName_ : std::string(walk.name());
        const std::string kind = kindText(walk.attribute());
        return {Cell::left(indentation(walk.depth() - firstDepth_) + safeText(name, kLongestName)),
                {palette_.type(kind), kind.size()},
                Cell::left(samplesText(walk.attribute()))};
    }

    void measure(const std::vector<Cell>& line) {
        constexpr std::size_t kGap = 2;
        taken_ = 0;
        for (std::size_t i = 0; i < line.size(); ++i) {
            widths_[i] = std::max(widths_[i], line[i].width);
            taken_ += widths_[i] + kGap;
        }
    }

    void add(std::vector<Cell> line, const std::string& values) {
        line.push_back(Cell::left(values));
        table_.add(std::move(line));
    }

    Table table_;
    Palette palette_;
    std::string topName_;
    std::size_t firstDepth_;
    std::size_t widths_[3] = {};
    std::size_t taken_ = 0;
};

}  // namespace

void printAttributeLines(const Attribute& attribute,
                         const std::string& name,
                         const std::string& filename,
                         Output& output) {
    const bool list = name.empty() && attribute.getType() == OV_ATTRIBUTE_GROUP;
    if (!attribute) {
        output.write("no attributes\n");
        return;
    }
    AttributeLines lines(output, name.empty() ? "(attribute)" : name, list ? 1 : 0);
    VisitLimit limit(filename);
    AttributeWalk first(attribute, limit);
    if (list) {
        first.next();
    }
    std::size_t measured = 0;
    for (AttributeWalk walk = first; !walk.atEnd() && measured < kLinesMeasured; walk.next()) {
        lines.measure(walk);
        ++measured;
    }
    for (AttributeWalk walk = first; !walk.atEnd(); walk.next()) {
        lines.add(walk);
    }
    lines.finish();
}

}  // namespace ovscene
