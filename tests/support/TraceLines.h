// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/SylvarRuntime.h>

#include <rapidjson/document.h>

#include <string>
#include <vector>

namespace ovtest {

using Sylvar3::internal::OvSylvar::SylvarRuntime;

/// Where an attribute comes from, a line for each op on its way: "gives merge 3/7 /root/a" for the
/// one that gave it and "merge 3/7 /root/a" for others, with ` "name"` and " in file" behind it
/// when there are some. In front "no location", "no attribute" or "dropped", when there is none;
/// the reason alone when there is no answer.
inline std::vector<std::string> traceOf(const SylvarRuntime::Client& client,
                                        const std::string& path,
                                        const std::string& attribute) {
    const SylvarRuntime::AttributeTrace trace = client.traceAttribute(path, attribute);
    rapidjson::Document json;
    json.Parse(trace.json.data(), trace.json.size());
    if (json.HasParseError()) {
        return {"error: " + trace.error};
    }
    std::vector<std::string> lines;
    if (!json["hasLocation"].GetBool()) {
        lines.emplace_back("no location");
    } else if (!json["hasAttribute"].GetBool()) {
        lines.emplace_back(json["isDropped"].GetBool() ? "dropped" : "no attribute");
    }
    const auto textOf = [](const rapidjson::Value& step, const char* key) {
        return std::string(step[key].GetString(), step[key].GetStringLength());
    };
    for (const auto& step : json["steps"].GetArray()) {
        const std::string name = textOf(step, "name");
        const std::string file = textOf(step, "file");
        lines.push_back((step["gives"].GetBool() ? "gives " : "") + textOf(step, "type") + " " +
                        std::to_string(step["number"].GetInt()) + "/" +
                        std::to_string(step["count"].GetInt()) + " " + textOf(step, "path") +
                        (name.empty() ? "" : " \"" + name + "\"") +
                        (file.empty() ? "" : " in " + file));
    }
    return lines;
}

}  // namespace ovtest
