// SPDX-License-Identifier: Apache-2.0
#include "Commands/RendererPlugin.h"

#include "Commands/NearName.h"
#include "ExitStatus.h"
#include "Scene/PluginTables.h"

#include <algorithm>

namespace ovscene {
namespace {

constexpr char kApi[] = OV_RENDERER_API_NAME;
constexpr unsigned kVersion = OV_RENDERER_API_VERSION;

/// Why the table of a plug-in cannot be used; "" when it can.
std::string faultOf(const std::string& name, const OvRenderer* table) {
    if (!table) {
        return pluginFault(name);
    }
    if (table->size < sizeof(OvRenderer)) {
        return "its table claims a size of " + std::to_string(table->size) + " bytes instead of " +
               std::to_string(sizeof(OvRenderer));
    }
    return table->render ? "" : "it has no render";
}

const OvRenderer* usableTable(const std::string& name) {
    const auto* const table = static_cast<const OvRenderer*>(pluginTable(name, kApi, kVersion));
    const std::string fault = faultOf(name, table);
    if (!table || !fault.empty()) {
        throw CommandError(ExitStatus::PluginUnusable,
                           "the renderer '" + name + "' cannot be used: " + fault);
    }
    return table;
}

std::string onlyOne(const std::vector<std::string>& names) {
    if (names.size() != 1) {
        throw CommandError(ExitStatus::Usage, "--renderer is required; " + thereAre(names));
    }
    return names.front();
}

}  // namespace

std::vector<std::string> rendererNames() {
    std::vector<std::string> names = pluginNames(kApi, kVersion);
    if (names.empty()) {
        throwNoPlugin("renderer");
    }
    return names;
}

Renderer findRenderer(const std::string& name) {
    const std::vector<std::string> names = rendererNames();
    const std::string wanted = name.empty() ? onlyOne(names) : name;
    if (std::find(names.begin(), names.end(), wanted) == names.end()) {
        throw CommandError(ExitStatus::PluginUnusable, unknownName("renderer", wanted, names));
    }
    return {wanted, usableTable(wanted)};
}

std::string aboutRenderer(const std::string& name) {
    try {
        const char* const about = usableTable(name)->about;
        return about ? about : "";
    } catch (const CommandError& error) {
        return error.what();
    }
}

}  // namespace ovscene
