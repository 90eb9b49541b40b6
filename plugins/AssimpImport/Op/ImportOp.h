// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/suites/HostTable.h>

#include <cstdint>

namespace AssimpImport {

/// The op type "import", as a plug-in has it: the host is taken once, before the table is asked
/// for, which is an `OvOpType`.
std::int32_t setImportOpHost(const OvHostTable* host);
const void* importOpType();

}  // namespace AssimpImport
