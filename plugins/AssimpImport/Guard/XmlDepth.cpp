// SPDX-License-Identifier: Apache-2.0
#include "Guard/XmlDepth.h"

#include <algorithm>

namespace AssimpImport {

void XmlDepth::take(char c) noexcept {
    if (c != 0) {
        state_ = next(c);
        beforeLast_ = last_;
        last_ = c;
    }
}

XmlDepth::State XmlDepth::next(char c) noexcept {
    switch (state_) {
        case State::Text:
            return c == '<' ? State::Mark : State::Text;
        case State::Mark:
            return afterMark(c);
        case State::Open:
            return insideOpen(c);
        case State::Close:
            if (c == '>') {
                leave();
            }
            return c == '>' ? State::Text : State::Close;
        case State::Special:
            return insideSpecial(c);
        case State::Comment:
            return untilPair(c, '-', State::Comment);
        case State::Data:
            return untilPair(c, ']', State::Data);
    }
    return State::Text;
}

XmlDepth::State XmlDepth::afterMark(char c) noexcept {
    if (c == '/') {
        return State::Close;
    }
    if (c == '!' || c == '?') {
        return State::Special;
    }
    quote_ = 0;
    deepest_ = std::max(deepest_, ++depth_);
    return State::Open;
}

XmlDepth::State XmlDepth::insideOpen(char c) noexcept {
    if (quote_ != 0) {
        if (c == quote_) {
            quote_ = 0;
        }
        return State::Open;
    }
    if (c == '"' || c == '\'') {
        quote_ = c;
    }
    if (c != '>') {
        return State::Open;
    }
    if (last_ == '/') {
        leave();
    }
    return State::Text;
}

XmlDepth::State XmlDepth::insideSpecial(char c) noexcept {
    if (c == '>') {
        return State::Text;
    }
    if (beforeLast_ == '!' && last_ == '-' && c == '-') {
        return State::Comment;
    }
    return last_ == '!' && c == '[' ? State::Data : State::Special;
}

XmlDepth::State XmlDepth::untilPair(char c, char pair, State here) const noexcept {
    return c == '>' && last_ == pair && beforeLast_ == pair ? State::Text : here;
}

void XmlDepth::leave() noexcept {
    depth_ = std::max<std::int64_t>(depth_ - 1, 0);
}

}  // namespace AssimpImport
