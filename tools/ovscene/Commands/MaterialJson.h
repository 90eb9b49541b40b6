// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Commands/MaterialView.h"
#include "Print/Output.h"

namespace ovscene {

/// All that is known of a material, as one JSON document.
void printMaterialJson(const MaterialView& view, Output& output);

}  // namespace ovscene
