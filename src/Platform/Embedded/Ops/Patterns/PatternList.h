// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Ops/Patterns/PatternTree.h"

#include <string>
#include <string_view>
#include <vector>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// The pattern that a text stands for. Throws `OpError`.
using ReadPattern = PathPattern (*)(std::string_view text);

/// Reads a list of patterns. Throws `OpError`, 'pattern "/a[": a "[" without its "]"', with the
/// `kind` and the text that cannot be read, or its first 200 bytes; as well when the braces of the
/// list stand for more than 16 MiB.
std::vector<PathPattern> readPatterns(const char* kind,
                                      const std::vector<std::string>& texts,
                                      ReadPattern read);

}  // namespace Sylvar3::internal::OvSylvar::Embedded
