// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// A number of bytes, as "67108864", "64K", "64M" or "2G" (of 1024); none when the text is no such
/// number, or a larger one than can be counted.
std::optional<std::int64_t> parseBytes(const std::string& text);

/// Sets the store's budget to what the configuration key "SYLVAR_MEMORY_BUDGET" says: a number of
/// bytes as above; unlimited when it is not set. What cannot be read leaves the budget as it is,
/// with a warning. Any thread.
void applyConfiguredBudget();

}  // namespace Sylvar3::internal::OvSylvar::Embedded
