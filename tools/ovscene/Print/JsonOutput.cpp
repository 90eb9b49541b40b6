// SPDX-License-Identifier: Apache-2.0
#include "Print/JsonOutput.h"

#include "Print/NumberText.h"
#include "Print/SafeText.h"

#include <cmath>
#include <string>

namespace ovscene {
namespace {

rapidjson::SizeType jsonSize(const std::string& text) {
    return static_cast<rapidjson::SizeType>(text.size());
}

template <class Real>
void writeReal(JsonWriter& json, Real value) {
    const std::string text = numberText(value);
    if (std::isfinite(value)) {
        json.RawValue(text.data(), text.size(), rapidjson::kNumberType);
    } else {
        json.String(text.data(), jsonSize(text));
    }
}

}  // namespace

void writeJson(JsonWriter& json, std::string_view text) {
    const std::string safe = safeText(text);
    json.String(safe.data(), jsonSize(safe));
}

void writeJsonKey(JsonWriter& json, std::string_view name) {
    const std::string safe = safeText(name);
    json.Key(safe.data(), jsonSize(safe));
}

void writeJson(JsonWriter& json, std::int32_t value) {
    json.Int(value);
}

void writeJson(JsonWriter& json, std::int64_t value) {
    json.Int64(value);
}

void writeJson(JsonWriter& json, float value) {
    writeReal(json, value);
}

void writeJson(JsonWriter& json, double value) {
    writeReal(json, value);
}

}  // namespace ovscene
