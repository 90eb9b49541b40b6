// SPDX-License-Identifier: Apache-2.0
#include "Utils/OvRenderOutputUtilsHost/ImagePath.h"

namespace SYLVAR {

static_assert(BOOST_FILESYSTEM_VERSION == 3, "Later versions divide and join paths otherwise.");

ImagePath dividedPath(const std::string& path) {
    if (path.find_first_not_of('/') == std::string::npos) {
        return {path, "", ""};
    }
    const boost::filesystem::path whole = path;
    return {whole.parent_path(), whole.stem().string(), whole.extension().string()};
}

}  // namespace SYLVAR
