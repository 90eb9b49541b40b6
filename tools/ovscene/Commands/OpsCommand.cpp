// SPDX-License-Identifier: Apache-2.0
#include "Commands/Commands.h"
#include "Commands/NearName.h"
#include "ExitStatus.h"
#include "Print/JsonOutput.h"
#include "Print/NumberText.h"
#include "Print/SafeText.h"
#include "Print/Terminal.h"
#include "Print/TextTable.h"
#include "Print/WrappedText.h"
#include "Scene/OpTypes.h"
#include "Scene/PluginFolders.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace ovscene {
namespace {

using OpTypeList = std::vector<OpTypeDescription>;

struct OpsOptions {
    std::string name;
    bool json = false;
};

/// "none", "1", "1 or 2", "2 to 4", "1 or more", "any number".
std::string inputsText(const OpTypeDescription& type) {
    const std::string fewest = numberText(type.fewestInputs);
    if (type.mostInputs == OpTypeDescription::kAnyNumber) {
        return type.fewestInputs == 0 ? "any number" : fewest + " or more";
    }
    if (type.mostInputs == type.fewestInputs) {
        return type.mostInputs == 0 ? "none" : fewest;
    }
    const bool areNeighbours = type.mostInputs == type.fewestInputs + 1;
    return fewest + (areNeighbours ? " or " : " to ") + numberText(type.mostInputs);
}

void printList(const OpTypeList& types, Output& output) {
    const Palette palette;
    TextTable table(output);
    table.add({Cell::left("op type"), Cell::left("inputs")}, "about");
    for (const OpTypeDescription& type : types) {
        const std::string name = safeText(type.name);
        table.add({{palette.type(name), displayWidth(name)}, Cell::left(inputsText(type))},
                  type.about);
    }
    table.finish();
    output.write("\n" + counted(static_cast<std::int64_t>(types.size()), "op type") + "\n");
}

void printArguments(const OpTypeDescription& type, Output& output) {
    TextTable table(output);
    table.add({Cell::left("argument"), Cell::left("kind"), Cell::left("default")}, "about");
    for (const OpArgument& argument : type.arguments) {
        table.add({Cell::left(safeText(argument.name)),
                   Cell::left(safeText(argument.kind)),
                   Cell::left(argument.isNeeded ? "(needed)" : safeText(argument.defaultText))},
                  argument.about);
    }
    table.finish();
}

void printOpType(const OpTypeDescription& type, Output& output) {
    output.write(Palette().bold(safeText(type.name)) + "\n\n");
    printParagraph(type.about, output);
    output.write("\ninputs: " + inputsText(type) + "\n");
    if (!type.arguments.empty()) {
        output.put('\n');
        printArguments(type, output);
    }
    for (const std::string_view paragraph : paragraphsOf(type.remarks)) {
        output.put('\n');
        printParagraph(paragraph, output);
    }
}

void writeArgument(JsonWriter& json, const OpArgument& argument) {
    json.StartObject();
    writeJsonMember(json, "name", argument.name);
    writeJsonMember(json, "kind", argument.kind);
    writeJsonKey(json, "isNeeded");
    json.Bool(argument.isNeeded);
    writeJsonMember(json, "default", argument.defaultText);
    writeJsonMember(json, "about", argument.about);
    json.EndObject();
}

void printJson(const OpTypeList& types, Output& output) {
    JsonStream stream(output);
    JsonWriter json(stream);
    json.StartObject();
    writeJsonKey(json, "opTypes");
    json.StartArray();
    for (const OpTypeDescription& type : types) {
        json.StartObject();
        writeJsonMember(json, "type", type.name);
        writeJsonMember(json, "about", type.about);
        writeJsonKey(json, "remarks");
        json.StartArray();
        for (const std::string_view paragraph : paragraphsOf(type.remarks)) {
            writeJson(json, paragraph);
        }
        json.EndArray();
        writeJsonMember(json, "fewestInputs", type.fewestInputs);
        writeJsonMember(json, "mostInputs", type.mostInputs);
        writeJsonKey(json, "arguments");
        json.StartArray();
        for (const OpArgument& argument : type.arguments) {
            writeArgument(json, argument);
        }
        json.EndArray();
        json.EndObject();
    }
    json.EndArray();
    json.EndObject();
    output.put('\n');
}

[[noreturn]] void throwNoSuchType(const OpTypeList& types, const std::string& name) {
    std::vector<std::string> names;
    for (const OpTypeDescription& type : types) {
        names.push_back(type.name);
    }
    throw CommandError(ExitStatus::NotFound, unknownName("op type", name, names));
}

/// The type of that name alone, when one was given.
OpTypeList chosen(OpTypeList types, const std::string& name) {
    if (name.empty()) {
        return types;
    }
    const auto found = std::find_if(
        types.begin(), types.end(), [&](const auto& type) { return type.name == name; });
    if (found == types.end()) {
        throwNoSuchType(types, name);
    }
    return {std::move(*found)};
}

void runOps(const OpsOptions& options, Output& output) {
    searchPlugins();
    std::optional<OpTypeList> all = opTypes();
    logUnusablePlugins();
    if (!all) {
        throw CommandError(ExitStatus::PluginUnusable, "the runtime does not tell its op types");
    }
    const OpTypeList types = chosen(std::move(*all), options.name);
    if (options.json) {
        printJson(types, output);
    } else if (options.name.empty()) {
        printList(types, output);
    } else {
        printOpType(types.front(), output);
    }
}

}  // namespace

void addOpsCommand(CLI::App& app, Output& output) {
    const auto options = std::make_shared<OpsOptions>();
    CLI::App* command = app.add_subcommand("ops", "Lists the op types, and explains each");
    command->add_option("NAME", options->name, "An op type; all of them without one");
    command->add_flag("--json", options->json, "Print as one JSON document")->option_text(" ");
    command->footer(
        "Examples:\n"
        "  ovscene ops\n"
        "  ovscene ops setAttributes");
    command->callback([options, &output] { runOps(*options, output); });
}

}  // namespace ovscene
