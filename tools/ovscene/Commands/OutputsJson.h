// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Commands/OutputsView.h"
#include "Print/Output.h"

namespace ovscene {

/// All of it as one JSON document.
void printOutputsJson(const OutputsView& view, Output& output);

}  // namespace ovscene
