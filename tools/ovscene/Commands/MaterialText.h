// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Commands/MaterialView.h"
#include "Print/Output.h"

namespace ovscene {

/// What drives the terminals of a merged material, and where each part came from.
void printMaterial(const MaterialView& view, Output& output);

/// The nodes of a network, with their parameters and connections.
void printNetwork(const MaterialView& view, Output& output);

}  // namespace ovscene
