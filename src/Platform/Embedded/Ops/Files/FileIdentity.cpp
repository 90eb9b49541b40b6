// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/Files/FileIdentity.h"

#include <sys/stat.h>

namespace Sylvar3::internal::OvSylvar::Embedded {

namespace {

/// One after the other, each with a blank behind it; none of a file that is not there.
std::string numbersOf(const std::string& path) {
    struct stat status = {};
    if (stat(path.c_str(), &status) != 0) {
        return {};
    }
    std::string numbers;
    for (const auto number : {static_cast<unsigned long long>(status.st_size),
                              static_cast<unsigned long long>(status.st_mtim.tv_sec),
                              static_cast<unsigned long long>(status.st_mtim.tv_nsec),
                              static_cast<unsigned long long>(status.st_dev),
                              static_cast<unsigned long long>(status.st_ino)}) {
        numbers += std::to_string(number) + ' ';
    }
    return numbers;
}

}  // namespace

FileIdentity::FileIdentity(const std::string& path) : text_(numbersOf(path) + ": " + path) {}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
