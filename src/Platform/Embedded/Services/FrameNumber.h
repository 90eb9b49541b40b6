// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace Sylvar3::internal::Embedded {

/// The text with the frame in the place of each "##..." , "%d" and "%0Nd".
std::string withFrameNumber(const std::string& text, int frame);

}  // namespace Sylvar3::internal::Embedded
