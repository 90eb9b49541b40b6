// SPDX-License-Identifier: Apache-2.0
#include "Filters/FileStream.h"

#include <stdexcept>

#include <sys/stat.h>

namespace SYLVAR {

bool fileExists(const std::string& filename) {
    struct stat status = {};
    return ::stat(filename.c_str(), &status) == 0;
}

std::ifstream openFile(const std::string& filename) {
    std::ifstream file(filename, std::ios::in | std::ios::binary);
    if (!file.is_open()) {
        throw std::runtime_error("Error opening file: " + filename);
    }
    return file;
}

long readFromFile(void* stream, void* buffer, long size) {
    std::ifstream& file = *static_cast<std::ifstream*>(stream);
    file.read(static_cast<char*>(buffer), size);
    return static_cast<long>(file.gcount());
}

}  // namespace SYLVAR
