// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Attributes/Values/Value.h"

namespace Sylvar3::internal::OvAttribute::Embedded {

/// Writes a value, or null, as XML. False when `write` stopped it, or, before anything is written,
/// when the value expands to more than `kMaxWrittenAttributes`. Any thread.
bool writeXmlTo(const Value* value, void* stream, OvWriteFunction write);

}  // namespace Sylvar3::internal::OvAttribute::Embedded
