// SPDX-License-Identifier: Apache-2.0
#include "AssetImporterTable.h"

#include <SylvarPlatform/suites/AssetImporter.h>

#include "AssetFormat.h"
#include "ImportError.h"
#include "ImportRequest.h"
#include "Scene/SceneImport.h"

#include <cstdio>
#include <exception>
#include <new>

namespace AssimpImport {
namespace {

void tellFailure(OvAssetImportResult& result, const char* filename, const char* reason) noexcept {
    const char* name = filename ? filename : "";
    std::snprintf(result.message, sizeof result.message, "Cannot import \"%s\": %s.", name, reason);
}

SuiteHandle importFrom(const OvAttributeSuite* suite,
                       const char* filename,
                       const OvAssetImportOptions* options,
                       OvImportProgress progress,
                       void* progressContext) {
    if (!suite || !filename || *filename == '\0') {
        throw ImportError(suite ? "no file is named" : "no attribute suite is given");
    }
    const OvAssetImportOptions& wanted = options ? *options : kDefaultOptions;
    return importScene({*suite, filename, wanted, progress, progressContext});
}

void setDefaults(OvAssetImportOptions* options) {
    if (options) {
        *options = kDefaultOptions;
    }
}

std::int32_t importAsset(const OvAttributeSuite* suite,
                         const char* filename,
                         const OvAssetImportOptions* options,
                         OvImportProgress progress,
                         void* progressContext,
                         OvAssetImportResult* result) {
    if (!result) {
        return 0;
    }
    *result = {};
    try {
        result->scene = importFrom(suite, filename, options, progress, progressContext).detach();
        return 1;
    } catch (const std::bad_alloc&) {
        tellFailure(*result, filename, "there is not enough memory");
    } catch (const std::exception& error) {
        tellFailure(*result, filename, error.what());
    } catch (...) {
        tellFailure(*result, filename, "it failed for an unknown reason");
    }
    return 0;
}

const OvAssetImporter kImporter = {OV_ASSET_IMPORTER_VERSION,
                                   kAssetExtensions,
                                   setDefaults,
                                   importAsset};

}  // namespace

const void* assetImporter() {
    return &kImporter;
}

}  // namespace AssimpImport
