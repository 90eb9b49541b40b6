// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace SYLVAR {

/// The path with each run of "#" replaced by the frame: without its fraction, right-aligned in a
/// field as wide as the run and filled with "0", a minus behind them; a longer number is not cut.
/// Pure; any thread.
std::string withFrameNumber(const std::string& path, float frame);

}  // namespace SYLVAR
