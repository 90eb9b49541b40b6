// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>

/// What `AttributeFile.fbs` can't say.
namespace Sylvar3::internal::OvAttribute::Embedded::BinaryForm {

constexpr std::uint32_t kVersion = 1;

/// The flags of an entry.
constexpr std::uint8_t kGroupInherit = 1;
constexpr std::uint8_t kTimed = 2;

/// Where a file's identifier stands.
constexpr std::size_t kIdentifierOffset = 4;
constexpr std::size_t kIdentifierBytes = 4;

}  // namespace Sylvar3::internal::OvAttribute::Embedded::BinaryForm
