// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Print/Output.h"

#include <string>

namespace ovscene {

/// A line with a location's path and its type, or what else it is, and an empty line below.
void printLocationHeading(const std::string& path, const std::string& type, Output& output);

}  // namespace ovscene
