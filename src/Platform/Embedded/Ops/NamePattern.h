// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <bitset>
#include <string>
#include <string_view>
#include <vector>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// A pattern for one name of a path: "*" any bytes, "?" one byte, "[a-z]" one of these, "[!a-z]"
/// one that is not, "{a,b}" one of these texts. "**" alone stands for any number of names.
class NamePattern {
public:
    /// Throws `OpError` for brackets and braces that do not close, and for braces that stand for
    /// too many texts.
    explicit NamePattern(std::string_view text);

    bool spansNames() const { return spansNames_; }
    bool matches(std::string_view name) const;

private:
    /// One byte of a set, or any number of any bytes.
    struct Piece {
        bool isAnyText = false;
        std::bitset<256> bytes;
    };
    using Pieces = std::vector<Piece>;

    static Pieces compile(std::string_view text);
    static bool matches(const Pieces& pieces, std::string_view name);

    bool spansNames_ = false;
    std::string literal_;  ///< A pattern without any of the above; then there are no alternatives.
    std::vector<Pieces> alternatives_;
};

}  // namespace Sylvar3::internal::OvSylvar::Embedded
