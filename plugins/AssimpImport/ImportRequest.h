// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/suites/AssetImporter.h>

#include <string>

namespace AssimpImport {

/// Everything on, no limits, as the file says.
constexpr OvAssetImportOptions kDefaultOptions = {0, 0.0, 1, 1, 1, 0, 0};

/// One call of the importer.
struct ImportRequest {
    const OvAttributeSuite& suite;
    std::string filename;
    OvAssetImportOptions options = kDefaultOptions;
    OvImportProgress progress = nullptr;  ///< May be null.
    void* progressContext = nullptr;
};

/// Throws `ImportError` for an option out of its range.
void checkOptions(const OvAssetImportOptions& options);

}  // namespace AssimpImport
