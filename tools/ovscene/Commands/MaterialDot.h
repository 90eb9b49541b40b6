// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Commands/MaterialView.h"
#include "Print/Output.h"

namespace ovscene {

/// The network as a graph in Graphviz's language: a box for each node, an ellipse for each
/// terminal, an arrow for each connection, from the node that drives to the one that is driven. The
/// graph's own names are numbers; those of the scene are in quoted labels alone.
void printDot(const MaterialView& view, Output& output);

}  // namespace ovscene
