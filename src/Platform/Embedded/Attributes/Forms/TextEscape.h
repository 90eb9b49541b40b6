// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Sylvar3::internal::OvAttribute::Embedded {

/// The one escape of texts, for XML, JSON and terminals alike: a byte that a text cannot hold as it
/// stands is written as a backslash, an x and two hexadecimal digits. Such bytes are those of
/// control characters (C0, DEL and C1), of anything that is no UTF-8, and of the noncharacters
/// U+FFFE and U+FFFF; a backslash that would read as an escape is one as well.
namespace TextEscape {

/// The length of an escape.
constexpr std::size_t kLength = 4;

/// How many bytes at the front stand as they are. The byte behind them, if any, needs the escape.
std::size_t plainSpan(std::string_view text);

/// Writes the escape of a byte and returns where the next character goes.
char* write(char* to, char byte);

/// Whether the text begins with an escape.
bool isAt(std::string_view text);

/// The text with all that needs it escaped; what `unescaped` gives the same bytes for.
std::string escaped(std::string_view text);

/// Every escape turned into its byte; a malformed one stays as it stands. `unescape` works in place
/// and returns the new length, which is never above the old one.
std::size_t unescape(char* text, std::size_t length);
std::string unescaped(std::string_view text);

/// The length of the UTF-8 sequence at the front, 1 to 4; 0 when there is none.
std::size_t utf8Span(std::string_view text);

}  // namespace TextEscape

}  // namespace Sylvar3::internal::OvAttribute::Embedded
