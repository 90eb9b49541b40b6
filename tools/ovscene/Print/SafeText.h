// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Texts of unknown origin, made fit for a terminal and for JSON.
namespace ovscene {

/// Valid UTF-8 that shows what it says: control characters (those of C1, of line separation and of
/// writing direction too) and bytes that are not UTF-8 are written as \xHH, byte by byte. A
/// backslash that would read as such an escape is written as \x5C.
std::string safeText(std::string_view text);

/// The same for the first `columns` columns; "..." ends what was cut.
std::string safeText(std::string_view text, std::size_t columns);

/// The number of columns that a safe text takes: one for each character.
std::size_t displayWidth(std::string_view safe);

}  // namespace ovscene
