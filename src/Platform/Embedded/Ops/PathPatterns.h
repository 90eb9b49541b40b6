// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Ops/NamePattern.h"

#include <string>
#include <string_view>
#include <vector>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// A list of path patterns, compiled once. A pattern is a path of name patterns, none empty; "**"
/// in place of a name spans any number of names, none included. A leading "!" takes away what
/// earlier patterns of the list match; of all that match a path the last one decides.
///
/// Immutable; any thread.
class PathPatterns {
public:
    /// Throws `OpError` with the pattern and what is wrong with it.
    explicit PathPatterns(const std::vector<std::string>& patterns);

    /// Takes time in proportion to the patterns' names times the path's.
    bool matches(std::string_view path) const;

private:
    struct Pattern {
        bool takesAway = false;
        std::vector<NamePattern> names;

        bool matches(const std::vector<std::string_view>& path) const;
    };

    std::vector<Pattern> patterns_;
};

}  // namespace Sylvar3::internal::OvSylvar::Embedded
