// SPDX-License-Identifier: Apache-2.0
#include "Print/LocationHeading.h"

#include "Print/SafeText.h"
#include "Print/Terminal.h"

namespace ovscene {

void printLocationHeading(const std::string& path, const std::string& type, Output& output) {
    constexpr std::size_t kLongestType = 60;
    const Palette palette;
    const std::string kind = safeText(type, kLongestType);
    output.write(palette.bold(safeText(path)) + (kind.empty() ? "" : "  ") + palette.type(kind) +
                 "\n\n");
}

}  // namespace ovscene
