// SPDX-License-Identifier: Apache-2.0
#include "Commands/Commands.h"
#include "Commands/NumberOptions.h"
#include "Commands/OutputsJson.h"
#include "Commands/OutputsText.h"

#include <memory>
#include <string>

namespace ovscene {
namespace {

struct OutputsOptions {
    std::string file;
    std::string frame = "1";
    std::string prefix;
    std::string suffix = "exr";
    bool json = false;
};

void runOutputs(const OutputsOptions& options, Output& output) {
    const float frame = numbersOf(options.frame).front();
    const OutputsView view =
        outputsView(readSceneFile(options.file), {options.prefix, options.suffix, frame});
    if (options.json) {
        printOutputsJson(view, output);
    } else {
        printOutputs(view, output);
    }
    view.errors.tell(view.file, output);
}

}  // namespace

void addOutputsCommand(CLI::App& app, Output& output) {
    const auto options = std::make_shared<OutputsOptions>();
    CLI::App* command =
        app.add_subcommand("outputs", "Tells where the outputs of a render are written to");
    command->add_option("FILE", options->file, "A static scene or an op tree, binary or text")
        ->required();
    command
        ->add_option("--frame",
                     options->frame,
                     "The frame, for runs of # in a location; 1 by\n"
                     "default")
        ->check(isNumber())
        ->option_text("N");
    command
        ->add_option("--prefix",
                     options->prefix,
                     "What the names of files in the temporary folder\n"
                     "begin with; nothing by default")
        ->option_text("TEXT");
    command
        ->add_option("--suffix", options->suffix, "What they end in, behind a dot; exr by default")
        ->option_text("TEXT");
    command->add_flag("--json", options->json, "Print as one JSON document")->option_text(" ");
    command->footer(
        "Examples:\n"
        "  ovscene outputs shot.optree --frame 12\n"
        "  ovscene outputs shot.optree --prefix shot_ --suffix tif --json");
    command->callback([options, &output] { runOutputs(*options, output); });
}

}  // namespace ovscene
