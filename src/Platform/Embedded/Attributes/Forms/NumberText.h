// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace Sylvar3::internal::OvAttribute::Embedded {

/// Numbers as text: the shortest one that reads back to the same bits, whatever the locale.
///
/// What is not finite is `nan`, `inf` or `-inf`; a NaN other than the plain positive quiet one is
/// `\x` and the 8 (float) or 16 (double) hexadecimal digits of its bits.
namespace NumberText {

/// Room for any number.
constexpr std::size_t kLongest = 32;

/// Writes a number at `to`, which has room for `kLongest`, and returns its end.
char* write(char* to, std::int32_t value);
char* write(char* to, float value);
char* write(char* to, double value);

/// Reads a whole text as a number. False, and `value` is as it was, when it is none or does not
/// fit.
bool read(std::string_view text, std::int32_t& value);
bool read(std::string_view text, float& value);
bool read(std::string_view text, double& value);

/// The same for the texts alone that stand for what is not finite, and for bits.
bool readSpecial(std::string_view text, float& value);
bool readSpecial(std::string_view text, double& value);

}  // namespace NumberText

}  // namespace Sylvar3::internal::OvAttribute::Embedded
