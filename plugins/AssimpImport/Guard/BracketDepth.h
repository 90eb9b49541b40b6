// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <cstdint>

namespace AssimpImport {

/// How deep one kind of bracket nests outside quoted text, byte by byte.
class BracketDepth {
public:
    BracketDepth(char open, char close, char quote) noexcept
        : open_(open), close_(close), quote_(quote) {}

    void take(char c) noexcept {
        quoted_ = quoted_ != (c == quote_);
        if (!quoted_ && c == open_) {
            deepest_ = std::max(deepest_, ++depth_);
        } else if (!quoted_ && c == close_ && depth_ > 0) {
            --depth_;
        }
    }

    std::int64_t depth() const noexcept { return deepest_; }

private:
    char open_;
    char close_;
    char quote_;
    bool quoted_ = false;
    std::int64_t depth_ = 0;
    std::int64_t deepest_ = 0;
};

}  // namespace AssimpImport
