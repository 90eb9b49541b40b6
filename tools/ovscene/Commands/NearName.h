// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

namespace ovscene {

/// The name that was probably meant: the one with the fewest letters to change, add or leave out,
/// up to a third of its length; empty when none is that near.
std::string nearName(const std::string& written, const std::vector<std::string>& names);

}  // namespace ovscene
