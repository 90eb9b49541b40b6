// SPDX-License-Identifier: Apache-2.0
#include "Commands/CommandLine.h"

#include <SylvarPlatform/Version.h>

#include "Commands/Commands.h"
#include "Commands/ServiceOptions.h"
#include "ExitStatus.h"
#include "Print/Output.h"
#include "Print/Terminal.h"

#include <algorithm>
#include <csignal>
#include <cstddef>
#include <exception>
#include <new>
#include <string>
#include <utility>
#include <vector>

namespace ovscene {
namespace {

constexpr char kVersion[] = "ovscene " SYLVAR_PLATFORM_VERSION;

constexpr std::size_t kHelpColumn = 26;

constexpr char kFooter[] =
    "'ovscene COMMAND --help' tells more about a command.\n\n"
    "Exit statuses:\n"
    "  0  success\n"
    "  1  unexpected failure\n"
    "  2  wrong usage\n"
    "  3  an input file is missing or unreadable\n"
    "  4  an input file is not understood\n"
    "  5  no such location, attribute, op type, camera, resolution\n"
    "     or material\n"
    "  6  the output cannot be written\n"
    "  7  a plug-in is missing or cannot be used\n"
    "  8  an asset cannot be imported\n"
    "  9  a renderer failed\n\n"
    "Examples:\n"
    "  ovscene import chair.glb chair.optree\n"
    "  ovscene tree chair.optree";

constexpr char kCommandFooter[] = "\n\n'ovscene --help' tells the options of every command.";

int fail(ExitStatus status, const std::string& message) {
    tellUser(message);
    return static_cast<int>(status);
}

void setWords(CLI::FormatterBase& formatter) {
    formatter.label("SUBCOMMAND", "COMMAND");
    formatter.label("Positionals", "Arguments");
    formatter.label("REQUIRED", "");
    formatter.label("TEXT", "");
    formatter.column_width(kHelpColumn);
}

void addCommands(CLI::App& app, Output& output, ServiceOptions& services) {
    app.name("ovscene");
    setWords(*app.get_formatter());
    app.set_help_flag("-h,--help", "Print this help");
    app.set_version_flag("--version", kVersion, "Print the version");
    app.require_subcommand(1);
    app.footer(kFooter);
    addServiceOptions(app, services);
    addImportCommand(app, output);
    addTreeCommand(app, output);
    addAttrsCommand(app, output);
    addArgsCommand(app, output);
    addCameraCommand(app, output);
    addMaterialCommand(app, output);
    addOutputsCommand(app, output);
    addTileCommand(app, output);
    addStatsCommand(app, output);
    addWalkCommand(app, output);
    addRenderCommand(app, output);
    addConvertCommand(app, output);
    addWhyCommand(app, output);
    addOpsCommand(app, output);
    addPluginsCommand(app, output);
    for (CLI::App* command : app.get_subcommands({})) {
        command->group("Commands");
        command->fallthrough();  // the program's own options may stand behind the command too
        command->footer(command->get_footer() + kCommandFooter);
    }
    app.parse_complete_callback([&services] { setServices(services); });
}

int failUsage(const CLI::App& app, const CLI::ParseError& error) {
    const auto commands = app.get_subcommands();
    const std::string command = commands.empty() ? "" : " " + commands.back()->get_name();
    return fail(ExitStatus::Usage,
                std::string(error.what()) + " (see 'ovscene" + command + " --help')");
}

bool isOptionWithoutValue(const std::string& argument) {
    constexpr std::size_t kShortest = sizeof("--a=") - 1;
    return argument.size() >= kShortest && argument.rfind("--", 0) == 0 &&
           argument.find('=') == argument.size() - 1;
}

/// The arguments as the parser takes them, the last one first. Of "--name=" it would take the
/// argument behind it for the value, and so the empty one is put there.
std::vector<std::string> argumentsFor(int argc, char** argv) {
    std::vector<std::string> arguments;
    bool mayBeOption = true;
    for (int i = 1; i < argc; ++i) {
        std::string argument = argv[i];
        mayBeOption = mayBeOption && argument != "--";
        const bool hasNoValue = mayBeOption && isOptionWithoutValue(argument);
        if (hasNoValue) {
            argument.pop_back();
        }
        arguments.push_back(std::move(argument));
        if (hasNoValue) {
            arguments.emplace_back();
        }
    }
    std::reverse(arguments.begin(), arguments.end());
    return arguments;
}

void parse(CLI::App& app, int argc, char** argv, Output& output) {
    try {
        app.parse(argumentsFor(argc, argv));
    } catch (const CLI::CallForHelp&) {
        output.write(app.help());
    } catch (const CLI::CallForVersion&) {
        output.write(std::string(kVersion) + "\n");
    }
    output.flush();
}

void flushBeforeFailing(Output& output) {
    try {
        output.flush();
    } catch (const std::exception&) {  // the failure that is to be told came first
    }
}

int run(int argc, char** argv) {
    Output output;
    ServiceOptions services;
    CLI::App app("Imports, shows, counts, walks, renders, converts and explains scenes");
    try {
        addCommands(app, output, services);
        parse(app, argc, argv, output);
    } catch (const CLI::ParseError& error) {
        return failUsage(app, error);
    } catch (const CommandError& error) {
        flushBeforeFailing(output);
        return fail(error.status(), error.what());
    }
    return static_cast<int>(ExitStatus::Success);
}

}  // namespace

int runCommandLine(int argc, char** argv) noexcept {
    occupyStandardStreams();
    std::signal(SIGPIPE, SIG_IGN);
    try {
        return run(argc, argv);
    } catch (const OutputClosed&) {
        return static_cast<int>(ExitStatus::Success);
    } catch (const std::bad_alloc&) {
        return fail(ExitStatus::Unexpected, "out of memory");
    } catch (const std::exception& error) {
        return fail(ExitStatus::Unexpected, error.what());
    }
}

}  // namespace ovscene
