// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/suites/RenderOutputUtilsSuite.h>

#include "suites/SceneView/CountedTables.h"

namespace ovtest {

/// The render output table of the host with ledgers in front of it: that of all handles of its own,
/// and `CountedTables::values` for attributes. Its entries may be replaced. One at a time.
class CountedRenderOutput {
public:
    explicit CountedRenderOutput(const OvRenderOutputUtilsSuite& realSuite);

    static HandleLedger& handles();

    OvRenderOutputUtilsSuite suite;
};

}  // namespace ovtest
