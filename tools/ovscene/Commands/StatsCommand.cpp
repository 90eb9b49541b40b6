// SPDX-License-Identifier: Apache-2.0
#include "Commands/Commands.h"
#include "Print/JsonOutput.h"
#include "Print/NumberText.h"
#include "Print/SafeText.h"
#include "Print/Table.h"
#include "Scene/SceneFile.h"
#include "Scene/Statistics.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace ovscene {
namespace {

constexpr std::size_t kRowsShown = 20;
constexpr std::size_t kLongestName = 50;
constexpr std::size_t kLongestPath = 120;

struct StatsOptions {
    std::string file;
    bool json = false;
};

using Counts = std::map<std::string, std::int64_t>;
using Row = std::pair<std::string, std::int64_t>;

std::vector<Row> mostFirst(const Counts& counts) {
    std::vector<Row> rows(counts.begin(), counts.end());
    std::stable_sort(
        rows.begin(), rows.end(), [](const Row& a, const Row& b) { return a.second > b.second; });
    return rows;
}

std::vector<Row> byDepth(const std::vector<std::int64_t>& depths) {
    std::vector<Row> rows;
    for (std::size_t depth = 0; depth < depths.size(); ++depth) {
        rows.emplace_back("depth " + numberText(static_cast<std::int64_t>(depth)), depths[depth]);
    }
    return rows;
}

/// The report for people: sections of names and what belongs to them.
class Report {
public:
    explicit Report(Output& output) : table_(output) {}

    void line(const std::string& name, const std::string& text) {
        table_.add({Cell::left(name), Cell::left(text)});
    }

    void rows(const std::vector<Row>& rows) {
        const std::size_t shown = std::min(rows.size(), kRowsShown);
        std::int64_t others = 0;
        for (std::size_t i = 0; i < rows.size(); ++i) {
            others += i < shown ? 0 : rows[i].second;
        }
        for (std::size_t i = 0; i < shown; ++i) {
            const std::string name = safeText(rows[i].first, kLongestName);
            line("  " + (name.empty() ? "(none)" : name), numberText(rows[i].second));
        }
        if (shown < rows.size()) {
            line("  (others)", numberText(others));
        }
    }

    void space() { table_.add({}); }
    void finish() { table_.finish(); }

private:
    Table table_;
};

void reportFile(Report& report, const SceneFile& file, const Statistics& statistics) {
    report.line("file", safeText(file.name));
    report.line("content", contentName(file.content));
    report.line("form", formName(file.form));
    report.line("size", counted(file.bytes, "byte"));
    report.line("hash", file.attribute.getHash().str());
    report.line("read in", secondsText(file.readSeconds));
    report.line("walked in", secondsText(statistics.walkSeconds));
}

void reportLocations(Report& report, const Statistics& statistics) {
    if (!statistics.hasLocations) {
        return;
    }
    report.space();
    report.line("locations", numberText(statistics.locations));
    report.rows(mostFirst(statistics.types));
    report.line("levels", numberText(static_cast<std::int64_t>(statistics.depths.size())));
    report.rows(byDepth(statistics.depths));
    report.line("shapes", numberText(statistics.shapes));
    if (statistics.errors.count() > 0) {
        report.line("errors", numberText(statistics.errors.count()));
    }
}

void reportAttributes(Report& report, const Statistics& statistics) {
    report.space();
    report.line("attributes", numberText(statistics.attributes));
    report.rows(mostFirst(statistics.kinds));
    report.line("animated", numberText(statistics.animated));
    report.line("time samples", numberText(statistics.samples));
    report.line("values", counted(statistics.valueBytes, "byte"));
    report.line("distinct",
                counted(statistics.distinctValues, "attribute") + ", " +
                    counted(statistics.distinctBytes, "byte"));
}

void printLargest(Output& output, const Statistics& statistics) {
    Table table(output);
    output.write("\nlargest attributes\n");
    for (const LargeAttribute& large : statistics.largest) {
        const std::string name = large.name.empty() ? "(attribute)" : large.name;
        table.add({Cell::number("  " + counted(large.bytes, "byte")),
                   Cell::left(safeText(name, kLongestName)),
                   Cell::left(safeText(large.path, kLongestPath))});
    }
    table.finish();
}

void printReport(Output& output, const SceneFile& file, const Statistics& statistics) {
    Report report(output);
    reportFile(report, file, statistics);
    reportLocations(report, statistics);
    reportAttributes(report, statistics);
    report.finish();
    if (!statistics.largest.empty()) {
        printLargest(output, statistics);
    }
}

void writeCounts(JsonWriter& json, const char* name, const Counts& counts) {
    writeJsonKey(json, name);
    json.StartObject();
    for (const auto& [key, count] : counts) {
        writeJsonMember(json, key, count);
    }
    json.EndObject();
}

void writeFileJson(JsonWriter& json, const SceneFile& file, const Statistics& statistics) {
    writeJsonMember(json, "file", file.name);
    writeJsonMember(json, "content", contentName(file.content));
    writeJsonMember(json, "form", formName(file.form));
    writeJsonMember(json, "bytes", file.bytes);
    writeJsonMember(json, "hash", file.attribute.getHash().str());
    writeJsonMember(json, "readSeconds", file.readSeconds);
    writeJsonMember(json, "walkSeconds", statistics.walkSeconds);
}

void writeLocationsJson(JsonWriter& json, const Statistics& statistics) {
    if (!statistics.hasLocations) {
        return;
    }
    writeJsonMember(json, "locations", statistics.locations);
    writeCounts(json, "types", statistics.types);
    writeJsonKey(json, "depths");
    json.StartArray();
    for (const std::int64_t count : statistics.depths) {
        json.Int64(count);
    }
    json.EndArray();
    writeJsonMember(json, "shapes", statistics.shapes);
    writeJsonMember(json, "errors", statistics.errors.count());
}

void writeAttributesJson(JsonWriter& json, const Statistics& statistics) {
    writeJsonMember(json, "attributes", statistics.attributes);
    writeCounts(json, "kinds", statistics.kinds);
    writeJsonMember(json, "animated", statistics.animated);
    writeJsonMember(json, "timeSamples", statistics.samples);
    writeJsonMember(json, "valueBytes", statistics.valueBytes);
    writeJsonMember(json, "distinctValues", statistics.distinctValues);
    writeJsonMember(json, "distinctBytes", statistics.distinctBytes);
}

void writeLargestJson(JsonWriter& json, const Statistics& statistics) {
    writeJsonKey(json, "largest");
    json.StartArray();
    for (const LargeAttribute& large : statistics.largest) {
        json.StartObject();
        writeJsonMember(json, "path", large.path);
        writeJsonMember(json, "name", large.name);
        writeJsonMember(json, "bytes", large.bytes);
        json.EndObject();
    }
    json.EndArray();
}

void printJson(Output& output, const SceneFile& file, const Statistics& statistics) {
    JsonStream stream(output);
    JsonWriter json(stream);
    json.StartObject();
    writeFileJson(json, file, statistics);
    writeLocationsJson(json, statistics);
    writeAttributesJson(json, statistics);
    writeLargestJson(json, statistics);
    json.EndObject();
    output.put('\n');
}

void runStats(const StatsOptions& options, Output& output) {
    const SceneFile file = readSceneFile(options.file);
    const Statistics statistics = collectStatistics(file);
    options.json ? printJson(output, file, statistics) : printReport(output, file, statistics);
    statistics.errors.tell(file.name, output);
}

}  // namespace

void addStatsCommand(CLI::App& app, Output& output) {
    const auto options = std::make_shared<StatsOptions>();
    CLI::App* command = app.add_subcommand("stats", "Counts what a file holds");
    command->add_option("FILE", options->file, "A file, binary or text")->required();
    command->add_flag("--json", options->json, "Print as one JSON document");
    command->footer(
        "Values, bytes and samples are counted wherever they occur; 'distinct' counts equal\n"
        "values once. Of an op tree, what it makes is counted. A plain attribute has no "
        "locations.\n\n"
        "Examples:\n"
        "  ovscene stats chair.optree\n"
        "  ovscene stats chair.optree --json");
    command->callback([options, &output] { runStats(*options, output); });
}

}  // namespace ovscene
