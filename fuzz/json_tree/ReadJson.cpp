// SPDX-License-Identifier: Apache-2.0
// Reads a small JSON; what can be read must stand where it is said to stand, and must be the same
// after it was written and read again.
#include "Platform/Support/JsonTree.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

using namespace Sylvar3::internal::Support;

void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

/// Where the character ends that begins at `at` or before it.
std::size_t endOfCharacter(std::string_view text, std::size_t at) {
    while (at < text.size() && (text[at] & 0xC0) == 0x80) {
        ++at;
    }
    return at;
}

/// The offset of a line and a column; both count from 1, columns in characters. What a line begins
/// with that is the rest of a character, as a comment may, is none.
std::size_t offsetOf(std::string_view text, std::size_t line, std::size_t column) {
    std::size_t at = 0;
    for (; line > 1; --line) {
        at = text.find('\n', at);
        require(at++ != std::string_view::npos);
    }
    at = endOfCharacter(text, at);
    for (; column > 1; --column) {
        require(at < text.size());
        at = endOfCharacter(text, at + 1);
    }
    return at;
}

const char* firstBytesOf(JsonNode::Kind kind) {
    switch (kind) {
        case JsonNode::Kind::Null:
            return "n";
        case JsonNode::Kind::False:
            return "f";
        case JsonNode::Kind::True:
            return "t";
        case JsonNode::Kind::Number:
            return "-0123456789";
        case JsonNode::Kind::String:
            return "\"";
        case JsonNode::Kind::Array:
            return "[";
        default:
            return "{";
    }
}

/// `text` begins behind the byte order mark.
void requirePlace(std::string_view text, const std::string& told, const JsonNode& node) {
    std::size_t line = 0;
    std::size_t column = 0;
    require(std::sscanf(told.c_str(), "line %zu, column %zu: here", &line, &column) == 2);
    const std::size_t at = offsetOf(text, line, column);
    require(at < text.size());
    require(std::string_view(firstBytesOf(node.kind)).find(text[at]) != std::string_view::npos);
}

void requirePlaces(std::string_view text, const JsonNode& node) {
    const std::string_view mark = "\xEF\xBB\xBF";
    const bool isMarked = text.substr(0, mark.size()) == mark;
    requirePlace(text.substr(isMarked ? mark.size() : 0), placedInJson(text, node, "here"), node);
    for (const JsonNode& child : node.children) {
        requirePlaces(text, child);
    }
}

void writeString(std::string& out, const std::string& text) {
    out += '"';
    for (const char c : text) {
        if (c == '"' || c == '\\' || (c >= 0 && c < 0x20)) {
            char escape[8];
            std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(c));
            out += escape;
        } else {
            out += c;
        }
    }
    out += '"';
}

void write(std::string& out, const JsonNode& node) {
    switch (node.kind) {
        case JsonNode::Kind::Null:
            out += "null";
            return;
        case JsonNode::Kind::False:
            out += "false";
            return;
        case JsonNode::Kind::True:
            out += "true";
            return;
        case JsonNode::Kind::Number:
            out += node.text;
            return;
        case JsonNode::Kind::String:
            return writeString(out, node.text);
        default:
            break;
    }
    const bool isObject = node.kind == JsonNode::Kind::Object;
    out += isObject ? '{' : '[';
    for (const JsonNode& child : node.children) {
        out += &child == &node.children.front() ? "" : ",";
        if (isObject) {
            require(node.member(child.name) == &child);
            writeString(out, child.name);
            out += ':';
        }
        write(out, child);
    }
    out += isObject ? '}' : ']';
}

void requireSame(const JsonNode& a, const JsonNode& b) {
    require(a.kind == b.kind && a.name == b.name && a.text == b.text);
    require(a.children.size() == b.children.size());
    for (std::size_t i = 0; i < a.children.size(); ++i) {
        requireSame(a.children[i], b.children[i]);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const JsonRead read = readJson(text);
    if (!read.error.empty()) {
        return 0;
    }
    requirePlaces(text, read.root);
    std::string written;
    write(written, read.root);
    const JsonRead again = readJson(written);
    require(again.error.empty());
    requireSame(read.root, again.root);
    return 0;
}
