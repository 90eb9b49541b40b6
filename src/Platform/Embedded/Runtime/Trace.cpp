// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Runtime/Trace.h"

#include "Platform/Embedded/Runtime/Cook.h"

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <algorithm>
#include <cstddef>
#include <utility>

namespace Sylvar3::internal::OvSylvar::Embedded {

namespace {

constexpr std::size_t kMostSteps = 1000000;

using Writer = rapidjson::Writer<rapidjson::StringBuffer>;

/// Null when the location has none of that name.
const Location::Value* valueOf(const Location& location, std::string_view name) {
    Location::GroupValue* const attributes = location.attributes();
    if (name.empty()) {
        return attributes->size() == 0 ? nullptr : attributes;
    }
    return attributes->find(name);
}

/// A location that an op has just made, and what it read for that.
struct Making {
    const TraceStep& step;
    std::string_view name;
    Location location;
    Readings readings;

    const Location::Value* value() const { return valueOf(location, name); }
    bool isBeside(const Reading& read) const { return read.path == step.path; }

    /// Whether the value, or without it the location, may have been handed on from there.
    bool isFrom(const Reading& read) const {
        return value() ? valueOf(read.location, name) == value()
                       : isBeside(read) || read.location.group() == location.group();
    }

    /// Where it was handed on from: rather from the same path than from another, and from what was
    /// read earlier; null when it is the op's own.
    Reading* source() {
        Reading* found = nullptr;
        for (Reading& read : readings) {
            const bool isBetter = !found || (!isBeside(*found) && isBeside(read));
            if (isBetter && isFrom(read)) {
                found = &read;
            }
        }
        return found;
    }

    /// Whether the op read the attribute here and did not hand it on.
    bool isDropped() const {
        return !value() && std::any_of(readings.begin(), readings.end(), [this](const Reading& r) {
            return isBeside(r) && valueOf(r.location, name);
        });
    }
};

Making make(Session& session, const TraceStep& step, std::string_view name) {
    Making making{step, name, {}, {}};
    making.location = cookOnceMore(session, *step.op, step.path, making.readings);
    return making;
}

void writeText(Writer& json, const char* key, const std::string& text) {
    json.Key(key);
    json.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
}

void writeStep(Writer& json, const TraceStep& step, bool gives) {
    const OpPlace& place = step.op->place();
    json.StartObject();
    json.Key("gives");
    json.Bool(gives);
    writeText(json, "name", place.name);
    writeText(json, "type", step.op->typeName());
    json.Key("number");
    json.Uint64(place.number);
    json.Key("count");
    json.Uint64(place.count);
    writeText(json, "file", place.file);
    writeText(json, "path", step.path);
    json.EndObject();
}

}  // namespace

Trace traceAttribute(Session& session,
                     const std::shared_ptr<InternedOp>& op,
                     std::string_view path,
                     std::string_view name) {
    Trace trace;
    trace.hasLocation = cookLocation(session, *op, path).exists();
    TraceStep next{trace.hasLocation ? op : nullptr, std::string(path)};
    while (next.op) {
        if (trace.steps.size() == kMostSteps) {
            throw OpError("the way of the value has more than " + std::to_string(kMostSteps) +
                          " ops");
        }
        Making making = make(session, trace.steps.emplace_back(std::move(next)), name);
        const bool hasValue = making.location.exists() && making.value();
        trace.hasAttribute = trace.steps.size() == 1 ? hasValue : trace.hasAttribute;
        if (!making.location.exists() || hasValue != trace.hasAttribute) {
            throw OpError("the scene has changed while the value was followed");
        }
        trace.isDropped = making.isDropped();
        Reading* const source = trace.isDropped ? nullptr : making.source();
        next = source ? TraceStep{std::move(source->op), std::move(source->path)} : TraceStep{};
    }
    std::reverse(trace.steps.begin(), trace.steps.end());
    return trace;
}

std::string jsonOf(const Trace& trace) {
    rapidjson::StringBuffer text;
    Writer json(text);
    json.StartObject();
    json.Key("hasLocation");
    json.Bool(trace.hasLocation);
    json.Key("hasAttribute");
    json.Bool(trace.hasAttribute);
    json.Key("isDropped");
    json.Bool(trace.isDropped);
    json.Key("steps");
    json.StartArray();
    for (const TraceStep& step : trace.steps) {
        writeStep(json, step, &step == &trace.steps.front() && !trace.isDropped);
    }
    json.EndArray();
    json.EndObject();
    return {text.GetString(), text.GetSize()};
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
