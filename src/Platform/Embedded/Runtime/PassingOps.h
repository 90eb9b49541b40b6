// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Runtime/Op.h"

#include <memory>
#include <string>

namespace Sylvar3::internal::OvSylvar::Embedded {

/// An op that has no locations.
std::unique_ptr<const OpBody> makeEmptyScene();

/// An op that cannot work: its first input, with the reason as an error at a location, which is
/// there for that even when the input has none.
std::unique_ptr<const OpBody> makeFaultyOp(std::string at, std::string reason);

}  // namespace Sylvar3::internal::OvSylvar::Embedded
