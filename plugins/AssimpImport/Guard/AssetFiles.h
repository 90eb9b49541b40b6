// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <assimp/DefaultIOSystem.h>

#include <cstdint>

namespace AssimpImport {

/// Opens an asset and the files that it refers to. What is no plain file (a pipe would never end)
/// or is larger than the limit counts as missing.
class AssetFiles : public Assimp::DefaultIOSystem {
public:
    /// 0: no limit.
    explicit AssetFiles(std::int64_t maxFileBytes) noexcept : maxFileBytes_(maxFileBytes) {}

    bool Exists(const char* filename) const override;
    Assimp::IOStream* Open(const char* filename, const char* mode) override;

private:
    std::int64_t maxFileBytes_;
};

}  // namespace AssimpImport
