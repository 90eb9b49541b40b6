// SPDX-License-Identifier: Apache-2.0
#include "Commands/Commands.h"
#include "Commands/OptionChecks.h"
#include "Print/JsonOutput.h"
#include "Print/NumberText.h"
#include "Print/SafeText.h"
#include "Print/Table.h"
#include "Print/Terminal.h"
#include "Scene/SceneErrors.h"
#include "Scene/SceneFile.h"
#include "Scene/SceneWalk.h"

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace ovscene {
namespace {

constexpr std::size_t kLevelsDrawn = 24;
constexpr std::size_t kDeepestPath = 256;
constexpr std::size_t kLongestName = 80;
constexpr std::size_t kLongestType = 32;
constexpr std::size_t kLongestError = 120;

struct TreeOptions {
    std::string file;
    std::string path = "/root";
    std::int64_t depth = -1;
    bool json = false;
};

std::string branches(const SceneWalk& walk) {
    const std::size_t first = walk.depth() > kLevelsDrawn ? walk.depth() - kLevelsDrawn + 1 : 1;
    std::string lines;
    if (first > 1) {
        lines = "(+" + numberText(static_cast<std::int64_t>(first - 1)) + ") ";
    }
    for (std::size_t depth = first; depth <= walk.depth(); ++depth) {
        const bool own = depth == walk.depth();
        const bool last = walk.isLastSibling(depth);
        lines += own ? (last ? "└── " : "├── ") : (last ? "    " : "│   ");
    }
    return lines;
}

Cell locationCell(const SceneWalk& walk, const Palette& palette) {
    const std::string lines = branches(walk);
    const std::string name =
        walk.depth() == 0 ? safeText(walk.path()) : safeText(walk.location().name(), kLongestName);
    const bool inner = walk.location().childCount() > 0;
    return {palette.dim(lines) + (inner ? palette.bold(name) : name),
            displayWidth(lines) + displayWidth(name)};
}

Cell typeCell(const SceneLocation& location, const Palette& palette) {
    const std::string type = safeText(location.type(), kLongestType);
    return {palette.type(type), displayWidth(type)};
}

std::vector<Cell> treeLine(const SceneWalk& walk,
                           const std::string& error,
                           const Palette& palette) {
    const SceneLocation& location = walk.location();
    std::vector<Cell> line = {
        locationCell(walk, palette),
        typeCell(location, palette),
        Cell::number(numberText(location.childCount())),
        Cell::number(numberText(location.attributes().getNumberOfChildren()))};
    if (!error.empty()) {
        line.push_back(Cell::left("error: " + safeText(error, kLongestError)));
    }
    return line;
}

void printTree(SceneWalk walk, SceneErrors& errors, Output& output) {
    const Palette palette;
    Table table(output);
    table.add({Cell::left("location"),
               Cell::left("type"),
               Cell::number("children"),
               Cell::number("attributes")});
    std::int64_t count = 0;
    for (; !walk.atEnd(); walk.next(), ++count) {
        table.add(treeLine(walk, errors.look(walk), palette));
    }
    table.finish();
    output.write("\n" + counted(count, "location") + "\n");
}

void writeTreeLine(JsonWriter& json,
                   const SceneWalk& walk,
                   const std::string& error,
                   const std::vector<std::int64_t>& ids) {
    const SceneLocation& location = walk.location();
    json.StartObject();
    writeJsonMember(json, "id", ids.back());
    writeJsonKey(json, "parent");
    ids.size() > 1 ? json.Int64(ids[ids.size() - 2]) : json.Null();
    writeJsonMember(json, "depth", static_cast<std::int64_t>(walk.depth()));
    writeJsonMember(json, "name", location.name());
    if (walk.depth() <= kDeepestPath) {
        writeJsonMember(json, "path", walk.path());
    }
    writeJsonMember(json, "type", location.type());
    writeJsonMember(json, "children", location.childCount());
    writeJsonMember(json, "attributes", location.attributes().getNumberOfChildren());
    if (!error.empty()) {
        writeJsonMember(json, "errorMessage", error);
    }
    json.EndObject();
}

void printTreeJson(SceneWalk walk, SceneErrors& errors, Output& output) {
    JsonStream stream(output);
    JsonWriter json(stream);
    std::vector<std::int64_t> ids;  // of the location and of those above it
    for (std::int64_t id = 0; !walk.atEnd(); walk.next(), ++id) {
        ids.resize(walk.depth());
        ids.push_back(id);
        writeTreeLine(json, walk, errors.look(walk), ids);
        output.put('\n');
        json.Reset(stream);
    }
}

void runTree(const TreeOptions& options, Output& output) {
    const SceneFile file = readSceneFile(options.file);
    FoundLocation found = findLocation(topLocation(file), options.path, file.name);
    const std::size_t deepest =
        options.depth < 0 ? SceneWalk::kNoDepth : static_cast<std::size_t>(options.depth);
    VisitLimit limit(file.name);
    SceneWalk walk(std::move(found.location), std::move(found.parentPath), limit, deepest);
    SceneErrors errors;
    options.json ? printTreeJson(std::move(walk), errors, output)
                 : printTree(std::move(walk), errors, output);
    errors.tell(file.name, output);
}

}  // namespace

void addTreeCommand(CLI::App& app, Output& output) {
    const auto options = std::make_shared<TreeOptions>();
    CLI::App* command = app.add_subcommand("tree", "Shows the locations of a scene");
    command->add_option("FILE", options->file, "A static scene or an op tree, binary or text")
        ->required();
    command->add_option("PATH", options->path, "The location to start at")->capture_default_str();
    command->add_option("--depth", options->depth, "Levels to show below it; all by default")
        ->check(isCount())
        ->option_text("N");
    command->add_flag("--json", options->json, "One JSON object on each line, for each location");
    command->footer(
        "Examples:\n"
        "  ovscene tree chair.optree\n"
        "  ovscene tree chair.optree /root/chair --depth 2\n"
        "  ovscene tree chair.optree --json | grep '\"type\":\"mesh\"'");
    command->callback([options, &output] { runTree(*options, output); });
}

}  // namespace ovscene
