// SPDX-License-Identifier: Apache-2.0
#include "Platform/Support/JsonTree.h"

#include "Platform/Support/FileHandle.h"
#include "Platform/Support/TextPlace.h"

#include <rapidjson/error/en.h>
#include <rapidjson/memorystream.h>
#include <rapidjson/reader.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <unordered_set>

namespace Sylvar3::internal::Support {

namespace {

constexpr std::size_t kDeepest = 64;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::size_t beginOf(std::string_view text, const JsonNode& node) {
    switch (node.kind) {
        case JsonNode::Kind::String:
            return stringBegin(text, node.end);
        case JsonNode::Kind::Number:
            return node.end - node.text.size();
        case JsonNode::Kind::False:
            return node.end - 5;
        case JsonNode::Kind::Null:
        case JsonNode::Kind::True:
            return node.end - 4;
        default:
            return node.end - 1;
    }
}

/// Whether half of a surrogate pair, which is no character, is in a text. The parser refuses the
/// first half by itself, and lets the escape of a second half by itself pass.
bool holdsSurrogate(std::string_view text) {
    std::size_t at = text.find('\xED');
    while (at != std::string_view::npos && (text[at + 1] & 0x20) == 0) {
        at = text.find('\xED', at + 1);
    }
    return at != std::string_view::npos;
}

/// Builds the tree from the parser's events.
// NOLINTBEGIN(readability-identifier-naming)
class TreeBuilder : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, TreeBuilder> {
public:
    TreeBuilder(std::string_view text, const rapidjson::MemoryStream& input)
        : text_(text), input_(input) {}

    JsonNode root;
    std::string fault;

    bool Null() { return add(JsonNode::Kind::Null, {}); }
    bool Bool(bool value) { return add(value ? JsonNode::Kind::True : JsonNode::Kind::False, {}); }
    bool RawNumber(const char* text, rapidjson::SizeType length, bool /*copy*/) {
        return add(JsonNode::Kind::Number, {text, length});
    }
    bool String(const char* text, rapidjson::SizeType length, bool /*copy*/) {
        return isText({text, length}) && add(JsonNode::Kind::String, {text, length});
    }
    bool Key(const char* text, rapidjson::SizeType length, bool /*copy*/) {
        name_.assign(text, length);
        if (!isText(name_)) {
            return false;
        }
        return open_.back().names.insert(name_).second ||
               failString("The member \"" + name_ + "\" stands here a second time.");
    }
    bool StartObject() { return open(JsonNode::Kind::Object); }
    bool EndObject(rapidjson::SizeType /*count*/) { return close(); }
    bool StartArray() { return open(JsonNode::Kind::Array); }
    bool EndArray(rapidjson::SizeType /*count*/) { return close(); }

private:
    /// An array or object that has not ended; it is the last child of the one before it.
    struct Open {
        JsonNode* node;
        std::unordered_set<std::string> names;
    };

    bool isText(std::string_view text) {
        return !holdsSurrogate(text) || failString("This string has half of a surrogate pair.");
    }

    /// The string that was just read is wrong.
    bool failString(const std::string& what) {
        fault = placed(text_, stringBegin(text_, input_.Tell()), what);
        return false;
    }

    bool add(JsonNode::Kind kind, std::string_view text) {
        place(kind).text = text;
        return true;
    }

    JsonNode& place(JsonNode::Kind kind) {
        JsonNode& node = open_.empty() ? root : open_.back().node->children.emplace_back();
        node.kind = kind;
        node.name = std::move(name_);
        node.end = input_.Tell();
        name_.clear();
        return node;
    }

    bool open(JsonNode::Kind kind) {
        if (open_.size() == kDeepest) {
            fault = placed(text_, input_.Tell(), "This is nested more than 64 levels deep.");
            return false;
        }
        JsonNode& node = place(kind);
        ++node.end;  // the parser tells of a bracket before it takes it
        open_.push_back({&node, {}});
        return true;
    }

    bool close() {
        open_.pop_back();
        return true;
    }

    std::string_view text_;
    const rapidjson::MemoryStream& input_;
    std::string name_;
    std::vector<Open> open_;
};
// NOLINTEND(readability-identifier-naming)

}  // namespace

const JsonNode* JsonNode::member(std::string_view wanted) const {
    const auto found = std::find_if(children.begin(), children.end(), [&](const JsonNode& child) {
        return child.name == wanted;
    });
    return found == children.end() ? nullptr : &*found;
}

JsonRead readJson(std::string_view text) {
    constexpr unsigned kFlags =
        rapidjson::kParseIterativeFlag | rapidjson::kParseNumbersAsStringsFlag |
        rapidjson::kParseValidateEncodingFlag | rapidjson::kParseCommentsFlag;
    if (text.substr(0, kByteOrderMark.size()) == kByteOrderMark) {
        text.remove_prefix(kByteOrderMark.size());
    }
    rapidjson::MemoryStream input(text.data(), text.size());
    rapidjson::Reader reader;
    TreeBuilder builder(text, input);
    const rapidjson::ParseResult result = reader.Parse<kFlags>(input, builder);
    if (!builder.fault.empty()) {
        return {{}, std::move(builder.fault)};
    }
    if (result.IsError()) {
        return {{}, placed(text, result.Offset(), rapidjson::GetParseError_En(result.Code()))};
    }
    if (input.Tell() != text.size()) {  // the parser takes a byte 0 for the end
        return {{}, placed(text, input.Tell(), "A byte 0 stands here.")};
    }
    return {std::move(builder.root), {}};
}

std::string placedInJson(std::string_view text, const JsonNode& node, const std::string& what) {
    if (text.substr(0, kByteOrderMark.size()) == kByteOrderMark) {
        text.remove_prefix(kByteOrderMark.size());
    }
    return placed(text, beginOf(text, node), what);
}

FileText readTextFile(const std::string& filename) {
    FileText result;
    const auto failed = [&](const char* what) {
        return FileText{{}, what + (" \"" + filename + "\": ") + std::strerror(errno) + "."};
    };
    const FileHandle file(std::fopen(filename.c_str(), "rb"));
    if (!file) {
        return failed("Cannot open");
    }
    char piece[4096];
    while (const std::size_t size = std::fread(piece, 1, sizeof piece, file.get())) {
        result.text.append(piece, size);
    }
    return std::ferror(file.get()) ? failed("Cannot read") : result;
}

}  // namespace Sylvar3::internal::Support
