// SPDX-License-Identifier: Apache-2.0
#include "Commands/Commands.h"
#include "Commands/ImporterPlugin.h"
#include "Commands/OptionChecks.h"
#include "ExitStatus.h"
#include "Print/NumberText.h"
#include "Print/SafeText.h"
#include "Print/Terminal.h"
#include "Scene/InputFile.h"
#include "Scene/PluginFolders.h"
#include "Scene/SceneFile.h"
#include "Scene/SceneWalk.h"

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace ovscene {
namespace {

struct ImportOptions {
    std::string asset;
    std::string output;
    std::string pluginPath;
    std::string upAxis;
    double unitScale = 0;
    bool noLights = false;
    bool noCameras = false;
    bool noMaterials = false;
    std::int64_t maxBytes = 0;
    std::int64_t maxLocations = 0;
};

OvAssetImportOptions assetOptions(const OvAssetImporter& importer, const ImportOptions& options) {
    OvAssetImportOptions asset{};
    importer.defaultOptions(&asset);
    asset.upAxis = options.upAxis.empty() ? asset.upAxis : options.upAxis.front();
    asset.unitScale = options.unitScale > 0 ? options.unitScale : asset.unitScale;
    asset.lights = options.noLights ? 0 : asset.lights;
    asset.cameras = options.noCameras ? 0 : asset.cameras;
    asset.materials = options.noMaterials ? 0 : asset.materials;
    asset.maxFileBytes = options.maxBytes > 0 ? options.maxBytes : asset.maxFileBytes;
    asset.maxLocations = options.maxLocations > 0 ? options.maxLocations : asset.maxLocations;
    return asset;
}

int showProgress(void* progress, float fraction) {
    static_cast<Progress*>(progress)->showFraction(static_cast<double>(fraction));
    return 1;
}

std::string importMessage(const std::string& asset, OvAssetImportResult& result) {
    result.message[sizeof(result.message) - 1] = '\0';
    const std::string message = result.message;
    const bool named = message.find(asset) != std::string::npos;
    return named ? message : asset + ": " + (message.empty() ? "the import failed" : message);
}

Attribute importScene(const OvAssetImporter& importer, const ImportOptions& options) {
    const OvAssetImportOptions asset = assetOptions(importer, options);
    OvAssetImportResult result{};
    Progress progress("importing " + options.asset);
    const std::int32_t done = importer.importAsset(
        Attribute::_attrSuite, options.asset.c_str(), &asset, showProgress, &progress, &result);
    Attribute scene = Attribute::adopt(result.scene);
    if (done == 0 || !scene) {
        throw CommandError(ExitStatus::ImportFailed, importMessage(options.asset, result));
    }
    return scene;
}

std::int64_t countLocations(const SceneFile& scene) {
    VisitLimit limit(scene.name);
    std::int64_t count = 0;
    for (SceneWalk walk(topLocation(scene), "", limit); !walk.atEnd(); walk.next()) {
        ++count;
    }
    return count;
}

const OvAssetImporter& findImporter(const ImportOptions& options) {
    std::vector<std::string> folders;
    appendFolders(folders, options.pluginPath);
    searchPlugins(std::move(folders));
    return findAssetImporter(options.asset);
}

void runImport(const ImportOptions& options, Output& output) {
    static_cast<void>(InputFile(options.asset));  // throws when it is unreadable
    requireWritablePlace(options.output);
    SceneFile scene{
        options.asset, importScene(findImporter(options), options), AttributeContent::StaticScene};
    const std::int64_t locations = countLocations(scene);
    const std::int64_t bytes = writeSceneFile(scene.attribute, scene.content, options.output);
    if (!isOrdinaryFile(options.output)) {
        return;
    }
    output.write(safeText(options.output) + ": " + counted(locations, "location") + ", " +
                 counted(bytes, "byte") + "\n");
}

void addKinds(CLI::App& command, ImportOptions& options) {
    command.add_flag("--no-lights", options.noLights, "Leave lights out");
    command.add_flag("--no-cameras", options.noCameras, "Leave cameras out");
    command.add_flag("--no-materials", options.noMaterials, "Leave materials out");
}

void addLimits(CLI::App& command, ImportOptions& options) {
    command.add_option("--max-bytes", options.maxBytes, "The largest asset file; 0: any size")
        ->check(isCount())
        ->option_text("N");
    command
        .add_option("--max-locations", options.maxLocations, "The most locations; 0: any number")
        ->check(isCount())
        ->option_text("N");
}

void addConversion(CLI::App& command, ImportOptions& options) {
    command
        .add_option(
            "--up-axis", options.upAxis, "The axis of the asset that points up; it becomes y")
        ->check(CLI::IsMember({"x", "y", "z"}))
        ->option_text("x|y|z");
    command.add_option("--unit-scale", options.unitScale, "Scene units for one unit of the asset")
        ->check(isPositive())
        ->option_text("N");
}

}  // namespace

void addImportCommand(CLI::App& app, Output& output) {
    const auto options = std::make_shared<ImportOptions>();
    CLI::App* command = app.add_subcommand("import", "Turns an asset file into a static scene");
    command->add_option("ASSET", options->asset, "The asset: obj, gltf, glb, fbx, dae, ply, ...")
        ->required();
    command
        ->add_option("OUT",
                     options->output,
                     "The file to write: text when its name ends in .json,\n"
                     "binary otherwise")
        ->required();
    addConversion(*command, *options);
    addKinds(*command, *options);
    addLimits(*command, *options);
    command
        ->add_option("--plugin-path",
                     options->pluginPath,
                     "Folders to look for plug-ins in, with colons between\nthem")
        ->option_text("FOLDERS");
    command->footer(
        "Axis and scale are as the asset says unless they are given. An importer plug-in is\n"
        "looked for in --plugin-path, in --plugins, in the folders of OVSCENE_PLUGIN_PATH, and in\n"
        "the plug-ins folder that this program was installed with; the first one that takes the\n"
        "asset's extension is used.\n\n"
        "Examples:\n"
        "  ovscene import chair.glb chair.optree\n"
        "  ovscene import scan.ply scan.optree.json --up-axis z --unit-scale 0.01");
    command->callback([options, &output] { runImport(*options, output); });
}

}  // namespace ovscene
