// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Utils/OvRenderOutputUtilsHost/ImagePath.h"

#include <string>
#include <vector>

namespace SYLVAR {

/// The texts that make up the name of a tile's file.
struct TileName {
    /// `tile` has at least a column and a row.
    TileName(const ImagePath& image, const std::vector<int>& tile);

    std::string column;
    std::string row;
    std::string columns = "UnknownColumns";
    std::string rows = "UnknownRows";
    std::string stem;
    std::string extension;
    std::string usual;  ///< The whole name where no template is set.
    bool isCountKnown;
};

}  // namespace SYLVAR
