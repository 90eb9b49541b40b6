// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/Locations/ChildNameCheck.h"

#include "Platform/Embedded/Runtime/Op.h"

#include <algorithm>
#include <string>

namespace Sylvar3::internal::OvSylvar::Embedded {

namespace {

/// A message ends at its first NUL.
std::string printable(std::string_view name) {
    std::string text;
    for (const char c : name) {
        text += c == '\0' ? std::string("\\x00") : std::string(1, c);
    }
    return text;
}

}  // namespace

void checkChildName(std::string_view name, std::string_view written) {
    if (name.empty() || name.find('/') != std::string_view::npos ||
        name.find('\0') != std::string_view::npos) {
        throw OpError("the child \"" + printable(written) + "\" has a name that no path can hold");
    }
}

void checkForTwins(std::vector<std::string_view> names) {
    std::sort(names.begin(), names.end());
    const auto twin = std::adjacent_find(names.begin(), names.end());
    if (twin != names.end()) {
        throw OpError("two children are named \"" + std::string(*twin) + "\"");
    }
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
