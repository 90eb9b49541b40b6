// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/PyString.h>

#include "Commands/Commands.h"
#include "Commands/MaterialDot.h"
#include "Commands/MaterialJson.h"
#include "Commands/MaterialText.h"
#include "Commands/MaterialView.h"
#include "Print/AttributeLines.h"
#include "Print/LocationHeading.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace ovscene {
namespace {

struct MaterialOptions {
    std::string file;
    std::string path;
    std::optional<std::string> terminals;
    bool network = false;
    bool flat = false;
    bool dot = false;
    bool json = false;
};

std::vector<std::string> namesOf(const std::string& list) {
    std::vector<std::string> names;
    Sylvar3::internal::pystring_v1::split(list, names, ",", -1);
    return names;
}

std::string checkNames(const std::string& list) {
    const std::vector<std::string> names = namesOf(list);
    const bool hasEmpty = std::find(names.begin(), names.end(), "") != names.end();
    return names.empty() || hasEmpty ? "'" + list + "' is no list of names" : "";
}

void printFlat(const MaterialView& view, Output& output) {
    printLocationHeading(view.path, view.type, output);
    printAttributeLines(view.material.group, "material", view.file, output);
}

void print(const MaterialView& view, const MaterialOptions& options, Output& output) {
    if (options.dot) {
        printDot(view, output);
    } else if (options.json) {
        printMaterialJson(view, output);
    } else if (options.network) {
        printNetwork(view, output);
    } else if (options.flat) {
        printFlat(view, output);
    } else {
        printMaterial(view, output);
    }
}

void runMaterial(const MaterialOptions& options, Output& output) {
    std::optional<std::vector<std::string>> terminals;
    if (options.terminals) {
        terminals = namesOf(*options.terminals);
    }
    const MaterialView view = materialView(readSceneFile(options.file), options.path, terminals);
    if (options.network || options.dot) {
        requireNetwork(view);
    }
    print(view, options, output);
    view.errors.tell(view.file, output);
}

}  // namespace

void addMaterialCommand(CLI::App& app, Output& output) {
    const auto options = std::make_shared<MaterialOptions>();
    CLI::App* command =
        app.add_subcommand("material", "Shows what shades a location, and where it came from");
    command->add_option("FILE", options->file, "A static scene or an op tree, binary or text")
        ->required();
    command->add_option("PATH", options->path, "A location of the scene")->required();
    command
        ->add_option("--terminals",
                     options->terminals,
                     "The terminals to merge for, with commas between\n"
                     "them; by default all that the materials have")
        ->option_text("NAMES")
        ->check(CLI::Validator(checkNames, "names"));
    CLI::Option* network =
        command->add_flag("--network", options->network, "Print the nodes of the network")
            ->option_text(" ");
    CLI::Option* flat =
        command->add_flag("--flat", options->flat, "Print the merged material as an attribute")
            ->excludes(network)
            ->option_text(" ");
    CLI::Option* dot = command->add_flag("--dot", options->dot, "Print the network for Graphviz")
                           ->excludes(flat)
                           ->option_text(" ");
    command->add_flag("--json", options->json, "Print all of it as one JSON document")
        ->excludes(dot)
        ->option_text(" ");
    command->footer(
        "Examples:\n"
        "  ovscene material shot.optree /root/world/house/door\n"
        "  ovscene material shot.optree /root/world/house/door --network\n"
        "  ovscene material shot.optree /root/world/house/door --dot | dot -Tsvg -o door.svg");
    command->callback([options, &output] { runMaterial(*options, output); });
}

}  // namespace ovscene
