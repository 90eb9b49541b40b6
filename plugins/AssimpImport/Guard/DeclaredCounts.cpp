// SPDX-License-Identifier: Apache-2.0
#include "Guard/DeclaredCounts.h"

#include <cstdlib>
#include <fstream>
#include <sstream>

#include "ImportError.h"

namespace AssimpImport {
namespace {

constexpr std::size_t kHeaderBytes = 1 << 16;

std::string readHeader(const std::string& filename) {
    std::string header(kHeaderBytes, '\0');
    std::ifstream file(filename, std::ios::binary);
    file.read(header.data(), static_cast<std::streamsize>(header.size()));
    header.resize(static_cast<std::size_t>(file.gcount()));
    return header;
}

void checkCount(const std::string& digits, std::int64_t size) {
    if (std::strtoull(digits.c_str(), nullptr, 10) > static_cast<unsigned long long>(size)) {
        throw ImportError("its header announces " + digits + " elements, more than it can hold");
    }
}

void checkPly(const std::string& header, std::int64_t size) {
    std::istringstream words(header);
    std::string word;
    while (words >> word && word != "end_header") {
        std::string name;
        std::string count;
        if (word == "element" && words >> name >> count) {
            checkCount(count, size);
        }
    }
}

std::string withoutComments(const std::string& text) {
    std::string kept;
    bool comment = false;
    for (const char c : text) {
        comment = c == '#' || (comment && c != '\n' && c != '\r');
        kept += comment ? ' ' : c;
    }
    return kept;
}

void checkOff(const std::string& header, std::int64_t size) {
    std::string text = withoutComments(header);
    int counts = 2;
    const std::size_t mark = text.substr(0, 64).find("OFF");
    if (mark != std::string::npos) {
        counts += text.substr(0, mark).find('n') == std::string::npos ? 0 : 1;
        text.erase(0, mark + 3);
    }
    std::istringstream words(text);
    for (std::string word; counts > 0 && words >> word; --counts) {
        checkCount(word, size);
    }
}

}  // namespace

void checkDeclaredCounts(const std::string& filename,
                         const AssetFormat& format,
                         std::int64_t size) {
    const std::string extension = format.extension;
    if (extension == "ply") {
        checkPly(readHeader(filename), size);
    } else if (extension == "off") {
        checkOff(readHeader(filename), size);
    }
}

}  // namespace AssimpImport
