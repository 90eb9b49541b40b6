// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/AttributeFile.h>

#include "Platform/Embedded/Attributes/Forms/DataCollector.h"
#include "Platform/Embedded/Attributes/Forms/GroupStack.h"
#include "Platform/Embedded/Attributes/Values/BlockBuilder.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace Sylvar3::internal::OvAttribute::Embedded {

/// Builds the attribute of a text from the parts of its JSON as they come. Each of them throws
/// `TextFault` where it isn't expected, `std::bad_alloc`, and `std::length_error` as `GroupStack`
/// does. Belongs to one thread.
class TextBuilder {
public:
    /// For a text of that size.
    explicit TextBuilder(std::size_t size) : groups_(builder_, kLeastAllowance + size * 16) {}

    void null();
    void boolean(bool value);
    void number(std::string_view number);
    void string(std::string_view text);
    void beginObject();
    void member(std::string_view name);
    void endObject();
    void beginArray();
    void endArray();

    /// After the last part: what the text says it holds, and the attribute, with one reference.
    AttributeContent content() const { return content_; }
    Value* finish() { return builder_.finish(root_); }

private:
    static constexpr std::size_t kLeastAllowance = std::size_t{1} << 20;

    /// What may come next.
    enum class Next : std::uint8_t {
        Document,
        DocumentMember,
        Format,
        Version,
        Content,
        AnyValue,
        Member,
        Inherit,
        Tuple,
        Times,
        Time,
        Values,
        TypedItem,
        SampleItem,
        BareItem,
        Nothing
    };

    /// What the innermost object has shown itself to be.
    enum class Form : std::uint8_t { Unknown, Group, Typed };

    void documentMember(std::string_view name);
    void endDocument();
    void setFormat(std::string_view text);
    void setContent(std::string_view text);
    void setVersion(std::string_view number);
    void groupMember(std::string_view name);
    void typedMember(std::string_view name);
    void child(std::string_view name);
    void becomeGroup();
    void complete(Value* value);
    std::string_view unescaped(std::string_view text);
    [[noreturn]] void refuse(const char* what) const;

    BlockBuilder builder_;
    GroupStack groups_;
    DataCollector data_;
    Next next_ = Next::Document;
    Form form_ = Form::Unknown;
    unsigned told_ = 0;  ///< The members of the document so far, as bits.
    AttributeContent content_ = AttributeContent::Attribute;
    Value* root_ = nullptr;
    std::string scratch_;
};

}  // namespace Sylvar3::internal::OvAttribute::Embedded
