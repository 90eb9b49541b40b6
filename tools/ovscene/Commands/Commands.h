// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Print/Output.h"

#include <CLI/CLI.hpp>

/// The commands of the program: each adds itself, with its options, its help and what it does.
/// What a command does throws a `CommandError` on failure. `output` outlives the application.
namespace ovscene {

void addImportCommand(CLI::App& app, Output& output);
void addTreeCommand(CLI::App& app, Output& output);
void addAttrsCommand(CLI::App& app, Output& output);
void addArgsCommand(CLI::App& app, Output& output);
void addCameraCommand(CLI::App& app, Output& output);
void addMaterialCommand(CLI::App& app, Output& output);
void addOutputsCommand(CLI::App& app, Output& output);
void addTileCommand(CLI::App& app, Output& output);
void addStatsCommand(CLI::App& app, Output& output);
void addWalkCommand(CLI::App& app, Output& output);
void addRenderCommand(CLI::App& app, Output& output);
void addConvertCommand(CLI::App& app, Output& output);
void addWhyCommand(CLI::App& app, Output& output);
void addOpsCommand(CLI::App& app, Output& output);
void addPluginsCommand(CLI::App& app, Output& output);

}  // namespace ovscene
