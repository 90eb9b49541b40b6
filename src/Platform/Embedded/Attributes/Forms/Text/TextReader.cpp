// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Attributes/Forms/FileForms.h"
#include "Platform/Embedded/Attributes/Forms/Text/TextBuilder.h"
#include "Platform/Embedded/Attributes/Forms/Text/TextForm.h"
#include "Platform/Support/TextPlace.h"

#include <rapidjson/error/error.h>
#include <rapidjson/reader.h>

#include <cstdlib>
#include <iterator>
#include <new>
#include <stdexcept>

namespace Sylvar3::internal::OvAttribute::Embedded {

namespace {

using Support::placed;
using Support::stringBegin;

/// The text as the parser reads it: a NUL stands behind its end.
// NOLINTBEGIN(readability-identifier-naming)
class Input {
public:
    using Ch = char;

    explicit Input(std::string_view text)
        : begin_(text.data()), at_(text.data()), end_(text.data() + text.size()) {}

    char Peek() const { return at_ < end_ ? *at_ : '\0'; }
    char Take() { return at_ < end_ ? *at_++ : '\0'; }
    std::size_t Tell() const { return static_cast<std::size_t>(at_ - begin_); }

    // Of output streams, and never called.
    static char* PutBegin() { return nullptr; }
    static void Put(char /*c*/) {}
    static void Flush() {}
    static std::size_t PutEnd(const char* /*begin*/) { return 0; }

private:
    const char* const begin_;
    const char* at_;
    const char* const end_;
};

/// The parser's own allocator goes on after a failure.
struct Allocator {
    static void* Malloc(std::size_t size) { return Realloc(nullptr, 0, size); }
    static void* Realloc(void* memory, std::size_t /*oldSize*/, std::size_t size) {
        void* const moved = std::realloc(memory, size);
        if (!moved) {
            throw std::bad_alloc();
        }
        return moved;
    }
    static void Free(void* memory) { std::free(memory); }
};

/// Hands the parser's events on. After a fault the parser stops and tells the offset.
class Events : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, Events> {
public:
    enum class Kind { Punctuation, Number, Null, True, False, String };

    explicit Events(TextBuilder& builder) : builder_(builder) {}

    const std::string& fault() const { return fault_; }
    Kind last() const { return last_; }

    bool Null() {
        return tell(Kind::Null, [&] { builder_.null(); });
    }
    bool Bool(bool value) {
        return tell(value ? Kind::True : Kind::False, [&] { builder_.boolean(value); });
    }
    bool RawNumber(const char* text, rapidjson::SizeType length, bool /*copy*/) {
        return tell(Kind::Number, [&] { builder_.number({text, length}); });
    }
    bool String(const char* text, rapidjson::SizeType length, bool /*copy*/) {
        return tell(Kind::String, [&] { builder_.string({text, length}); });
    }
    bool Key(const char* text, rapidjson::SizeType length, bool /*copy*/) {
        return tell(Kind::String, [&] { builder_.member({text, length}); });
    }
    bool StartObject() {
        return tell(Kind::Punctuation, [&] { builder_.beginObject(); });
    }
    bool EndObject(rapidjson::SizeType /*count*/) {
        return tell(Kind::Punctuation, [&] { builder_.endObject(); });
    }
    bool StartArray() {
        return tell(Kind::Punctuation, [&] { builder_.beginArray(); });
    }
    bool EndArray(rapidjson::SizeType /*count*/) {
        return tell(Kind::Punctuation, [&] { builder_.endArray(); });
    }

private:
    template <class Part>
    bool tell(Kind kind, Part part) {
        try {
            part();
            return true;
        } catch (const TextFault& fault) {
            fault_ = fault.text;
        } catch (const std::length_error& error) {
            fault_ = error.what();
        }
        last_ = kind;
        return false;
    }

    TextBuilder& builder_;
    std::string fault_;
    Kind last_ = Kind::Punctuation;
};
// NOLINTEND(readability-identifier-naming)

/// The offset of the part that a fault is about, from the one at which the parser stopped.
std::size_t faultOffset(std::string_view text, Events::Kind kind, std::size_t stopped) {
    switch (kind) {
        case Events::Kind::String:
            return stringBegin(text, stopped);
        case Events::Kind::False:
            return stopped - 5;
        case Events::Kind::Null:
        case Events::Kind::True:
            return stopped - 4;
        default:
            return stopped;
    }
}

/// The offset of what the parser cannot read; a word that is no literal counts from its begin.
std::size_t syntaxOffset(std::string_view text, const rapidjson::ParseResult& result) {
    std::size_t offset = result.Offset();
    const auto isLetter = [](char c) { return c >= 'a' && c <= 'z'; };
    while (result.Code() == rapidjson::kParseErrorValueInvalid && offset != 0 &&
           isLetter(text[offset - 1])) {
        --offset;
    }
    return offset;
}

/// By the parser's code.
constexpr const char* kSyntaxFaults[] = {
    "",
    "The text is empty; an object is expected.",
    "Something follows the end of the object; nothing more is expected.",
    "This is no value; an object, an array, a string, a number, true, false or null is expected.",
    "The name of a member, in quotation marks, is expected.",
    "A colon is expected behind the name of a member.",
    "A comma or \"}\" is expected behind a member.",
    "A comma or \"]\" is expected behind a value of an array.",
    "Four hexadecimal digits are expected behind \"\\u\".",
    "This is half a surrogate pair; the other half is expected behind it.",
    "A string can't hold this as it stands; an escape such as \"\\n\" or \"\\\\\" is expected.",
    "The string does not end; a quotation mark is expected.",
    "This is no UTF-8; a byte of any value is written as \"\\\\x\" and two hexadecimal digits.",
    "This number is too large for a double.",
    "A digit is expected behind the point.",
    "A digit is expected in the exponent.",
    "",
    "A comment begins with \"//\", or it begins with \"/*\" and ends with \"*/\".",
};
static_assert(std::size(kSyntaxFaults) == rapidjson::kParseErrorUnspecificSyntaxError + 1);

std::string_view withoutMark(std::string_view text) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    const bool isMarked = text.substr(0, kByteOrderMark.size()) == kByteOrderMark;
    return isMarked ? text.substr(kByteOrderMark.size()) : text;
}

/// Reads the text into the builder; what is wrong, or nothing.
std::string build(std::string_view text, TextBuilder& builder) {
    constexpr unsigned kFlags =
        rapidjson::kParseIterativeFlag | rapidjson::kParseNumbersAsStringsFlag |
        rapidjson::kParseValidateEncodingFlag | rapidjson::kParseCommentsFlag;
    rapidjson::GenericReader<rapidjson::UTF8<>, rapidjson::UTF8<>, Allocator> reader;
    Input input(text);
    Events events(builder);
    const rapidjson::ParseResult result = reader.Parse<kFlags>(input, events);
    if (!events.fault().empty()) {
        return placed(text, faultOffset(text, events.last(), result.Offset()), events.fault());
    }
    if (result.IsError()) {
        return placed(text, syntaxOffset(text, result), kSyntaxFaults[result.Code()]);
    }
    return input.Tell() == text.size()
               ? std::string()
               : placed(text, input.Tell(), "A NUL byte stands behind the end of the object.");
}

}  // namespace

ReadValue readText(std::string_view text) {
    ReadValue result;
    if (text.size() > TextForm::kLongestText) {
        result.error = TextForm::kTooLong;
        return result;
    }
    TextBuilder builder(text.size());
    result.error = build(withoutMark(text), builder);
    if (result.error.empty()) {
        result.content = builder.content();
        result.value = builder.finish();
    }
    return result;
}

}  // namespace Sylvar3::internal::OvAttribute::Embedded
