// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/AttributeFile.h>

#include "Platform/Embedded/Attributes/Values/Value.h"

#include <string>
#include <string_view>

namespace Sylvar3::internal::OvAttribute::Embedded {

/// A value that was read, with one reference, or null and the reason.
struct ReadValue {
    Value* value = nullptr;
    AttributeContent content = AttributeContent::Attribute;
    std::string error;
};

/// Reads a whole file of the binary form, which must lie at a multiple of 16 bytes.
ReadValue readBinary(std::string_view bytes);

/// Reads a whole file of the text form.
ReadValue readText(std::string_view text);

/// Writes a value that is not null; empty on success, otherwise the reason. All may run on any
/// thread.
std::string writeBinary(const Value& value,
                        AttributeContent content,
                        void* stream,
                        OvWriteFunction write);
std::string writeText(const Value& value,
                      AttributeContent content,
                      void* stream,
                      OvWriteFunction write);

/// What the writers say when they are stopped.
constexpr const char* kWritingStopped = "The writing was stopped.";

}  // namespace Sylvar3::internal::OvAttribute::Embedded
