// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

namespace AssimpImport {

/// How deep the elements of an XML document nest, byte by byte. Null bytes are passed over, so that
/// 16-bit encodings are measured too.
class XmlDepth {
public:
    void take(char c) noexcept;

    std::int64_t depth() const noexcept { return deepest_; }

private:
    enum class State { Text, Mark, Open, Close, Special, Comment, Data };

    State next(char c) noexcept;
    State afterMark(char c) noexcept;
    State insideOpen(char c) noexcept;
    State insideSpecial(char c) noexcept;
    State untilPair(char c, char pair, State here) const noexcept;
    void leave() noexcept;

    State state_ = State::Text;
    char quote_ = 0;
    char last_ = 0;
    char beforeLast_ = 0;
    std::int64_t depth_ = 0;
    std::int64_t deepest_ = 0;
};

}  // namespace AssimpImport
