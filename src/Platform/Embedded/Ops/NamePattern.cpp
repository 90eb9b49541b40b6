// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Ops/NamePattern.h"

#include "Platform/Embedded/Runtime/Op.h"

#include <cstddef>

namespace Sylvar3::internal::OvSylvar::Embedded {

namespace {

constexpr std::size_t kMostAlternatives = 1024;

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
        if (texts.size() * choices.size() > kMostAlternatives) {
            throw OpError("its braces stand for more than " + std::to_string(kMostAlternatives) +
                          " texts");
        }
        std::vector<std::string> longer;
        for (const std::string& begun : texts) {
            for (const std::string_view choice : choices) {
                longer.push_back(begun + std::string(plain) + std::string(choice));
            }
        }
        texts = std::move(longer);
    }
    return texts;
}

/// The bytes of a set "[...]" at the front of a text, which it is taken from.
std::bitset<256> takeSet(std::string_view& text) {
    const std::size_t close = text.find(']', 2);
    if (close == std::string_view::npos) {
        throw OpError("a \"[\" without its \"]\"");
    }
    std::string_view inside = text.substr(1, close - 1);
    text.remove_prefix(close + 1);
    const bool isInverted = inside.front() == '!' && inside.size() > 1;
    inside.remove_prefix(isInverted ? 1 : 0);
    std::bitset<256> bytes;
    while (!inside.empty()) {
        const auto first = static_cast<unsigned char>(inside.front());
        const bool isRange = inside.size() > 2 && inside[1] == '-';
        const auto last = static_cast<unsigned char>(isRange ? inside[2] : inside.front());
        for (unsigned byte = first; byte <= last; ++byte) {
            bytes.set(byte);
        }
        inside.remove_prefix(isRange ? 3 : 1);
    }
    return isInverted ? ~bytes : bytes;
}

}  // namespace

NamePattern::NamePattern(std::string_view text) : spansNames_(text == "**") {
    if (text.find_first_of("*?[{") == std::string_view::npos) {
        literal_ = text;
        return;
    }
    for (const std::string& alternative : expandBraces(text)) {
        alternatives_.push_back(compile(alternative));
    }
}

NamePattern::Pieces NamePattern::compile(std::string_view text) {
    Pieces pieces;
    while (!text.empty()) {
        Piece& piece = pieces.emplace_back();
        if (text.front() == '[') {
            piece.bytes = takeSet(text);
            continue;
        }
        piece.isAnyText = text.front() == '*';
        if (text.front() == '?') {
            piece.bytes.set();
        } else {
            piece.bytes.set(static_cast<unsigned char>(text.front()));
        }
        text.remove_prefix(1);
    }
    return pieces;
}

bool NamePattern::matches(std::string_view name) const {
    if (alternatives_.empty()) {
        return name == literal_;
    }
    for (const Pieces& pieces : alternatives_) {
        if (matches(pieces, name)) {
            return true;
        }
    }
    return false;
}

bool NamePattern::matches(const Pieces& pieces, std::string_view name) {
    // Of the "*" passed so far only the last one can have to give way.
    std::size_t piece = 0;
    std::size_t at = 0;
    std::size_t afterStar = std::string_view::npos;
    std::size_t retry = 0;
    while (at < name.size()) {
        if (piece < pieces.size() && pieces[piece].isAnyText) {
            afterStar = ++piece;
            retry = at;
        } else if (piece < pieces.size() &&
                   pieces[piece].bytes.test(static_cast<unsigned char>(name[at]))) {
            ++piece;
            ++at;
        } else if (afterStar != std::string_view::npos) {
            piece = afterStar;
            at = ++retry;
        } else {
            return false;
        }
    }
    while (piece < pieces.size() && pieces[piece].isAnyText) {
        ++piece;
    }
    return piece == pieces.size();
}

}  // namespace Sylvar3::internal::OvSylvar::Embedded
