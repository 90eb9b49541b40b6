// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/Attribute.h>

#include <cstddef>
#include <string>

/// Attributes in words for people: safe text, on one line.
namespace ovscene {

using Sylvar3::internal::OvAttribute::Attribute;

/// "int", "float", "double", "string", "group" or "null".
const char* kindName(const Attribute& attribute);

/// The kind with its extent: "string", "int x 12", "float[3] x 8" (8 tuples of 3 values),
/// "group (4)", "group (4, inherit)".
std::string kindText(const Attribute& attribute);

/// The number of time samples, with their times unless there is just one at time 0; empty for
/// what is no data attribute.
std::string samplesText(const Attribute& attribute);

/// The values of the sample nearest time 0, tuples in parentheses and strings in quotes; "..."
/// ends what does not fit into `columns`.
std::string valuesText(const Attribute& attribute, std::size_t columns);

}  // namespace ovscene
