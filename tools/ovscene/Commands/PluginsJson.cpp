// SPDX-License-Identifier: Apache-2.0
#include "Commands/PluginsJson.h"

#include "Print/JsonOutput.h"

namespace ovscene {
namespace {

/// Each element as `write` has it.
template <class Element, class Write>
void writeArray(JsonWriter& json,
                const char* name,
                const std::vector<Element>& elements,
                Write write) {
    writeJsonKey(json, name);
    json.StartArray();
    for (const Element& element : elements) {
        write(element);
    }
    json.EndArray();
}

void writeTexts(JsonWriter& json, const char* name, const std::vector<std::string>& texts) {
    writeArray(json, name, texts, [&json](const std::string& text) { writeJson(json, text); });
}

void writePlugin(JsonWriter& json, const PluginEntry& entry, bool isExplained) {
    json.StartObject();
    writeJsonMember(json, "api", entry.plugin.api);
    writeJsonMember(json, "version", entry.plugin.version);
    writeJsonMember(json, "name", entry.plugin.name);
    if (isExplained) {
        writeJsonMember(json, "about", aboutApi(entry.plugin.api, entry.plugin.version));
        writeJsonMember(json, "gives", entry.offer);
    }
    json.EndObject();
}

void writeDelegates(JsonWriter& json, const DelegatesOfRenderer& known) {
    json.StartObject();
    writeJsonMember(json, "renderer", known.renderer);
    writeTexts(json, "types", known.types);
    json.EndObject();
}

void writeRejected(JsonWriter& json, const RejectedPlugin& rejected) {
    json.StartObject();
    writeJsonMember(json, "file", rejected.file);
    writeJsonMember(json, "plugin", rejected.plugin);
    writeJsonMember(json, "reason", rejected.reason);
    json.EndObject();
}

}  // namespace

void printPluginsJson(const PluginsView& view, Output& output) {
    JsonStream stream(output);
    JsonWriter json(stream);
    json.StartObject();
    if (view.isExplained) {
        writeTexts(json, "folders", view.folders);
    }
    writeArray(json, "plugins", view.plugins, [&](const PluginEntry& entry) {
        writePlugin(json, entry, view.isExplained);
    });
    if (view.isExplained) {
        writeArray(json, "delegates", view.delegates, [&json](const DelegatesOfRenderer& known) {
            writeDelegates(json, known);
        });
    }
    writeArray(json, "rejected", view.rejected, [&json](const RejectedPlugin& rejected) {
        writeRejected(json, rejected);
    });
    json.EndObject();
    output.put('\n');
}

}  // namespace ovscene
