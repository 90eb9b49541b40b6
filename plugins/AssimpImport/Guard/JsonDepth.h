// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

namespace AssimpImport {

/// How deep a glTF document can nest, byte by byte: its brackets, and its node tree, which is no
/// deeper than the number of lists of children. A name with an escape counts as such a list.
class JsonDepth {
public:
    void take(char c) noexcept;

    std::int64_t depth() const noexcept { return deepest_ + childLists_; }

private:
    void takeInString(char c) noexcept;
    void takeOutside(char c) noexcept;

    bool inString_ = false;
    bool escaped_ = false;     ///< The next byte of the string stands for itself.
    bool hasEscape_ = false;   ///< The string holds an escape.
    std::int64_t length_ = 0;  ///< Bytes of the string that agree with "children"; -1: it differs.
    std::int64_t depth_ = 0;
    std::int64_t deepest_ = 0;
    std::int64_t childLists_ = 0;
};

}  // namespace AssimpImport
