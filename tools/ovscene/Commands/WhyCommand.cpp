// SPDX-License-Identifier: Apache-2.0
#include "Commands/Commands.h"
#include "ExitStatus.h"
#include "Print/AttributeJson.h"
#include "Print/AttributeText.h"
#include "Print/JsonOutput.h"
#include "Print/NumberText.h"
#include "Print/SafeText.h"
#include "Print/Table.h"
#include "Print/Terminal.h"
#include "Scene/AttributeHistory.h"
#include "Scene/SceneErrors.h"
#include "Scene/SceneFile.h"
#include "Scene/SceneWalk.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace ovscene {
namespace {

constexpr std::size_t kLongestName = 60;
constexpr std::size_t kFewestValueColumns = 24;

struct WhyOptions {
    std::string file;
    std::string path;
    std::string name;
    bool json = false;
};

/// What is to be explained, and its history.
struct Explanation {
    std::string file;
    std::string path;
    std::string type;
    std::string name;
    Attribute attribute;
    AttributeHistory history;
    SceneErrors errors;  ///< The location's own.
};

/// "op 3 of 7 in scenes/room.optree.json".
std::string placeText(const HistoryStep& step) {
    if (step.number == 0) {
        return "in " + step.file;
    }
    return "op " + numberText(step.number) + " of " + numberText(step.count) + " in " + step.file;
}

/// "lamps (setAttributes, op 3 of 7 in scenes/room.optree.json)".
std::string describe(const HistoryStep& step) {
    return (step.name.empty() ? "an op" : step.name) + " (" + step.type + ", " + placeText(step) +
           ")";
}

[[noreturn]] void throwNoAttribute(const Explanation& what) {
    const std::string op = describe(what.history.steps.front());
    const bool isAny = what.name.empty();
    const std::string reason = what.history.isDropped
                                   ? op + " does not hand on what is there before it"
                                   : std::string("no op gives ") + (isAny ? "any" : "it") +
                                         ", and the location comes from " + op;
    throw CommandError(ExitStatus::NotFound,
                       what.file + ": no " + (isAny ? "attributes" : "attribute " + what.name) +
                           " at " + what.path + "; " + reason);
}

Explanation explain(const SceneFile& file, const WhyOptions& options) {
    if (file.content != AttributeContent::OpTree) {
        throw CommandError(ExitStatus::InputMalformed,
                           file.name + ": holds no op tree, and only what ops make has a history");
    }
    const FoundLocation found = findLocation(topLocation(file), options.path, file.name);
    VisitLimit limit(file.name);
    const SceneWalk walk(found.location, found.parentPath, limit);
    Explanation what;
    what.file = file.name;
    what.path = walk.path();
    what.type = found.location->type();
    what.name = options.name;
    what.attribute = found.location->attribute(options.name);
    what.history = attributeHistory(file, *found.location, what.path, options.name);
    if (!what.history.hasAttribute) {
        throwNoAttribute(what);
    }
    what.errors.look(walk);
    return what;
}

void printHeading(const Explanation& what, Output& output) {
    const Palette palette;
    const std::string path = safeText(what.path);
    const std::string name =
        what.name.empty() ? "(all attributes)" : safeText(what.name, kLongestName);
    const std::size_t taken = displayWidth(path + "  " + name + " = ");
    const std::size_t columns = outputColumns();
    const std::size_t room = columns - std::min(columns, taken);
    const std::string values = valuesText(what.attribute, std::max(kFewestValueColumns, room));
    output.write(palette.bold(path) + "  " + name + " = " +
                 (values.empty() ? kindText(what.attribute) : values) + "\n");
}

std::vector<Cell> cellsOf(const HistoryStep& step, const std::string& path) {
    const Palette palette;
    const std::string type = safeText(step.type, kLongestName);
    return {Cell::left(step.gives ? "  given by" : "  passed through"),
            Cell::left(step.name.empty() ? "(no name)" : safeText(step.name, kLongestName)),
            {palette.type(type), displayWidth(type)},
            Cell::left(safeText(placeText(step))),
            Cell::left(step.path == path ? "" : "at " + safeText(step.path))};
}

void print(const Explanation& what, Output& output) {
    printHeading(what, output);
    Table table(output);
    for (const HistoryStep& step : what.history.steps) {
        table.add(cellsOf(step, what.path));
    }
    table.finish();
}

void writeStep(JsonWriter& json, const HistoryStep& step) {
    json.StartObject();
    writeJsonKey(json, "gives");
    json.Bool(step.gives);
    writeJsonMember(json, "name", step.name);
    writeJsonMember(json, "type", step.type);
    writeJsonMember(json, "number", step.number);
    writeJsonMember(json, "count", step.count);
    writeJsonMember(json, "file", step.file);
    writeJsonMember(json, "path", step.path);
    json.EndObject();
}

void printJson(const Explanation& what, Output& output) {
    JsonStream stream(output);
    JsonWriter json(stream);
    VisitLimit limit(what.file);
    json.StartObject();
    writeJsonMember(json, "file", what.file);
    writeJsonMember(json, "path", what.path);
    writeJsonMember(json, "type", what.type);
    writeJsonMember(json, "name", what.name);
    writeJsonKey(json, "attribute");
    writeAttributeJson(json, what.attribute, limit);
    writeJsonKey(json, "steps");
    json.StartArray();
    for (const HistoryStep& step : what.history.steps) {
        writeStep(json, step);
    }
    json.EndArray();
    json.EndObject();
    output.put('\n');
}

void runWhy(const WhyOptions& options, Output& output) {
    const Explanation what = explain(readSceneFile(options.file), options);
    options.json ? printJson(what, output) : print(what, output);
    what.errors.tell(what.file, output);
}

}  // namespace

void addWhyCommand(CLI::App& app, Output& output) {
    const auto options = std::make_shared<WhyOptions>();
    CLI::App* command = app.add_subcommand("why", "Tells which op of an op tree gave an attribute");
    command->add_option("FILE", options->file, "An op tree, binary or text")->required();
    command->add_option("PATH", options->path, "A location of the scene")->required();
    command->add_option("ATTR",
                        options->name,
                        "The attribute; dots step into groups. Without one,\n"
                        "the group of all attributes");
    command->add_flag("--json", options->json, "Print as one JSON document")->option_text(" ");
    command->footer(
        "Examples:\n"
        "  ovscene why room.optree.json /root/room/world/table/lamp1 light.exposure\n"
        "  ovscene why shot.optree /root/set --json");
    command->callback([options, &output] { runWhy(*options, output); });
}

}  // namespace ovscene
