// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/FileIdentity.h"

#include <sys/stat.h>

namespace Sylvar3::internal::OvSylvar::Embedded {

FileIdentity::FileIdentity(const std::string& path) : text_(path + '\0') {
    struct stat status = {};
    if (stat(path.c_str(), &status) != 0) {
        return;
    }
    for (const auto number : {static_cast<unsigned long long>(status.st_size),
                              static_cast<unsigned long long>(status.st_mtim.tv_sec),
                              static_cast<unsigned long long>(status.st_mtim.tv_nsec),
                              static_cast<unsigned long long>(status.st_dev),
                              static_cast<unsigned long long>(status.st_ino)}) {
        text_ += std::to_string(number) + ' ';
    }
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
