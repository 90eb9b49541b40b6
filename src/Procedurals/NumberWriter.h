// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <ostream>

/// Numbers in the line of command: as a stream of precision 12 in the classic locale has them, and
/// whatever the stream's own.
namespace SYLVAR {

void WriteNumber(std::ostream& stream, double number);
void WriteNumber(std::ostream& stream, std::int32_t number);

}  // namespace SYLVAR
