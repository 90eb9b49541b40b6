// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Commands/PluginsView.h"
#include "Print/Output.h"

namespace ovscene {

/// For people: the plug-ins, and what is rejected; explained, each API with its plug-ins.
void printPlugins(const PluginsView& view, Output& output);

}  // namespace ovscene
