// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/Patterns/NamePattern.h"

#include "Platform/Embedded/Runtime/Op.h"

#include <cstddef>
#include <utility>

namespace Sylvar3::internal::OvSylvar::Embedded {

namespace {

constexpr std::size_t kMostAlternatives = 1024;

constexpr std::size_t kMostBytes = 1 << 20;

void checkSize(std::size_t count, std::size_t bytes) {
    if (count > kMostAlternatives) {
        throw OpError("its braces stand for more than " + std::to_string(kMostAlternatives) +
                      " texts");
    }
    if (count > 1 && bytes > kMostBytes) {
        throw OpError("its braces stand for more than " + std::to_string(kMostBytes) + " bytes");
    }
}

std::size_t bytesOf(const std::vector<std::string>& texts) {
    std::size_t bytes = 0;
    for (const std::string& text : texts) {
        bytes += text.size();
    }
    return bytes;
}

std::vector<std::string_view> splitAtCommas(std::string_view text) {
    std::vector<std::string_view> parts;
    for (std::size_t comma = text.find(','); comma != std::string_view::npos;
         comma = text.find(',')) {
        parts.push_back(text.substr(0, comma));
        text.remove_prefix(comma + 1);
    }
    parts.push_back(text);
    return parts;
}

/// All texts with `plain` behind them, and behind that each of the choices.
std::vector<std::string> combined(std::vector<std::string> texts,
                                  std::string_view plain,
                                  const std::vector<std::string_view>& choices) {
    if (choices.size() == 1) {
        for (std::string& text : texts) {
            text.append(plain).append(choices.front());
        }
        checkSize(texts.size(), bytesOf(texts));
        return texts;
    }
    const std::size_t count = texts.size() * choices.size();
    checkSize(count, bytesOf(texts) * choices.size() + plain.size() * count);
    std::vector<std::string> longer;
    longer.reserve(count);
    for (const std::string& begun : texts) {
        for (const std::string_view choice : choices) {
            longer.push_back(begun + std::string(plain) + std::string(choice));
        }
    }
    return longer;
}

/// The texts that a text with braces stands for. Braces do not nest.
std::vector<std::string> expandBraces(std::string_view text) {
    std::vector<std::string> texts = {""};
    while (!text.empty()) {
        const std::size_t open = text.find('{');
        const std::string_view plain = text.substr(0, open);
        std::vector<std::string_view> choices = {""};
        text.remove_prefix(plain.size());
        if (!text.empty()) {
            const std::size_t close = text.find('}');
            if (close == std::string_view::npos) {
                throw OpError("a \"{\" without its \"}\"");
            }
            choices = splitAtCommas(text.substr(1, close - 1));
            text.remove_prefix(close + 1);
        }
        texts = combined(std::move(texts), plain, choices);
    }
    return texts;
}

/// Takes the front of a text that stands for one byte or, "*", for any number of them.
std::string_view takePiece(std::string_view& text) {
    const std::size_t last = text.front() == '[' ? text.find(']', 2) : 0;
    if (last == std::string_view::npos) {
        throw OpError("a \"[\" without its \"]\"");
    }
    const std::string_view piece = text.substr(0, last + 1);
    text.remove_prefix(piece.size());
    return piece;
}

bool isLiteralPiece(std::string_view piece) {
    return piece.find_first_of("*?[") == std::string_view::npos;
}

bool setHas(std::string_view piece, unsigned char byte) {
    std::string_view inside = piece.substr(1, piece.size() - 2);
    const bool isInverted = inside.front() == '!' && inside.size() > 1;
    inside.remove_prefix(isInverted ? 1 : 0);
    while (!inside.empty()) {
        const bool isRange = inside.size() > 2 && inside[1] == '-';
        const auto first = static_cast<unsigned char>(inside.front());
        const auto last = static_cast<unsigned char>(inside[isRange ? 2 : 0]);
        if (first <= byte && byte <= last) {
            return !isInverted;
        }
        inside.remove_prefix(isRange ? 3 : 1);
    }
    return isInverted;
}

bool pieceHas(std::string_view piece, char byte) {
    switch (piece.front()) {
        case '?':
            return true;
        case '[':
            return setHas(piece, static_cast<unsigned char>(byte));
        default:
            return piece.front() == byte;
    }
}

bool canHaveAByte(std::string_view piece) {
    for (int byte = 0; byte < 256; ++byte) {
        if (byte != '/' && pieceHas(piece, static_cast<char>(byte))) {
            return true;
        }
    }
    return false;
}

bool matchesPieces(std::string_view pieces, std::string_view name) {
    // Of the "*" passed so far only the last one can have to give way.
    std::string_view afterStar;
    std::string_view retry;
    bool hasStar = false;
    while (!name.empty()) {
        std::string_view rest = pieces;
        const std::string_view piece = rest.empty() ? rest : takePiece(rest);
        if (piece == "*") {
            if (rest.empty()) {
                return true;
            }
            hasStar = true;
            pieces = afterStar = rest;
            retry = name;
        } else if (!piece.empty() && pieceHas(piece, name.front())) {
            pieces = rest;
            name.remove_prefix(1);
        } else if (hasStar) {
            pieces = afterStar;
            retry.remove_prefix(1);
            name = retry;
        } else {
            return false;
        }
    }
    return pieces.find_first_not_of('*') == std::string_view::npos;
}

}  // namespace

std::vector<NamePattern> NamePattern::alternativesOf(std::string_view text) {
    std::vector<NamePattern> patterns;
    for (std::string& alternative : expandBraces(text)) {
        NamePattern pattern(std::move(alternative));
        if (!pattern.matchesNoName()) {
            patterns.push_back(std::move(pattern));
        }
    }
    return patterns;
}

NamePattern::NamePattern(std::string text) : text_(std::move(text)) {
    for (std::string_view rest = text_; !rest.empty();) {
        const bool isLiteral = isLiteralPiece(takePiece(rest));
        const std::size_t end = text_.size() - rest.size();
        if (!isLiteral) {
            suffix_ = 0;
        } else if (prefix_ + 1 == end) {
            prefix_ = end;
        } else {
            ++suffix_;
        }
    }
}

bool NamePattern::matches(std::string_view name) const {
    const std::string_view text = text_;
    if (name.size() < prefix_ + suffix_ || text.substr(0, prefix_) != name.substr(0, prefix_) ||
        text.substr(text.size() - suffix_) != name.substr(name.size() - suffix_)) {
        return false;
    }
    return matchesPieces(text.substr(prefix_, text.size() - prefix_ - suffix_),
                         name.substr(prefix_, name.size() - prefix_ - suffix_));
}

bool NamePattern::matchesEveryName() const {
    return !text_.empty() && text_.find_first_not_of('*') == std::string::npos;
}

bool NamePattern::matchesNoName() const {
    for (std::string_view rest = text_; !rest.empty();) {
        const std::string_view piece = takePiece(rest);
        if (piece.front() == '[' && !canHaveAByte(piece)) {
            return true;
        }
    }
    return text_.empty();
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
