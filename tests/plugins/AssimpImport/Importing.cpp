// SPDX-License-Identifier: Apache-2.0
#include "plugins/AssimpImport/Importing.h"

#include <SylvarPlatform/PluginManager.h>

#include <cstdlib>
#include <fstream>
#include <iostream>

namespace importing {
namespace {

const OvAssetImporter* loadImporter() {
    using Sylvar3::internal::OvPluginManager::PluginManager;
    PluginManager::setSearchDirectories({OV_TEST_PLUGIN_DIR});
    const void* const suite = PluginManager::getPluginSuite(PluginManager::getPlugin(
        "AssimpImport", OV_ASSET_IMPORTER_API_NAME, OV_ASSET_IMPORTER_VERSION));
    if (!suite) {
        for (const auto& rejected : PluginManager::getRejectedPlugins()) {
            std::cerr << rejected.file << ": " << rejected.reason << '\n';
        }
        std::abort();
    }
    return static_cast<const OvAssetImporter*>(suite);
}

template <class Wanted, class Value>
std::vector<Value> valuesOf(const GroupAttribute& location, const std::string& name) {
    const auto attribute = attributeOf<Wanted>(location, name);
    std::vector<Value> values;
    for (std::int64_t i = 0; i < attribute.getNumberOfValues(); ++i) {
        values.push_back(attribute.getValue(Value(), i));
    }
    return values;
}

}  // namespace

const OvAssetImporter& importer() {
    static const OvAssetImporter* const table = loadImporter();
    return *table;
}

OvAssetImportOptions defaultOptions() {
    OvAssetImportOptions options;
    importer().defaultOptions(&options);
    return options;
}

Import importFile(const std::string& filename,
                  const OvAssetImportOptions& options,
                  OvImportProgress progress,
                  void* progressContext) {
    OvAssetImportResult result;
    importer().importAsset(
        OvGetAttributeSuite(), filename.c_str(), &options, progress, progressContext, &result);
    return {castAttribute<GroupAttribute>(result.scene), result.message};
}

std::string dataFile(const std::string& name) {
    return OV_TEST_SOURCE_DIR "/tests/plugins/AssimpImport/data/" + name;
}

std::string writeFile(const std::string& name, const std::string& content) {
    std::string filename = OV_TEST_OUTPUT_DIR "/" + name;
    std::ofstream(filename, std::ios::binary) << content;
    return filename;
}

std::string gltfTriangle(const std::string& buffer, int bufferSize) {
    return R"({"asset":{"version":"2.0"},"scene":0,"scenes":[{"nodes":[0]}],
"nodes":[{"name":"n","mesh":0}],"meshes":[{"primitives":[{"attributes":{"POSITION":0}}]}],
"accessors":[{"bufferView":0,"componentType":5126,"count":3,"type":"VEC3"}],
"bufferViews":[{"buffer":0,"byteLength":36}],
"buffers":[{"byteLength":)" +
           std::to_string(bufferSize) + R"(,"uri":")" + buffer + "\"}]}";
}

GroupAttribute locationAt(const GroupAttribute& scene, const std::string& path) {
    GroupAttribute location = scene;
    for (std::size_t start = 0; start < path.size();) {
        const std::size_t end = std::min(path.find('/', start), path.size());
        location = location.getChild<GroupAttribute>("c").getChild<GroupAttribute>(
            path.substr(start, end - start));
        start = end + 1;
    }
    return location;
}

std::string stringOf(const GroupAttribute& location, const std::string& name) {
    return attributeOf<StringAttribute>(location, name).getValue("");
}

double doubleOf(const GroupAttribute& location, const std::string& name) {
    return attributeOf<DoubleAttribute>(location, name).getValue(-1e9);
}

std::vector<double> doublesOf(const GroupAttribute& location, const std::string& name) {
    return valuesOf<DoubleAttribute, double>(location, name);
}

std::vector<float> floatsOf(const GroupAttribute& location, const std::string& name) {
    return valuesOf<FloatAttribute, float>(location, name);
}

std::vector<int> intsOf(const GroupAttribute& location, const std::string& name) {
    return valuesOf<IntAttribute, int>(location, name);
}

std::vector<std::string> childNames(const GroupAttribute& location) {
    const auto children = location.getChild<GroupAttribute>("c");
    std::vector<std::string> names;
    for (std::int64_t i = 0; i < children.getNumberOfChildren(); ++i) {
        names.push_back(children.getChildName(i));
    }
    return names;
}

std::vector<GroupAttribute> allLocations(const GroupAttribute& scene) {
    std::vector<GroupAttribute> locations = {scene};
    for (std::size_t i = 0; i < locations.size(); ++i) {
        const auto children = locations[i].getChild<GroupAttribute>("c");
        for (std::int64_t child = 0; child < children.getNumberOfChildren(); ++child) {
            locations.push_back(castAttribute<GroupAttribute>(children.getChildByIndex(child)));
        }
    }
    return locations;
}

}  // namespace importing
