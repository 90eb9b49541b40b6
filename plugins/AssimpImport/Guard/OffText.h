// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>

namespace AssimpImport {

/// Throws `ImportError` when an OFF file announces more points and faces than it can hold, or has
/// more lines than it announces, by which a reader may lose count.
void checkOffText(const std::string& text);

}  // namespace AssimpImport
