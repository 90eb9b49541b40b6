// SPDX-License-Identifier: Apache-2.0
#include "Guard/AssetFiles.h"

#include <cstring>

#include <sys/stat.h>

namespace AssimpImport {

bool AssetFiles::Exists(const char* filename) const {
    struct stat status = {};
    return stat(filename, &status) == 0 && S_ISREG(status.st_mode) &&
           (maxFileBytes_ == 0 || status.st_size <= maxFileBytes_);
}

Assimp::IOStream* AssetFiles::Open(const char* filename, const char* mode) {
    const bool reads = std::strchr(mode, 'r') != nullptr;
    return reads && Exists(filename) ? DefaultIOSystem::Open(filename, mode) : nullptr;
}

}  // namespace AssimpImport
