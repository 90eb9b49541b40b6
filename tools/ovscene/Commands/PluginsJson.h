// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Commands/PluginsView.h"
#include "Print/Output.h"

namespace ovscene {

/// All of it as one JSON document.
void printPluginsJson(const PluginsView& view, Output& output);

}  // namespace ovscene
