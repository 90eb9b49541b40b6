// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/Attribute.h>

#include "Print/Output.h"

#include <string>

namespace ovscene {

/// An attribute and all that is nested in it, a line for each: name, kind, samples, and as many
/// values as fit. Without a name, a group's children are listed in place of the group. "no
/// attributes" for null. Throws InputMalformed for what expands to more than the visit limit.
void printAttributeLines(const Sylvar3::internal::OvAttribute::Attribute& attribute,
                         const std::string& name,
                         const std::string& filename,
                         Output& output);

}  // namespace ovscene
