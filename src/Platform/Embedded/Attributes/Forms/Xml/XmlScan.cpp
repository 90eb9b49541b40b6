// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Attributes/Forms/Xml/XmlScan.h"

#include "Platform/Embedded/Attributes/Forms/TextEscape.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

namespace Sylvar3::internal::OvAttribute::Embedded {

namespace {

constexpr std::size_t kNodeBytes = 64;
constexpr std::size_t kAttributeBytes = 40;

constexpr std::string_view kElements[] = {"attr", "sample", "value"};
constexpr std::string_view kBlanks = " \t\r\n";

bool isBlank(char c) {
    return kBlanks.find(c) != std::string_view::npos;
}

bool isCharacter(std::uint32_t code) {
    const bool isControl = code < 0x20 && code != '\t' && code != '\n' && code != '\r';
    const bool isSurrogate = code >= 0xD800 && code <= 0xDFFF;
    return !isControl && !isSurrogate && code != 0xFFFE && code != 0xFFFF && code <= 0x10FFFF;
}

/// Whether the text holds characters of XML alone, in UTF-8.
bool isText(std::string_view text) {
    while (!text.empty()) {
        const std::size_t plain = TextEscape::plainSpan(text);
        text.remove_prefix(plain);
        if (text.empty()) {
            return true;
        }
        const auto first = static_cast<unsigned char>(text[0]);
        const std::size_t span = TextEscape::utf8Span(text);
        const bool isNone = span == 3;  // U+FFFE or U+FFFF: others of that length are plain
        if (span == 0 || isNone || (first < 0x80 && !isCharacter(first))) {
            return false;
        }
        text.remove_prefix(span);
    }
    return true;
}

/// Whether what stands between an ampersand and a semicolon is known.
bool isReference(std::string_view name) {
    constexpr std::string_view kNames[] = {"amp", "lt", "gt", "quot", "apos"};
    if (name.substr(0, 1) != "#") {
        return std::find(std::begin(kNames), std::end(kNames), name) != std::end(kNames);
    }
    const bool isHex = name.substr(1, 1) == "x";
    const std::string_view digits = name.substr(isHex ? 2 : 1);
    const char* const end = digits.data() + digits.size();
    std::uint32_t code = 0;
    const auto [at, fault] = std::from_chars(digits.data(), end, code, isHex ? 16 : 10);
    return fault == std::errc() && at == end && isCharacter(code);
}

bool hasKnownReferences(std::string_view text) {
    for (std::size_t at = text.find('&'); at != std::string_view::npos; at = text.find('&', at)) {
        const std::size_t end = text.find(';', ++at);
        if (end == std::string_view::npos || !isReference(text.substr(at, end - at))) {
            return false;
        }
    }
    return true;
}

class Scan {
public:
    explicit Scan(std::string_view xml) : left_(xml) {}

    std::optional<std::size_t> run() {
        while (!left_.empty()) {
            if (!(left_[0] == '<' ? takeMarkup() : takeText())) {
                return std::nullopt;
            }
        }
        return bytes_;
    }

private:
    bool takeMarkup() {
        if (startsWith("<!--")) {
            return passBehind("-->", 4);
        }
        if (startsWith("<?")) {
            return passBehind("?>", 2);
        }
        mayBeEmbedded_ = false;
        if (startsWith("<![CDATA[")) {
            bytes_ += kNodeBytes;
            return depth_ > 0 && passBehind("]]>", 9);
        }
        if (startsWith("</")) {
            --depth_;
            return passBehind(">", 2);
        }
        return takeElement();
    }

    bool takeText() {
        const std::string_view text = left_.substr(0, left_.find('<'));
        left_.remove_prefix(text.size());
        if (text.find_first_not_of(kBlanks) == std::string_view::npos) {
            return true;
        }
        bytes_ += mayBeEmbedded_ ? 0 : kNodeBytes;
        mayBeEmbedded_ = false;
        return depth_ > 0 && hasKnownReferences(text);
    }

    bool takeElement() {
        left_.remove_prefix(1);
        const std::string_view name = left_.substr(0, left_.find_first_of(" \t\r\n/>"));
        if (std::find(std::begin(kElements), std::end(kElements), name) == std::end(kElements)) {
            return false;
        }
        left_.remove_prefix(name.size());
        bytes_ += kNodeBytes;
        passBlanks();
        while (!left_.empty() && left_[0] != '>' && left_[0] != '/') {
            if (!takeAttribute()) {
                return false;
            }
            passBlanks();
        }
        const bool isOpen = startsWith(">");
        depth_ += isOpen ? 1 : 0;
        mayBeEmbedded_ = isOpen;
        return isOpen ? passBehind(">", 0) : startsWith("/>") && passBehind(">", 0);
    }

    bool takeAttribute() {
        bytes_ += kAttributeBytes;
        const std::size_t equals = left_.find_first_of("=<>/\"'");
        if (equals == std::string_view::npos || left_[equals] != '=') {
            return false;
        }
        left_.remove_prefix(equals + 1);
        passBlanks();
        if (left_.empty() || (left_[0] != '"' && left_[0] != '\'')) {
            return false;
        }
        const std::size_t end = left_.find(left_[0], 1);
        if (end == std::string_view::npos) {
            return false;
        }
        const std::string_view value = left_.substr(1, end - 1);
        left_.remove_prefix(end + 1);
        return value.find('<') == std::string_view::npos && hasKnownReferences(value);
    }

    void passBlanks() {
        while (!left_.empty() && isBlank(left_[0])) {
            left_.remove_prefix(1);
        }
    }

    bool startsWith(std::string_view begin) const { return left_.substr(0, begin.size()) == begin; }

    bool passBehind(std::string_view end, std::size_t from) {
        const std::size_t at = left_.find(end, from);
        if (at == std::string_view::npos) {
            return false;
        }
        left_.remove_prefix(at + end.size());
        return true;
    }

    std::string_view left_;
    std::size_t bytes_ = 0;
    std::int64_t depth_ = 0;
    bool mayBeEmbedded_ = false;  ///< Right behind a start tag, text needs no node of its own.
};

}  // namespace

std::optional<std::size_t> xmlNodeBytes(std::string_view xml) {
    return isText(xml) ? Scan(xml).run() : std::nullopt;
}

}  // namespace Sylvar3::internal::OvAttribute::Embedded
