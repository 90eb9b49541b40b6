// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/suites/OpType.h>

#include "Platform/Embedded/Runtime/Op.h"

#include <string>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// What is wrong with the table of an op type that a plug-in gives, or with its schema: why it
/// cannot be used. Empty when nothing is.
std::string faultOfOpType(const OvOpType& table);

/// The schema of a table without faults. Borrows the texts, and the name.
OpSchema schemaOf(const OvOpType& table, const char* name);

}  // namespace Sylvar3::internal::OvSylvar::Embedded
