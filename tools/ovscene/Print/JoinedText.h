// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

namespace ovscene {

/// The texts in their order, with `between` from one to the next.
std::string joined(const std::vector<std::string>& texts, const char* between = ", ");

}  // namespace ovscene
