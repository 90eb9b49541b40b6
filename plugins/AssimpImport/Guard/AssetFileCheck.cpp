// SPDX-License-Identifier: Apache-2.0
#include "Guard/AssetFileCheck.h"

#include "Guard/TextCheck.h"
#include "ImportError.h"

#include <cerrno>
#include <cstring>
#include <fstream>

#include <sys/stat.h>

namespace AssimpImport {
namespace {

const AssetFormat& takenFormat(const std::string& filename) {
    const AssetFormat* format = findAssetFormat(filename);
    if (!format) {
        throw ImportError("its extension is none of " + listAssetExtensions());
    }
    return *format;
}

std::int64_t plainFileSize(const std::string& filename) {
    struct stat status = {};
    if (stat(filename.c_str(), &status) != 0) {
        throw ImportError(errno == ENOENT ? "there is no such file" : std::strerror(errno));
    }
    if (S_ISDIR(status.st_mode)) {
        throw ImportError("it is a directory");
    }
    if (!S_ISREG(status.st_mode)) {
        throw ImportError("it is no plain file");
    }
    return status.st_size;
}

void checkSize(std::int64_t size, std::int64_t limit) {
    if (size == 0) {
        throw ImportError("it is empty");
    }
    if (limit > 0 && size > limit) {
        throw ImportError("it holds " + std::to_string(size) + " bytes, more than the limit of " +
                          std::to_string(limit));
    }
}

void checkReadable(const std::string& filename) {
    if (!std::ifstream(filename, std::ios::binary)) {
        throw ImportError("it cannot be read");
    }
}

}  // namespace

const AssetFormat& checkAssetFile(const ImportRequest& request) {
    const AssetFormat& format = takenFormat(request.filename);
    const std::int64_t size = plainFileSize(request.filename);
    checkSize(size, request.options.maxFileBytes);
    checkReadable(request.filename);
    checkText(request.filename, format, size);
    return format;
}

}  // namespace AssimpImport
