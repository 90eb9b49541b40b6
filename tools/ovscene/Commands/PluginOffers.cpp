// SPDX-License-Identifier: Apache-2.0
#include "Commands/PluginOffers.h"

#include <SylvarPlatform/suites/AssetImporter.h>
#include <SylvarPlatform/suites/OpType.h>
#include <SylvarPlatform/suites/RuntimeSuite.h>

#include "Commands/RendererPlugin.h"
#include "Print/JoinedText.h"
#include "Scene/LocationDelegates.h"
#include "Scene/PluginTables.h"

#include <algorithm>
#include <vector>

namespace ovscene {
namespace {

/// The first one that has a table cooks.
PluginOffer offerOfRuntime(const std::string& name, const void* /*table*/) {
    const std::vector<std::string> names = pluginNames(OV_RUNTIME_API_NAME, OV_RUNTIME_API_VERSION);
    const auto first = std::find_if(names.begin(), names.end(), [](const std::string& one) {
        return pluginTable(one, OV_RUNTIME_API_NAME, OV_RUNTIME_API_VERSION) != nullptr;
    });
    const bool isFirst = first != names.end() && *first == name;
    return {isFirst ? "cooks the scenes here" : "not used: another one comes first", {}};
}

PluginOffer offerOfOpType(const std::string& /*name*/, const void* table) {
    const auto& type = *static_cast<const OvOpType*>(table);
    if (type.version != OV_OP_TYPE_API_VERSION || !type.schema) {
        return {"nothing: its table has another version, or no schema", {}};
    }
    return {type.schema->about ? type.schema->about : "", {}};
}

PluginOffer offerOfImporter(const std::string& /*name*/, const void* table) {
    const auto& importer = *static_cast<const OvAssetImporter*>(table);
    if (importer.version != OV_ASSET_IMPORTER_VERSION) {
        return {"nothing: its table has another version", {}};
    }
    std::vector<std::string> extensions;
    for (const char* const* one = importer.extensions; one && *one; ++one) {
        extensions.emplace_back(*one);
    }
    return {"imports " + joined(extensions), {}};
}

PluginOffer offerOfRenderer(const std::string& name, const void* /*table*/) {
    return {aboutRenderer(name), {name}};
}

PluginOffer offerOfDelegate(const std::string& /*name*/, const void* table) {
    const DelegateAnswer answer = askDelegate(*static_cast<const OvLocationDelegate*>(table));
    if (!answer.fault.empty()) {
        return {"nothing: " + answer.fault, {}};
    }
    const std::string renderer = answer.renderer.empty() ? "any renderer" : answer.renderer;
    const std::string types = answer.types.empty() ? "no type" : joined(answer.types);
    return {"for " + renderer + ": " + types, {answer.renderer}};
}

/// An API that this program or the library asks plug-ins for.
struct KnownApi {
    const char* name;
    int version;
    const char* about;
    PluginOffer (*offer)(const std::string& name, const void* table);
};

constexpr KnownApi kKnownApis[] = {
    {OV_RUNTIME_API_NAME,
     OV_RUNTIME_API_VERSION,
     "A runtime: cooks the locations of op trees. The first one that can be used is taken for all "
     "scenes; the platform's own comes last.",
     offerOfRuntime},
    {OV_OP_TYPE_API_NAME,
     OV_OP_TYPE_API_VERSION,
     "An op type: what ops of the plug-in's name do in op trees. 'ovscene ops' tells more.",
     offerOfOpType},
    {OV_ASSET_IMPORTER_API_NAME,
     OV_ASSET_IMPORTER_VERSION,
     "An importer: turns asset files into static scenes. 'ovscene import' asks the first one that "
     "takes the file's extension.",
     offerOfImporter},
    {OV_RENDERER_API_NAME,
     OV_RENDERER_API_VERSION,
     "A renderer: is handed a scene and walks it. 'ovscene render' asks for one by its name.",
     offerOfRenderer},
    {OV_LOCATION_DELEGATE_API_NAME,
     OV_LOCATION_DELEGATE_API_VERSION,
     "A location delegate: handles locations of some types in a renderer's place. Renderers ask "
     "for one by type and by their name; of two for the same the first one is taken.",
     offerOfDelegate}};

/// In any version; null when there is none.
const KnownApi* findApi(const std::string& name) {
    for (const KnownApi& api : kKnownApis) {
        if (name == api.name) {
            return &api;
        }
    }
    return nullptr;
}

}  // namespace

std::string aboutApi(const std::string& api, int version) {
    const KnownApi* const known = findApi(api);
    if (!known) {
        return "Not known here: it is between the plug-in and a host that asks for it.";
    }
    return known->version == version ? known->about
                                     : "Not asked for here, where version " +
                                           std::to_string(known->version) + " is known.";
}

PluginOffer offerOf(const ListedPlugin& plugin) {
    const void* const table =
        pluginTable(plugin.name, plugin.api.c_str(), static_cast<unsigned>(plugin.version));
    if (!table) {
        return {"nothing: it is rejected", {}};
    }
    const KnownApi* const known = findApi(plugin.api);
    return known && known->version == plugin.version ? known->offer(plugin.name, table)
                                                     : PluginOffer();
}

}  // namespace ovscene
