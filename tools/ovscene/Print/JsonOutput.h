// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Print/Output.h"

#include <rapidjson/writer.h>

#include <cstdint>
#include <string_view>

namespace ovscene {

/// The stream that the JSON writer writes to.
class JsonStream {
public:
    using Ch = char;

    explicit JsonStream(Output& output) : output_(output) {}
    void Put(Ch c) { output_.put(c); }
    void Flush() {}

private:
    Output& output_;
};

using JsonWriter = rapidjson::Writer<JsonStream>;

/// Strings and member names go through `safeText`, so that the JSON is UTF-8 whatever they hold.
void writeJson(JsonWriter& json, std::string_view text);
void writeJsonKey(JsonWriter& json, std::string_view name);

/// Numbers in their shortest text; what is no number as the string "nan", "inf" or "-inf".
void writeJson(JsonWriter& json, std::int32_t value);
void writeJson(JsonWriter& json, std::int64_t value);
void writeJson(JsonWriter& json, float value);
void writeJson(JsonWriter& json, double value);

/// A whole member.
template <class Value>
void writeJsonMember(JsonWriter& json, std::string_view name, const Value& value) {
    writeJsonKey(json, name);
    writeJson(json, value);
}

}  // namespace ovscene
