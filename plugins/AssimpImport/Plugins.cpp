// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/suites/AssetImporter.h>
#include <SylvarPlatform/suites/OpType.h>
#include <SylvarPlatform/suites/Plugin.h>

#include "AssetImporterTable.h"
#include "Op/ImportOp.h"

#include <iterator>

namespace {

OvPluginStruct plugins[] = {{sizeof(OvPluginStruct),
                             OV_PLUGIN_VERSION,
                             "AssimpImport",
                             OV_ASSET_IMPORTER_API_NAME,
                             OV_ASSET_IMPORTER_VERSION,
                             0,
                             nullptr,
                             AssimpImport::assetImporter,
                             nullptr},
                            {sizeof(OvPluginStruct),
                             OV_PLUGIN_VERSION,
                             "import",
                             OV_OP_TYPE_API_NAME,
                             OV_OP_TYPE_API_VERSION,
                             0,
                             AssimpImport::setImportOpHost,
                             AssimpImport::importOpType,
                             nullptr}};

constexpr std::int32_t kCount = std::size(plugins);

}  // namespace

OV_PLUGIN_EXPORT std::int32_t OvGetPluginCount();
OV_PLUGIN_EXPORT OvPluginStruct* OvGetPlugin(std::int32_t index);

std::int32_t OvGetPluginCount() {
    return kCount;
}

OvPluginStruct* OvGetPlugin(std::int32_t index) {
    return index >= 0 && index < kCount ? &plugins[index] : nullptr;
}
