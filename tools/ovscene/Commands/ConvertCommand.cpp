// SPDX-License-Identifier: Apache-2.0
#include "Commands/Commands.h"
#include "ExitStatus.h"
#include "Print/NumberText.h"
#include "Print/SafeText.h"
#include "Scene/SceneFile.h"

#include <memory>
#include <string>

namespace ovscene {
namespace {

struct ConvertOptions {
    std::string input;
    std::string output;
};

void requireSameContent(const SceneFile& written, const SceneFile& original) {
    if (written.content != original.content ||
        written.attribute.getHash() != original.attribute.getHash()) {
        throw CommandError(ExitStatus::OutputUnwritable,
                           written.name + ": what was written reads back as something else");
    }
}

void runConvert(const ConvertOptions& options, Output& output) {
    const SceneFile original = readSceneFile(options.input);
    writeSceneFile(original.attribute, original.content, options.output);
    if (!isOrdinaryFile(options.output)) {
        return;
    }
    const SceneFile written = readSceneFile(options.output);
    requireSameContent(written, original);
    output.write(safeText(written.name) + ": " + contentName(written.content) + ", " +
                 formName(written.form) + ", " + counted(written.bytes, "byte") +
                 "; reads back to the same hash " + written.attribute.getHash().str() + "\n");
}

}  // namespace

void addConvertCommand(CLI::App& app, Output& output) {
    const auto options = std::make_shared<ConvertOptions>();
    CLI::App* command =
        app.add_subcommand("convert", "Turns the binary form into the text form, or back");
    command->add_option("IN", options->input, "A file, binary or text")->required();
    command
        ->add_option("OUT",
                     options->output,
                     "The file to write: text when its name ends in .json,\n"
                     "binary otherwise")
        ->required();
    command->footer(
        "The content stays the same: op tree, static scene or attribute. What was written is\n"
        "read back, and its hash compared, unless OUT is a pipe or a device.\n\n"
        "Examples:\n"
        "  ovscene convert chair.optree chair.optree.json\n"
        "  ovscene convert chair.optree.json chair.optree");
    command->callback([options, &output] { runConvert(*options, output); });
}

}  // namespace ovscene
