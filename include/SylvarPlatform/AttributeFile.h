// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/Attribute.h>

#include <cstdint>
#include <string>

/// Serialised attributes: one file form, binary or text, for op trees, static scenes and any other
/// attribute. The forms are told in `docs/formats.md`.
namespace Sylvar3::internal::OvAttribute {

/// What a file says it holds.
enum class AttributeContent { Attribute, StaticScene, OpTree };

enum class AttributeForm {
    Binary,  ///< `.optree`: FlatBuffers, equal attributes stored once; less than 2 GiB
    Text     ///< `.optree.json`: JSON; shared attributes are written out each time
};

/// What was read, or why nothing was.
struct AttributeReadResult {
    Attribute attribute;  ///< Null when `error` is set.
    AttributeContent content = AttributeContent::Attribute;
    AttributeForm form = AttributeForm::Binary;
    std::string error;  ///< For people; of a text, with line and column. Empty on success.
};

/// The most attributes that a writer of text or XML writes: shared subtrees are written each time
/// they occur, so a small attribute can be a very long text.
constexpr std::int64_t kMaxWrittenAttributes = std::int64_t{1} << 26;

/// Reads a stream to its end, in either form; tells them apart by the first bytes. Needs at most
/// 16 times the input's size in memory. What `read` throws travels. Any thread.
SYLVAR_PLATFORM_API AttributeReadResult readAttribute(void* stream, OvReadFunction read);

/// The same for bytes in memory, and for a file; a file that cannot be opened or read is an error
/// in the result that names it.
SYLVAR_PLATFORM_API AttributeReadResult readAttributeBytes(const void* bytes, std::size_t size);
SYLVAR_PLATFORM_API AttributeReadResult readAttributeFile(const std::string& filename);

/// Writes an attribute through `write`. Empty on success, otherwise the reason: the null attribute
/// cannot be written, the content does not fit the form's limit, or `write` stopped it. Any thread.
SYLVAR_PLATFORM_API std::string writeAttribute(const Attribute& attribute,
                                               AttributeContent content,
                                               AttributeForm form,
                                               void* stream,
                                               OvWriteFunction write);

/// The same to a file, which is put in place when it is whole: a failure leaves what was there.
SYLVAR_PLATFORM_API std::string writeAttributeFile(const Attribute& attribute,
                                                   AttributeContent content,
                                                   AttributeForm form,
                                                   const std::string& filename);

/// The form that a file name asks for: text for names that end in ".json", binary otherwise.
SYLVAR_PLATFORM_API AttributeForm attributeFormOf(const std::string& filename);

}  // namespace Sylvar3::internal::OvAttribute
