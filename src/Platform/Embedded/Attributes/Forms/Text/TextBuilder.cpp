// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Attributes/Forms/Text/TextBuilder.h"

#include "Platform/Embedded/Attributes/Forms/Text/TextForm.h"
#include "Platform/Embedded/Attributes/Forms/TextEscape.h"

#include <algorithm>

namespace Sylvar3::internal::OvAttribute::Embedded {

namespace {

/// By the value of `Next`.
constexpr const char* kExpected[] = {
    "an object with \"format\", \"version\", \"content\" and \"root\"",
    "\"format\", \"version\", \"content\" or \"root\"",
    "the text \"sylvar\"",
    "the number 1",
    "\"attribute\", \"static scene\" or \"op tree\"",
    "an object, an array, a string, a number or null",
    "the name of a member",
    "true or false",
    "a tuple size from 1 to 2147483647",
    "an array of times",
    "a time",
    "an array of values, or one value,",
    "a value or an array of values",
    "a value",
    "a number or a string",
    "nothing more",
};

constexpr std::string_view kDocumentMembers[] = {"format", "version", "content", "root"};

constexpr std::string_view kInherit = "$inherit";
constexpr std::string_view kTuple = "$tuple";
constexpr std::string_view kTimes = "$times";

std::string quoted(std::string_view text) {
    constexpr std::size_t kMost = 60;
    return "\"" + TextEscape::escaped(text.substr(0, kMost)) +
           (text.size() > kMost ? "...\"" : "\"");
}

/// The kind of a member that holds values, or 0.
std::int32_t kindOf(std::string_view member) {
    const auto* const found =
        std::find(std::begin(TextForm::kKinds), std::end(TextForm::kKinds), member);
    return found == std::end(TextForm::kKinds)
               ? 0
               : OV_ATTRIBUTE_INT + static_cast<std::int32_t>(found - std::begin(TextForm::kKinds));
}

}  // namespace

void TextBuilder::refuse(const char* what) const {
    throw TextFault{std::string(what) + " stands where " +
                    kExpected[static_cast<std::size_t>(next_)] + " is expected."};
}

void TextBuilder::null() {
    if (next_ != Next::AnyValue) {
        refuse("null");
    }
    if (groups_.isEmpty()) {
        throw TextFault{"The root can't be null."};
    }
    complete(nullptr);
}

void TextBuilder::boolean(bool value) {
    if (next_ != Next::Inherit) {
        refuse(value ? "true" : "false");
    }
    groups_.setInherits(value);
    next_ = Next::Member;
}

void TextBuilder::number(std::string_view number) {
    switch (next_) {
        case Next::AnyValue:
            return complete(makeNumber(builder_, number));
        case Next::TypedItem:
        case Next::SampleItem:
        case Next::BareItem:
            return data_.addNumber(number);
        case Next::Values:
            data_.addNumber(number);
            break;
        case Next::Time:
            return data_.addTime(number);
        case Next::Tuple:
            data_.setTupleSize(number);
            break;
        case Next::Version:
            return setVersion(number);
        default:
            refuse("A number");
    }
    next_ = Next::Member;
}

void TextBuilder::string(std::string_view text) {
    switch (next_) {
        case Next::AnyValue:
            return complete(makeString(builder_, unescaped(text)));
        case Next::TypedItem:
        case Next::SampleItem:
        case Next::BareItem:
            return data_.addString(text);
        case Next::Values:
            data_.addString(text);
            next_ = Next::Member;
            return;
        case Next::Time:
            return data_.addTime(text);
        case Next::Format:
            return setFormat(text);
        case Next::Content:
            return setContent(text);
        default:
            refuse("A string");
    }
}

void TextBuilder::beginObject() {
    if (next_ == Next::Document) {
        next_ = Next::DocumentMember;
    } else if (next_ == Next::AnyValue) {
        form_ = Form::Unknown;
        next_ = Next::Member;
    } else {
        refuse("An object");
    }
}

void TextBuilder::member(std::string_view name) {
    if (next_ == Next::DocumentMember) {
        documentMember(name);
    } else if (name.empty() || name[0] != '$') {
        child(unescaped(name));
    } else if (name.size() > 1 && name[1] == '$') {
        child(unescaped(name.substr(1)));
    } else if (name == kInherit) {
        becomeGroup();
        next_ = Next::Inherit;
    } else {
        typedMember(name);
    }
}

void TextBuilder::documentMember(std::string_view name) {
    const auto* const found =
        std::find(std::begin(kDocumentMembers), std::end(kDocumentMembers), name);
    if (found == std::end(kDocumentMembers)) {
        throw TextFault{quoted(name) + " stands where " +
                        kExpected[static_cast<std::size_t>(next_)] + " is expected."};
    }
    const auto index = static_cast<unsigned>(found - std::begin(kDocumentMembers));
    if (told_ & (1U << index)) {
        throw TextFault{quoted(name) + " is told twice."};
    }
    told_ |= 1U << index;
    constexpr Next kNext[] = {Next::Format, Next::Version, Next::Content, Next::AnyValue};
    next_ = kNext[index];
}

void TextBuilder::setFormat(std::string_view text) {
    if (text != TextForm::kFormat) {
        throw TextFault{"The format is " + quoted(text) + ", not \"sylvar\"."};
    }
    next_ = Next::DocumentMember;
}

void TextBuilder::setVersion(std::string_view number) {
    if (number != TextForm::kVersion) {
        throw TextFault{"The version is " + std::string(number.substr(0, 20)) +
                        "; 1 is the one that is known."};
    }
    next_ = Next::DocumentMember;
}

void TextBuilder::setContent(std::string_view text) {
    const auto* const found =
        std::find(std::begin(TextForm::kContents), std::end(TextForm::kContents), text);
    if (found == std::end(TextForm::kContents)) {
        throw TextFault{"The content is " + quoted(text) +
                        "; \"attribute\", \"static scene\" or \"op tree\" is expected."};
    }
    content_ = static_cast<AttributeContent>(found - std::begin(TextForm::kContents));
    next_ = Next::DocumentMember;
}

void TextBuilder::becomeGroup() {
    if (form_ == Form::Typed) {
        throw TextFault{"An object is a group or holds values; it can't be both."};
    }
    if (form_ == Form::Unknown) {
        groups_.open();
        form_ = Form::Group;
    }
}

void TextBuilder::child(std::string_view name) {
    becomeGroup();
    groups_.name(name);
    next_ = Next::AnyValue;
}

void TextBuilder::typedMember(std::string_view name) {
    const std::int32_t kind = kindOf(name);
    if (kind == 0 && name != kTuple && name != kTimes) {
        throw TextFault{quoted(name) +
                        " is no known member. The name of a child that begins with "
                        "\"$\" is written with one \"$\" more."};
    }
    if (form_ == Form::Group) {
        throw TextFault{"An object is a group or holds values; it can't be both."};
    }
    if (form_ == Form::Unknown) {
        data_.beginTyped();
        form_ = Form::Typed;
    }
    if (kind != 0) {
        data_.setKind(kind);
        next_ = Next::Values;
    } else {
        next_ = name == kTuple ? Next::Tuple : Next::Times;
    }
}

void TextBuilder::endObject() {
    if (next_ == Next::DocumentMember) {
        return endDocument();
    }
    if (form_ == Form::Typed) {
        return complete(data_.make(builder_));
    }
    becomeGroup();
    complete(groups_.close());
}

void TextBuilder::endDocument() {
    for (unsigned i = 0; i < std::size(kDocumentMembers); ++i) {
        if (!(told_ & (1U << i))) {
            throw TextFault{"The member " + quoted(kDocumentMembers[i]) + " is missing."};
        }
    }
    next_ = Next::Nothing;
}

void TextBuilder::beginArray() {
    switch (next_) {
        case Next::AnyValue:
            data_.beginBare();
            next_ = Next::BareItem;
            break;
        case Next::Values:
            next_ = Next::TypedItem;
            break;
        case Next::TypedItem:
            data_.beginSample();
            next_ = Next::SampleItem;
            break;
        case Next::Times:
            data_.beginTimes();
            next_ = Next::Time;
            break;
        default:
            refuse("An array");
    }
}

void TextBuilder::endArray() {
    if (next_ == Next::BareItem) {
        complete(data_.make(builder_));
    } else if (next_ == Next::SampleItem) {
        data_.endSample();
        next_ = Next::TypedItem;
    } else {
        next_ = Next::Member;
    }
}

/// Puts a finished value in its place.
void TextBuilder::complete(Value* value) {
    if (groups_.isEmpty()) {
        root_ = value;
        next_ = Next::DocumentMember;
        return;
    }
    groups_.add(value);
    form_ = Form::Group;
    next_ = Next::Member;
}

std::string_view TextBuilder::unescaped(std::string_view text) {
    if (text.find('\\') == std::string_view::npos) {
        return text;
    }
    scratch_.assign(text);
    return {scratch_.data(), TextEscape::unescape(scratch_.data(), scratch_.size())};
}

}  // namespace Sylvar3::internal::OvAttribute::Embedded
