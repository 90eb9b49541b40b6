// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/GroupAttribute.h>

#include <cstddef>
#include <cstdint>

/// An op tree group that is made up from bytes: op types, arguments of right and wrong names, kinds
/// and values, and inputs, some of which are not there or lead in a round. Any bytes give one.
Sylvar3::internal::OvAttribute::GroupAttribute opTreeFromBytes(const std::uint8_t* data,
                                                               std::size_t size);
