// SPDX-License-Identifier: Apache-2.0
#include "Commands/Commands.h"
#include "Commands/OptionChecks.h"
#include "Commands/ThreadsOption.h"
#include "Commands/WalkReport.h"
#include "Scene/SceneErrors.h"
#include "Scene/SceneFile.h"
#include "Scene/SceneWalk.h"
#include "Scene/VisitLimit.h"
#include "Scene/WorkList.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace ovscene {
namespace {

constexpr std::int64_t kMostWalks = 1000000;

struct WalkOptions {
    std::string file;
    std::string top = "/root";
    std::int64_t threads = 0;  ///< As threadCount takes it.
    std::int64_t repeat = 1;
    bool stats = false;
    bool json = false;
};

/// Only what a runtime cooks has any size for good.
std::int64_t limitFor(const SceneFile& file) {
    return file.content == AttributeContent::OpTree ? WorkList::kNoLimit : VisitLimit::kMost;
}

WalkReport walk(const SceneFile& file, const WalkOptions& options) {
    const FoundLocation found = findLocation(topLocation(file), options.top, file.name);
    VisitLimit limit(file.name);
    WalkReport report;
    report.file = file.name;
    report.content = contentName(file.content);
    report.top = SceneWalk(found.location, found.parentPath, limit).path();
    for (std::int64_t i = 0; i < options.repeat; ++i) {
        report.walks.push_back(walkInParallel(
            found.location, threadCount(options.threads), limitFor(file), file.name));
    }
    report.hasStatistics = options.stats;
    report.statistics = options.stats ? runtimeStatistics(*found.location) : std::nullopt;
    return report;
}

void runWalk(const WalkOptions& options, Output& output) {
    const SceneFile file = readSceneFile(options.file);
    const WalkReport report = walk(file, options);
    options.json ? printWalkJson(report, output) : printWalk(report, output);
    SceneErrors errors;
    const ThreadShare sum = report.walks.back().sum();
    errors.add(sum.errors, "", sum.error);
    errors.tell(file.name, output);
}

}  // namespace

void addWalkCommand(CLI::App& app, Output& output) {
    const auto options = std::make_shared<WalkOptions>();
    CLI::App* command = app.add_subcommand("walk", "Visits all locations of a scene, on all cores");
    command->add_option("FILE", options->file, "A static scene or an op tree, binary or text")
        ->required();
    addThreads(*command, options->threads, "How many threads walk; all cores by default");
    command->add_option("--top", options->top, "The location to start at")
        ->capture_default_str()
        ->option_text("PATH");
    command->add_option("--repeat", options->repeat, "How many times to walk; once by default")
        ->check(isCountUpTo(kMostWalks))
        ->option_text("N");
    command->add_flag("--stats", options->stats, "What the runtime did for it");
    command->add_flag("--json", options->json, "Print as one JSON document");
    command->footer(
        "Examples:\n"
        "  ovscene walk shot.optree\n"
        "  ovscene walk shot.optree --threads 1 --repeat 2 --stats\n"
        "  ovscene walk shot.optree --stats --set SYLVAR_MEMORY_BUDGET=64M");
    command->callback([options, &output] { runWalk(*options, output); });
}

}  // namespace ovscene
