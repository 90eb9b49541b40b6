// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Runtime/Queries.h"

#include "Platform/Embedded/Runtime/OpTypeTable.h"
#include "Platform/Embedded/Runtime/Runtime.h"
#include "Platform/Embedded/Runtime/Statistics.h"
#include "Platform/Embedded/Runtime/Store.h"

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <algorithm>
#include <map>

namespace Sylvar3::internal::OvSylvar::Embedded {

namespace {

constexpr std::int32_t kAnswered = 0;
constexpr std::int32_t kUnknownQuery = 1;

using Writer = rapidjson::Writer<rapidjson::StringBuffer>;

const char* nameOfType(std::uint32_t place) {
    const OpType* const type = OpTypeTable::instance()[place];
    return type ? type->schema().name : "";
}

void writeOpTree(const Runtime& runtime, Writer& json) {
    std::vector<std::shared_ptr<InternedOp>> ops = runtime.ops();
    std::sort(ops.begin(), ops.end(), [](const auto& a, const auto& b) {
        return std::make_pair(a->height(), a->hash()) < std::make_pair(b->height(), b->hash());
    });
    std::map<const InternedOp*, std::size_t> places;
    for (const std::shared_ptr<InternedOp>& op : ops) {
        places.emplace(op.get(), places.size());
    }
    json.StartObject();
    json.Key("ops");
    json.StartArray();
    for (const std::shared_ptr<InternedOp>& op : ops) {
        json.StartObject();
        json.Key("type");
        json.String(nameOfType(op->typeIndex()));
        json.Key("arguments");
        json.StartArray();
        for (const std::string& kind : op->argumentKinds()) {
            json.String(kind.c_str());
        }
        json.EndArray();
        json.Key("inputs");
        json.StartArray();
        for (const std::shared_ptr<InternedOp>& input : op->inputs()) {
            json.Uint64(places.at(input.get()));
        }
        json.EndArray();
        json.EndObject();
    }
    json.EndArray();
    json.EndObject();
}

void writeText(Writer& json, const char* key, const char* text) {
    json.Key(key);
    json.String(text);
}

void writeSchema(const OpSchema& schema, Writer& json) {
    json.StartObject();
    writeText(json, "type", schema.name);
    writeText(json, "about", schema.about);
    writeText(json, "remarks", schema.remarks);
    json.Key("fewestInputs");
    json.Int64(schema.fewestInputs);
    json.Key("mostInputs");
    json.Int64(schema.mostInputs);
    json.Key("arguments");
    json.StartArray();
    for (const ArgumentSchema& argument : schema.arguments) {
        json.StartObject();
        writeText(json, "name", argument.name);
        writeText(json, "kind", argument.kind);
        json.Key("isNeeded");
        json.Bool(argument.defaultText == nullptr);
        writeText(json, "default", argument.defaultText ? argument.defaultText : "");
        writeText(json, "about", argument.about);
        json.EndObject();
    }
    json.EndArray();
    json.EndObject();
}

void writeOpRegistry(Writer& json) {
    json.StartObject();
    json.Key("opTypes");
    json.StartArray();
    for (const OpType* const type : OpTypeTable::instance().all()) {
        writeSchema(type->schema(), json);
    }
    json.EndArray();
    json.EndObject();
}

void writeCount(Writer& json, const char* key, std::uint64_t count) {
    json.Key(key);
    json.Uint64(count);
}

void writeStatistics(Writer& json) {
    const Statistics::Counts counts = Statistics::instance().counts();
    const StoreTotals totals = Store::instance().totals();
    json.StartObject();
    json.Key("opTypes");
    json.StartObject();
    for (std::uint32_t place = 0; place < OpTypeTable::instance().size(); ++place) {
        json.Key(nameOfType(place));
        json.StartObject();
        writeCount(json, "cooks", counts[place].cooks);
        writeCount(json, "hits", counts[place].hits);
        writeCount(json, "evictions", totals.evictions[place]);
        json.Key("seconds");
        json.Double(static_cast<double>(counts[place].nanoseconds) * 1e-9);
        json.EndObject();
    }
    json.EndObject();
    json.Key("store");
    json.StartObject();
    writeCount(json, "entries", static_cast<std::uint64_t>(totals.entries));
    writeCount(json, "bytes", static_cast<std::uint64_t>(totals.bytes));
    writeCount(json, "pinnedBytes", static_cast<std::uint64_t>(totals.pinnedBytes));
    json.EndObject();
    json.EndObject();
}

}  // namespace

std::int32_t answerQuery(const Runtime& runtime, std::string_view name, std::string& answer) {
    rapidjson::StringBuffer text;
    Writer json(text);
    if (name == "getAnonymousOpTree") {
        writeOpTree(runtime, json);
    } else if (name == "getAnonymousOpRegistry") {
        writeOpRegistry(json);
    } else if (name == "getStatistics") {
        writeStatistics(json);
    } else {
        return kUnknownQuery;
    }
    answer.assign(text.GetString(), text.GetSize());
    return kAnswered;
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
