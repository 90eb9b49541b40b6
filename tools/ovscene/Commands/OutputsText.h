// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Commands/OutputsView.h"
#include "Print/Output.h"

namespace ovscene {

/// For people: what the render is, and a line for each output.
void printOutputs(const OutputsView& view, Output& output);

}  // namespace ovscene
