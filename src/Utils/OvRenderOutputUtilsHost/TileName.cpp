// SPDX-License-Identifier: Apache-2.0
#include "Utils/OvRenderOutputUtilsHost/TileName.h"

namespace SYLVAR {

TileName::TileName(const ImagePath& image, const std::vector<int>& tile)
    : column(std::to_string(tile[0])),
      row(std::to_string(tile[1])),
      stem(image.stem),
      extension(image.extension),
      usual("tile_" + column + "_" + row + "." + stem + extension),
      isCountKnown(tile.size() >= 4) {
    if (isCountKnown) {
        columns = std::to_string(tile[2]);
        rows = std::to_string(tile[3]);
    }
}

}  // namespace SYLVAR
