// SPDX-License-Identifier: Apache-2.0
#include "Commands/Commands.h"
#include "Commands/PluginsJson.h"
#include "Commands/PluginsText.h"

#include <memory>

namespace ovscene {
namespace {

struct PluginsOptions {
    bool explain = false;
    bool json = false;
};

void runPlugins(const PluginsOptions& options, Output& output) {
    const PluginsView view = pluginsView(options.explain);
    if (options.json) {
        printPluginsJson(view, output);
    } else {
        printPlugins(view, output);
    }
}

}  // namespace

void addPluginsCommand(CLI::App& app, Output& output) {
    const auto options = std::make_shared<PluginsOptions>();
    CLI::App* command =
        app.add_subcommand("plugins", "Lists the plug-ins, and what is rejected and why");
    command
        ->add_flag("--explain",
                   options->explain,
                   "Ask each for its table too: what it gives, what\n"
                   "its API is for, and in which folders it is looked\n"
                   "for")
        ->option_text(" ");
    command->add_flag("--json", options->json, "Print as one JSON document")->option_text(" ");
    command->footer(
        "Examples:\n"
        "  ovscene plugins\n"
        "  ovscene plugins --explain --plugins build/renderers");
    command->callback([options, &output] { runPlugins(*options, output); });
}

}  // namespace ovscene
