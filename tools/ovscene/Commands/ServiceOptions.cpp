// SPDX-License-Identifier: Apache-2.0
#include "Commands/ServiceOptions.h"

#include <SylvarPlatform/Configuration.h>
#include <SylvarPlatform/Logging.h>

#include "Commands/OptionChecks.h"
#include "ExitStatus.h"
#include "Scene/HostTables.h"
#include "Scene/PluginFolders.h"

#include <filesystem>
#include <system_error>
#include <unistd.h>

namespace ovscene {
namespace {

using OvLoggingHost::LogLevel;
using Sylvar3::OvConfiguration::v1::Config;

struct LevelName {
    const char* name;
    LogLevel level;
};
constexpr LevelName kLevels[] = {{"debug", LogLevel::Debug},
                                 {"info", LogLevel::Info},
                                 {"warn", LogLevel::Warn},
                                 {"error", LogLevel::Error},
                                 {"off", LogLevel::Off}};

const LevelName* findLevel(const std::string& name) {
    for (const LevelName& level : kLevels) {
        if (name == level.name) {
            return &level;
        }
    }
    return nullptr;
}

/// LEVEL or NAME=LEVEL in its parts; a logger's name may have a "=" in it, a level has none.
struct LevelArgument {
    explicit LevelArgument(const std::string& argument) {
        const std::size_t equals = argument.rfind('=');
        hasLogger = equals != std::string::npos;
        logger = hasLogger ? argument.substr(0, equals) : "";
        level = findLevel(hasLogger ? argument.substr(equals + 1) : argument);
    }

    bool hasLogger;
    std::string logger;
    const LevelName* level;  ///< Null when there is none of that name.
};

std::string checkLevel(const std::string& text) {
    const LevelArgument argument(text);
    return argument.level && (!argument.hasLogger || !argument.logger.empty())
               ? ""
               : "'" + text +
                     "' is no LEVEL or NAME=LEVEL; levels are debug, info, warn, error and off";
}

std::string checkFolder(const std::string& text) {
    std::error_code unknown;
    return std::filesystem::is_directory(text, unknown) ? "" : "'" + text + "' is no folder";
}

std::string checkFile(const std::string& text) {
    return text.empty() ? "'' is no file" : "";
}

void loadSettings(const std::string& file) {
    const std::string fault = Config()->loadFile(file);
    if (fault.empty()) {
        return;
    }
    std::error_code unknown;
    const bool readable =
        ::access(file.c_str(), R_OK) == 0 && !std::filesystem::is_directory(file, unknown);
    throw CommandError(readable ? ExitStatus::InputMalformed : ExitStatus::InputUnreadable,
                       "--config: " + fault);
}

void setLevels(const std::vector<std::string>& arguments, bool ofLoggers) {
    for (const std::string& text : arguments) {
        const LevelArgument argument(text);
        if (argument.hasLogger == ofLoggers) {
            OvLoggingHost::setLevel(argument.logger, argument.level->level);
        }
    }
}

}  // namespace

void addServiceOptions(CLI::App& app, ServiceOptions& options) {
    constexpr char kGroup[] = "Options of every command";
    app.add_option("--config", options.config, "A JSON file of settings")
        ->check(CLI::Validator(checkFile, ""))
        ->option_text("FILE")
        ->group(kGroup);
    addRepeatable(app, "--set", options.settings, "A setting; may be repeated", isSetting())
        ->option_text("NAME=VALUE")
        ->group(kGroup);
    addRepeatable(app,
                  "--log",
                  options.levels,
                  "What messages to show, of all loggers or of one:\n"
                  "debug, info (default), warn, error or off; may be\n"
                  "repeated",
                  CLI::Validator(checkLevel, ""))
        ->option_text("[NAME=]LEVEL")
        ->group(kGroup);
    addRepeatable(app,
                  "--plugins",
                  options.plugins,
                  "A folder of plug-ins; may be repeated",
                  CLI::Validator(checkFolder, ""))
        ->option_text("DIR")
        ->group(kGroup);
}

void setServices(const ServiceOptions& options) {
    if (!options.config.empty()) {
        loadSettings(options.config);
    }
    for (const std::string& setting : options.settings) {
        Config()->setFromArgument(setting);
    }
    setLevels(options.levels, false);  // sets all, and so it comes first
    setLevels(options.levels, true);
    setFirstPluginFolders(options.plugins);
    publishHostTables();
}

}  // namespace ovscene
