// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// A pattern for one name of a path: "*" any bytes, "?" one byte, "[a-z]" one of these, "[!a-z]"
/// one that is not. Immutable; any thread.
class NamePattern {
public:
    /// The patterns that a text stands for: one, or with "{a,b}" in it one for each choice. Those
    /// that match no name at all are left out. Throws `OpError` for brackets and braces that do not
    /// close, and for braces that stand for more than 1024 texts.
    static std::vector<NamePattern> alternativesOf(std::string_view text);

    /// Takes time in proportion to the pattern's length times the name's at most.
    bool matches(std::string_view name) const;

    bool isLiteral() const { return prefix_ == text_.size(); }
    bool matchesEveryName() const;

    const std::string& text() const { return text_; }
    /// How many bytes of the text stand for themselves at its front, and how many of those behind
    /// these at its end. All that it matches begins and ends with them.
    std::size_t prefix() const { return prefix_; }
    std::size_t suffix() const { return suffix_; }

private:
    explicit NamePattern(std::string text);

    bool matchesNoName() const;

    std::string text_;
    std::size_t prefix_ = 0;
    std::size_t suffix_ = 0;
};

}  // namespace Sylvar3::internal::OvSylvar::Embedded
