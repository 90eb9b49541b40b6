// SPDX-License-Identifier: Apache-2.0
#include "Guard/JsonDepth.h"

#include <algorithm>

namespace AssimpImport {
namespace {

constexpr char kChildren[] = "children";
constexpr std::int64_t kChildrenLength = sizeof kChildren - 1;

}  // namespace

void JsonDepth::take(char c) noexcept {
    if (inString_) {
        takeInString(c);
    } else {
        takeOutside(c);
    }
}

void JsonDepth::takeInString(char c) noexcept {
    if (escaped_) {
        escaped_ = false;
    } else if (c == '\\') {
        escaped_ = true;
        hasEscape_ = true;
    } else if (c == '"') {
        inString_ = false;
        childLists_ += hasEscape_ || length_ == kChildrenLength ? 1 : 0;
    } else {
        const bool agrees = length_ >= 0 && length_ < kChildrenLength && kChildren[length_] == c;
        length_ = agrees ? length_ + 1 : -1;
    }
}

void JsonDepth::takeOutside(char c) noexcept {
    if (c == '"') {
        inString_ = true;
        hasEscape_ = false;
        length_ = 0;
    } else if (c == '[' || c == '{') {
        deepest_ = std::max(deepest_, ++depth_);
    } else if ((c == ']' || c == '}') && depth_ > 0) {
        --depth_;
    }
}

}  // namespace AssimpImport
