// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string_view>

namespace Sylvar3::internal::OvAttribute::Embedded {

/// The words of the text form.
namespace TextForm {

constexpr std::string_view kFormat = "sylvar";
constexpr std::string_view kVersion = "1";

/// By the value of `AttributeContent`.
constexpr std::string_view kContents[] = {"attribute", "static scene", "op tree"};

/// The members that hold values, by their kind from `OV_ATTRIBUTE_INT` on.
constexpr std::string_view kKinds[] = {"$int", "$float", "$double", "$string"};

/// The parser counts the bytes of a string in 32 bits.
constexpr std::uint64_t kLongestText = 0xFFFFFFFF;
constexpr const char* kTooLong = "The text is longer than 4 GiB.";

}  // namespace TextForm

}  // namespace Sylvar3::internal::OvAttribute::Embedded
