// SPDX-License-Identifier: Apache-2.0
#include "Guard/TextCheck.h"

#include "Guard/OffText.h"
#include "Guard/PlyHeader.h"

#include <algorithm>
#include <fstream>

namespace AssimpImport {
namespace {

constexpr std::int64_t kHeaderBytes = 1 << 16;

std::string readStart(const std::string& filename, std::int64_t size) {
    std::string text(static_cast<std::size_t>(size), '\0');
    std::ifstream file(filename, std::ios::binary);
    file.read(text.data(), size);
    text.resize(static_cast<std::size_t>(file.gcount()));
    return text;
}

}  // namespace

void checkText(const std::string& filename, const AssetFormat& format, std::int64_t size) {
    const std::string extension = format.extension;
    if (extension == "ply") {
        checkPlyHeader(readStart(filename, std::min(size, kHeaderBytes)), size);
    } else if (extension == "off") {
        checkOffText(readStart(filename, size));
    }
}

}  // namespace AssimpImport
