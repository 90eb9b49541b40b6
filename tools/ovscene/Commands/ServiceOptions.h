// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

namespace ovscene {

/// What every command takes: settings, log levels and folders of plug-ins.
struct ServiceOptions {
    std::string config;                 ///< A file of settings; "" for none.
    std::vector<std::string> settings;  ///< NAME=VALUE each, over those of the file.
    std::vector<std::string> levels;    ///< LEVEL or NAME=LEVEL each.
    std::vector<std::string> plugins;   ///< Folders, searched before all others.
};

/// Adds the options to the program. `options` outlives the application.
void addServiceOptions(CLI::App& app, ServiceOptions& options);

/// Hands settings and levels to the services of the process, remembers the folders of plug-ins for
/// when some are needed, and publishes the tables that these may ask for. Throws a `CommandError`
/// when the file of settings is unreadable or malformed, and as `publishHostTables` does.
void setServices(const ServiceOptions& options);

}  // namespace ovscene
