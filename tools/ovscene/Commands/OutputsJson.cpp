// SPDX-License-Identifier: Apache-2.0
#include "Commands/OutputsJson.h"

#include "Print/JsonOutput.h"

namespace ovscene {
namespace {

void writePicture(JsonWriter& json, const Picture& picture) {
    json.StartObject();
    writeJsonMember(json, "name", picture.name);
    writeJsonMember(json, "width", picture.width);
    writeJsonMember(json, "height", picture.height);
    json.EndObject();
}

void writeTile(JsonWriter& json, const std::optional<std::vector<int>>& tile) {
    if (!tile) {
        json.Null();
        return;
    }
    json.StartArray();
    for (const int number : *tile) {
        writeJson(json, number);
    }
    json.EndArray();
}

void writePlace(JsonWriter& json, const OutputPlace& place, bool hasTile) {
    json.StartObject();
    writeJsonMember(json, "name", place.name);
    writeJsonMember(json, "tempLocation", place.tempLocation);
    if (hasTile) {
        writeJsonMember(json, "tilePath", place.tilePath);
    }
    json.EndObject();
}

}  // namespace

void printOutputsJson(const OutputsView& view, Output& output) {
    JsonStream stream(output);
    JsonWriter json(stream);
    json.StartObject();
    writeJsonMember(json, "file", view.file);
    writeJsonMember(json, "camera", view.cameraPath);
    writeJsonKey(json, "resolution");
    writePicture(json, view.picture);
    writeJsonMember(json, "frame", view.frame);
    writeJsonKey(json, "tile");
    writeTile(json, view.tile);
    writeJsonKey(json, "outputs");
    json.StartArray();
    for (const OutputPlace& place : view.outputs) {
        writePlace(json, place, view.tile.has_value());
    }
    json.EndArray();
    json.EndObject();
    output.put('\n');
}

}  // namespace ovscene
