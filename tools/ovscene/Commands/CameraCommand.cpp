// SPDX-License-Identifier: Apache-2.0
#include "Commands/CameraView.h"
#include "Commands/Commands.h"
#include "Commands/ScreenPlace.h"
#include "Print/AttributeJson.h"
#include "Print/AttributeText.h"
#include "Print/JsonOutput.h"
#include "Print/LocationHeading.h"
#include "Print/NumberText.h"
#include "Print/SafeText.h"
#include "Print/Table.h"
#include "Scene/SceneErrors.h"
#include "Scene/SceneFile.h"
#include "Scene/SceneProducer.h"
#include "Scene/SceneWalk.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace ovscene {
namespace {

constexpr std::size_t kLongestName = 60;

struct CameraOptions {
    std::string file;
    std::optional<std::string> path;
    std::optional<std::string> camera;
    bool json = false;
};

/// A location that is looked at through the camera.
struct SeenLocation {
    std::string path;
    std::string type;
    ScreenPlace place;
    SceneErrors errors;  ///< The location's own.
};

SeenLocation see(const SceneFile& file,
                 const SYLVAR::GeometryProducerPtr& top,
                 const std::string& path,
                 const CameraView& view) {
    const FoundLocation found = findLocation(topLocation(file), path, file.name);
    VisitLimit limit(file.name);
    const SceneWalk walk(found.location, found.parentPath, limit);
    SeenLocation seen;
    seen.path = walk.path();
    seen.type = found.location->type();
    seen.place = screenPlace(file, producerAt(file, top, path), seen.path, view);
    seen.errors.look(walk);
    return seen;
}

const char* projectionName(const SYLVAR::CameraInfo& info) {
    return info.orthographic ? "orthographic" : "perspective";
}

/// For people: as many digits as a float has, and no negative zero.
std::string shortText(double value) {
    return numberText(static_cast<float>(value) + 0.0F);
}

void addLine(Table& table, const std::string& name, const std::vector<double>& values) {
    std::vector<Cell> line{Cell::left(name)};
    for (const double value : values) {
        line.push_back(Cell::number(shortText(value)));
    }
    table.add(std::move(line));
}

void printMatrix(const std::string& title, const Imath::M44d& matrix, Output& output) {
    output.write("\n" + title + "\n");
    Table table(output);
    for (const auto& row : matrix.x) {
        addLine(table, " ", {row[0], row[1], row[2], row[3]});
    }
    table.finish();
}

void printLens(const CameraView& view, Output& output) {
    const SYLVAR::CameraInfo& info = *view.info;
    Table table(output);
    const auto add = [&](const char* name, const std::string& text) {
        table.add({Cell::left(name), Cell::left(text)});
    };
    add("projection", projectionName(info));
    add("fov", numberText(info.fov));
    add("near, far", numberText(info.near) + "  " + numberText(info.far));
    add("left, right", numberText(info.left) + "  " + numberText(info.right));
    add("bottom, top", numberText(info.bottom) + "  " + numberText(info.top));
    add("orthographicWidth", numberText(info.orthographicWidth));
    add("transform samples",
        info.xformAttr ? samplesText(info.xformAttr) : std::string("none: it has no transform"));
    add("resolution",
        safeText(view.picture.name, kLongestName) + "  " + numberText(view.picture.width) + " x " +
            numberText(view.picture.height));
    table.finish();
}

void print(const CameraView& view, Output& output) {
    printLocationHeading(view.path, view.isRenders ? "the render's camera" : "a camera", output);
    printLens(view, output);
    printMatrix("camera to world", view.info->xform, output);
    printMatrix("projection, width by height " + numberText(view.picture.aspect()),
                view.projection,
                output);
}

void print(const SeenLocation& seen, Output& output) {
    const ScreenPlace& place = seen.place;
    output.put('\n');
    printLocationHeading(seen.path, seen.type, output);
    Table table(output);
    table.add({Cell::left("in the picture"), Cell::number("from"), Cell::number("to")});
    addLine(table, "  x", {place.normalised.min.x, place.normalised.max.x});
    addLine(table, "  y", {place.normalised.min.y, place.normalised.max.y});
    addLine(table, "  depth", {place.normalised.min.z, place.normalised.max.z});
    addLine(table, "  x in pixels", {place.pixels.min.x, place.pixels.max.x});
    addLine(table, "  y in pixels", {place.pixels.min.y, place.pixels.max.y});
    addLine(table, "  distance", {place.pixels.min.z, place.pixels.max.z});
    table.add({Cell::left("pixel area"), Cell::number(numberText(place.pixelArea))});
    if (place.cornersBehind > 0) {
        table.add({Cell::left("corners behind"),
                   Cell::number(numberText(place.cornersBehind) + " of 8")});
    }
    table.finish();
    printMatrix("local to screen", place.localToScreen, output);
}

void writeNumbers(JsonWriter& json, const char* name, const std::vector<double>& values) {
    writeJsonKey(json, name);
    json.StartArray();
    for (const double value : values) {
        writeJson(json, value);
    }
    json.EndArray();
}

void writeMatrix(JsonWriter& json, const char* name, const Imath::M44d& matrix) {
    constexpr std::size_t kValues = 16;
    const double* const values = matrix.getValue();
    writeNumbers(json, name, std::vector<double>(values, values + kValues));
}

void writeBounds(JsonWriter& json,
                 const char* name,
                 const char* depthName,
                 const Imath::Box3d& bounds) {
    writeJsonKey(json, name);
    json.StartObject();
    writeNumbers(json, "x", {bounds.min.x, bounds.max.x});
    writeNumbers(json, "y", {bounds.min.y, bounds.max.y});
    writeNumbers(json, depthName, {bounds.min.z, bounds.max.z});
    json.EndObject();
}

void writeCamera(JsonWriter& json, const CameraView& view, VisitLimit& limit) {
    const SYLVAR::CameraInfo& info = *view.info;
    json.StartObject();
    writeJsonMember(json, "path", view.path);
    writeJsonMember(json, "projection", projectionName(info));
    writeJsonMember(json, "fov", info.fov);
    writeJsonMember(json, "near", info.near);
    writeJsonMember(json, "far", info.far);
    writeJsonMember(json, "left", info.left);
    writeJsonMember(json, "right", info.right);
    writeJsonMember(json, "top", info.top);
    writeJsonMember(json, "bottom", info.bottom);
    writeJsonMember(json, "orthographicWidth", info.orthographicWidth);
    writeMatrix(json, "xform", info.xform);
    writeJsonKey(json, "xformAttr");
    writeAttributeJson(json, info.xformAttr, limit);
    writeMatrix(json, "projectionMatrix", view.projection);
    json.EndObject();
}

void writePicture(JsonWriter& json, const Picture& picture) {
    json.StartObject();
    writeJsonMember(json, "name", picture.name);
    writeJsonMember(json, "width", picture.width);
    writeJsonMember(json, "height", picture.height);
    json.EndObject();
}

void writeLocation(JsonWriter& json, const SeenLocation& seen) {
    json.StartObject();
    writeJsonMember(json, "path", seen.path);
    writeJsonMember(json, "type", seen.type);
    writeMatrix(json, "localToScreen", seen.place.localToScreen);
    writeJsonMember(json, "pixelArea", seen.place.pixelArea);
    writeBounds(json, "normalised", "depth", seen.place.normalised);
    writeBounds(json, "pixels", "distance", seen.place.pixels);
    writeJsonMember(json, "cornersBehind", seen.place.cornersBehind);
    json.EndObject();
}

void printJson(const std::string& filename,
               const CameraView& view,
               const std::optional<SeenLocation>& seen,
               Output& output) {
    JsonStream stream(output);
    JsonWriter json(stream);
    VisitLimit limit(filename);
    json.StartObject();
    writeJsonMember(json, "file", filename);
    writeJsonKey(json, "camera");
    writeCamera(json, view, limit);
    writeJsonKey(json, "resolution");
    writePicture(json, view.picture);
    if (seen) {
        writeJsonKey(json, "location");
        writeLocation(json, *seen);
    }
    json.EndObject();
    output.put('\n');
}

void runCamera(const CameraOptions& options, Output& output) {
    const SceneFile file = readSceneFile(options.file);
    const SYLVAR::GeometryProducerPtr top = topProducer(file);
    const CameraView view = cameraView(file, top, options.camera);
    std::optional<SeenLocation> seen;
    if (options.path) {
        seen = see(file, top, *options.path, view);
    }
    if (options.json) {
        printJson(file.name, view, seen, output);
    } else {
        print(view, output);
        if (seen) {
            print(*seen, output);
        }
    }
    if (seen) {
        seen->errors.tell(file.name, output);
    }
}

}  // namespace

void addCameraCommand(CLI::App& app, Output& output) {
    const auto options = std::make_shared<CameraOptions>();
    CLI::App* command =
        app.add_subcommand("camera", "Shows the render's camera, and what a location takes up");
    command->add_option("FILE", options->file, "A static scene or an op tree, binary or text")
        ->required();
    command->add_option(
        "PATH", options->path, "A location with a \"bound\": where it is in the picture");
    command->add_option("--camera", options->camera, "Another camera than the render's")
        ->option_text("PATH");
    command->add_flag("--json", options->json, "Print as one JSON document, in full precision")
        ->option_text(" ");
    command->footer(
        "Examples:\n"
        "  ovscene camera shot.optree\n"
        "  ovscene camera shot.optree /root/world/table/lamp1\n"
        "  ovscene camera chair.optree --camera /root/ROOT/view/view --json");
    command->callback([options, &output] { runCamera(*options, output); });
}

}  // namespace ovscene
