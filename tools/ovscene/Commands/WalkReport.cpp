// SPDX-License-Identifier: Apache-2.0
#include "Commands/WalkReport.h"

#include "Print/JsonOutput.h"
#include "Print/NumberText.h"
#include "Print/SafeText.h"
#include "Print/Table.h"

#include <algorithm>
#include <cstdint>

namespace ovscene {
namespace {

constexpr std::size_t kThreadsShown = 16;
constexpr std::size_t kLongestName = 50;

double locationsPerSecond(const WalkResult& walk) {
    return walk.seconds > 0 ? static_cast<double>(walk.sum().locations) / walk.seconds : 0;
}

std::string threadsText(const WalkResult& walk) {
    std::string text;
    for (std::size_t i = 0; i < std::min(walk.shares.size(), kThreadsShown); ++i) {
        text += (i == 0 ? "" : " ") + numberText(walk.shares[i].locations);
    }
    return text + (walk.shares.size() > kThreadsShown ? " ..." : "");
}

void printSummary(const WalkReport& report, Output& output) {
    Table table(output);
    const WalkResult& last = report.walks.back();
    const ThreadShare sum = last.sum();
    const auto line = [&table](const std::string& name, const std::string& text) {
        table.add({Cell::left(name), Cell::left(text)});
    };
    line("file", safeText(report.file));
    line("content", report.content);
    line("top", safeText(report.top));
    line("threads", numberText(static_cast<std::int64_t>(last.shares.size())));
    line("locations", numberText(sum.locations));
    line("attributes", numberText(sum.attributes));
    if (sum.errors > 0) {
        line("errors", numberText(sum.errors));
    }
    table.finish();
}

void printWalks(const WalkReport& report, Output& output) {
    Table table(output);
    table.add({Cell::number("walk"),
               Cell::number("seconds"),
               Cell::number("locations/s"),
               Cell::left("locations of each thread")});
    for (std::size_t i = 0; i < report.walks.size(); ++i) {
        const WalkResult& walk = report.walks[i];
        table.add({Cell::number(numberText(static_cast<std::int64_t>(i + 1))),
                   Cell::number(secondsText(walk.seconds)),
                   Cell::number(numberText(static_cast<std::int64_t>(locationsPerSecond(walk)))),
                   Cell::left(threadsText(walk))});
    }
    table.finish();
}

void printOpTypes(const RuntimeStatistics& statistics, Output& output) {
    Table table(output);
    table.add({Cell::left("op type"),
               Cell::number("cooks"),
               Cell::number("hits"),
               Cell::number("evictions"),
               Cell::number("seconds")});
    for (const OpTypeStatistics& type : statistics.opTypes) {
        if (type.cooks + type.hits + type.evictions > 0) {
            table.add({Cell::left(type.name.empty() ? "(none)" : safeText(type.name, kLongestName)),
                       Cell::number(numberText(type.cooks)),
                       Cell::number(numberText(type.hits)),
                       Cell::number(numberText(type.evictions)),
                       Cell::number(secondsText(type.seconds))});
        }
    }
    table.finish();
}

void printStatistics(const WalkReport& report, Output& output) {
    if (!report.statistics) {
        output.write("no statistics: no runtime tells of its work\n");
        return;
    }
    printOpTypes(*report.statistics, output);
    output.write("\nstore  " + numberText(report.statistics->entries) + " entries, " +
                 counted(report.statistics->bytes, "byte") + ", " +
                 numberText(report.statistics->pinnedBytes) + " of them pinned\n");
}

void writeWalks(JsonWriter& json, const WalkReport& report) {
    writeJsonKey(json, "walks");
    json.StartArray();
    for (const WalkResult& walk : report.walks) {
        json.StartObject();
        writeJsonMember(json, "locations", walk.sum().locations);
        writeJsonMember(json, "seconds", walk.seconds);
        writeJsonMember(json, "locationsPerSecond", locationsPerSecond(walk));
        writeJsonKey(json, "threadLocations");
        json.StartArray();
        for (const ThreadShare& share : walk.shares) {
            json.Int64(share.locations);
        }
        json.EndArray();
        json.EndObject();
    }
    json.EndArray();
}

void writeOpTypes(JsonWriter& json, const RuntimeStatistics& statistics) {
    writeJsonKey(json, "opTypes");
    json.StartObject();
    for (const OpTypeStatistics& type : statistics.opTypes) {
        writeJsonKey(json, type.name);
        json.StartObject();
        writeJsonMember(json, "cooks", type.cooks);
        writeJsonMember(json, "hits", type.hits);
        writeJsonMember(json, "evictions", type.evictions);
        writeJsonMember(json, "seconds", type.seconds);
        json.EndObject();
    }
    json.EndObject();
}

void writeStatistics(JsonWriter& json, const WalkReport& report) {
    writeJsonKey(json, "statistics");
    if (!report.statistics) {
        json.Null();
        return;
    }
    json.StartObject();
    writeOpTypes(json, *report.statistics);
    writeJsonKey(json, "store");
    json.StartObject();
    writeJsonMember(json, "entries", report.statistics->entries);
    writeJsonMember(json, "bytes", report.statistics->bytes);
    writeJsonMember(json, "pinnedBytes", report.statistics->pinnedBytes);
    json.EndObject();
    json.EndObject();
}

}  // namespace

void printWalk(const WalkReport& report, Output& output) {
    printSummary(report, output);
    output.put('\n');
    printWalks(report, output);
    if (report.hasStatistics) {
        output.put('\n');
        printStatistics(report, output);
    }
}

void printWalkJson(const WalkReport& report, Output& output) {
    const WalkResult& last = report.walks.back();
    const ThreadShare sum = last.sum();
    JsonStream stream(output);
    JsonWriter json(stream);
    json.StartObject();
    writeJsonMember(json, "file", report.file);
    writeJsonMember(json, "content", report.content);
    writeJsonMember(json, "top", report.top);
    writeJsonMember(json, "threads", static_cast<std::int64_t>(last.shares.size()));
    writeJsonMember(json, "locations", sum.locations);
    writeJsonMember(json, "attributes", sum.attributes);
    writeJsonMember(json, "errors", sum.errors);
    writeWalks(json, report);
    if (report.hasStatistics) {
        writeStatistics(json, report);
    }
    json.EndObject();
    output.put('\n');
}

}  // namespace ovscene
