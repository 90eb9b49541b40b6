// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/suites/RenderOutputUtilsSuite.h>

#include "support/IteratorTable.h"

#include <cstring>
#include <memory>

namespace ovtest {

/// The render output table, found as a plug-in finds it: by name and version, with a host that the
/// library was started for.
inline const OvRenderOutputUtilsSuite& renderOutputTable() {
    iteratorTable();
    return *static_cast<const OvRenderOutputUtilsSuite*>(OvGetHostTable()->findSuite(
        OV_RENDER_OUTPUT_UTILS_SUITE_NAME, OV_RENDER_OUTPUT_UTILS_SUITE_VERSION));
}

/// Gives a handle back through that entry of the table.
template <auto kEntry>
struct GivesBack {
    template <class Handle>
    void operator()(Handle* handle) const {
        (renderOutputTable().*kEntry)(handle);
    }
};

/// @name Handles of a test, given back at its end
/// @{
using Camera =
    std::unique_ptr<CameraInfoStruct, GivesBack<&OvRenderOutputUtilsSuite::releaseCameraInfo>>;
using Network = std::unique_ptr<OvShadingNetworkNodesStruct,
                                GivesBack<&OvRenderOutputUtilsSuite::freeShadingNetworkNodes>>;
using Node = std::unique_ptr<ShadingNodeDescriptionStruct,
                             GivesBack<&OvRenderOutputUtilsSuite::releaseShadingNode>>;
using Connection =
    std::unique_ptr<ShadingNodeConnectionDescriptionStruct,
                    GivesBack<&OvRenderOutputUtilsSuite::releaseShadingNodeConnection>>;
/// @}

/// The records behind the three counted handles begin with a count.
template <class Handle>
int countIn(const Handle* handle) {
    int count = 0;
    std::memcpy(&count, handle, sizeof count);
    return count;
}

}  // namespace ovtest
