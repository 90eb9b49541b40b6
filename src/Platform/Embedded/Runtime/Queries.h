// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace Sylvar3::internal::OvSylvar::Embedded {

class Runtime;

/// Answers a query with JSON: 0 and the answer, or another status for a name that is not known.
///
/// "getAnonymousOpTree": the ops of the runtime's tree with their types, the kinds of their
/// arguments, and their inputs as places in the list; no names, paths or values.
/// "getAnonymousOpRegistry": the op types and their arguments.
/// "getStatistics": what the process has cooked, by op type, and what its store holds.
std::int32_t answerQuery(const Runtime& runtime, std::string_view name, std::string& answer);

}  // namespace Sylvar3::internal::OvSylvar::Embedded
