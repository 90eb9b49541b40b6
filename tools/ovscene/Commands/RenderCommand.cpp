// SPDX-License-Identifier: Apache-2.0
#include "Commands/Commands.h"
#include "Commands/OptionChecks.h"
#include "Commands/RendererPlugin.h"
#include "Commands/ThreadsOption.h"
#include "ExitStatus.h"
#include "Print/SafeText.h"
#include "Print/Table.h"
#include "Print/Terminal.h"
#include "Scene/PluginFolders.h"
#include "Scene/RenderJob.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace ovscene {
namespace {

struct RenderOptions {
    std::string file;
    std::string renderer;
    std::string outputFile;
    std::vector<std::string> settings;
    std::int64_t threads = 0;  ///< As threadCount takes it.
    bool list = false;
};

void printList(Output& output) {
    const Palette palette;
    Table table(output);
    table.add({Cell::left("renderer"), Cell::left("about")});
    for (const std::string& renderer : rendererNames()) {
        const std::string name = safeText(renderer);
        table.add({{palette.type(name), displayWidth(name)},
                   Cell::left(safeText(aboutRenderer(renderer)))});
    }
    table.finish();
}

void renderFile(const RenderOptions& options, Output& output) {
    const Renderer renderer = findRenderer(options.renderer);
    logUnusablePlugins();
    const RenderJob job{readSceneFile(options.file),
                        threadCount(options.threads),
                        options.outputFile,
                        options.settings};
    output.flush();
    const std::string failure = render(*renderer.table, job);
    flushForeignOutput();
    if (!failure.empty()) {
        throw CommandError(
            ExitStatus::RenderFailed,
            options.file + ": the renderer '" + renderer.name + "' failed: " + failure);
    }
}

void runRender(const RenderOptions& options, Output& output) {
    if (!options.list && options.file.empty()) {
        throw CLI::RequiredError("FILE");
    }
    searchPlugins();
    options.list ? printList(output) : renderFile(options, output);
}

}  // namespace

void addRenderCommand(CLI::App& app, Output& output) {
    const auto options = std::make_shared<RenderOptions>();
    CLI::App* command = app.add_subcommand("render", "Has a renderer render a scene");
    command->add_option("FILE", options->file, "A static scene or an op tree, binary or text");
    command
        ->add_option("--renderer",
                     options->renderer,
                     "The plug-in that renders; may be left out when\n"
                     "there is one alone")
        ->option_text("NAME");
    addThreads(*command, options->threads, "How many threads it uses; all cores by default");
    command
        ->add_option("--output", options->outputFile, "Where the result goes, as the renderer says")
        ->option_text("PATH");
    addRepeatable(*command,
                  "-o,--option",
                  options->settings,
                  "An option of the renderer's own; may be repeated",
                  isSetting())
        ->option_text("NAME=VALUE");
    command->add_flag("--list", options->list, "List the renderers that there are, and no more")
        ->option_text(" ");
    command->footer(
        "Renderers are plug-ins of the API \"SylvarRenderer\".\n\n"
        "Examples:\n"
        "  ovscene render --list --plugins build/renderers\n"
        "  ovscene render shot.optree --renderer CensusC\n"
        "  ovscene render shot.optree --renderer Rays --output shot.exr -o samples=64");
    command->callback([options, &output] { runRender(*options, output); });
}

}  // namespace ovscene
