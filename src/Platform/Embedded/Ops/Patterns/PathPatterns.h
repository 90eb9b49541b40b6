// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Ops/Patterns/PatternTree.h"

#include <string>
#include <string_view>
#include <vector>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// A list of path patterns, compiled once. A pattern is a path of name patterns, none empty; "**"
/// in place of a name spans any number of names, none included; braces "{a,b}" in a name stand for
/// one of these texts. A leading "!" takes away what earlier patterns of the list match; of all
/// that match a path the last one decides.
///
/// Paths are those of locations, or "" for what is above the top locations. An answer takes a few
/// look-ups for each name of the path, whatever the number of patterns, unless many of these have
/// the same literal bytes in front and at the end, or none: those are tried one by one. It is never
/// worse than in proportion to the path's text times that of all patterns. It allocates nothing
/// for lists of up to some thousand patterns.
///
/// Takes memory in proportion to the patterns' text, with its braces taken apart: to 1024 texts for
/// a name, and to 16 MiB for a list. Immutable; any thread.
class PathPatterns {
public:
    /// Throws `OpError`, 'pattern "/a[": a "[" without its "]"', with the pattern and what is wrong
    /// with it.
    explicit PathPatterns(const std::vector<std::string>& patterns);

    /// Whether the list matches the location. False for "".
    bool matches(std::string_view path) const;

    /// Whether the location is part of what the list matches, with all below it: of the locations
    /// at and above `path` the nearest for which some pattern matches, or takes away, decides.
    /// False for "".
    bool isWithinMatch(std::string_view path) const;

    /// Whether the list could match a location strictly below `path`. False only if it matches
    /// none, whatever locations there are; then it is false for all below, too. A list without "!"
    /// is told exactly. Of the patterns that take away, those count that take away all below by
    /// themselves, as with "/**", "/**/*" or "/*/**" behind a beginning that matches `path` or what
    /// is above it; where only several together do so the answer is true.
    bool canMatchBelow(std::string_view path) const;

private:
    PatternTree tree_;
};

}  // namespace Sylvar3::internal::OvSylvar::Embedded
