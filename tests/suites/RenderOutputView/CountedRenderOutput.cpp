// SPDX-License-Identifier: Apache-2.0
#include "suites/RenderOutputView/CountedRenderOutput.h"

namespace ovtest {
namespace {

using Suite = OvRenderOutputUtilsSuite;

const Suite* real = nullptr;

/// The entries that hand something out, in front of the real ones; the arguments are those of the
/// entry that they are assigned to.
template <auto kEntry, class... Args>
auto making(Args... args) {
    const auto made = (real->*kEntry)(args...);
    CountedRenderOutput::handles().made(made, 1);
    return made;
}

template <auto kEntry, class... Args>
OvAttributeStruct* telling(Args... args) {
    OvAttributeStruct* const told = (real->*kEntry)(args...);
    CountedTables::values().made(told, 1);
    return told;
}

/// Null owes nothing, and may be given back.
template <auto kEntry, class Handle>
void givingBack(Handle* handle) {
    if (handle) {
        CountedRenderOutput::handles().released(handle);
    }
    (real->*kEntry)(handle);
}

/// No owner shares a handle: its count has no lock.
template <class Handle>
void retaining(Handle* /*handle*/) {
    CountedRenderOutput::handles().made("retained", 1);
}

}  // namespace

CountedRenderOutput::CountedRenderOutput(const Suite& realSuite) : suite(realSuite) {
    real = &realSuite;
    handles().clear();
    suite.getCameraInfo = making<&Suite::getCameraInfo>;
    suite.retainCameraInfo = retaining;
    suite.releaseCameraInfo = givingBack<&Suite::releaseCameraInfo>;
    suite.getShadingNetworkNodesFromAttr = making<&Suite::getShadingNetworkNodesFromAttr>;
    suite.getShadingNetworkNodesFromIterator = making<&Suite::getShadingNetworkNodesFromIterator>;
    suite.freeShadingNetworkNodes = givingBack<&Suite::freeShadingNetworkNodes>;
    suite.getShadingNetworkNode = making<&Suite::getShadingNetworkNode>;
    suite.retainShadingNode = retaining;
    suite.releaseShadingNode = givingBack<&Suite::releaseShadingNode>;
    suite.getShadingNodeConnection = making<&Suite::getShadingNodeConnection>;
    suite.retainShadingNodeConnection = retaining;
    suite.releaseShadingNodeConnection = givingBack<&Suite::releaseShadingNodeConnection>;
    suite.buildProceduralArgumentsString = telling<&Suite::buildProceduralArgumentsString>;
    suite.findSampleTimesRelevantToShutterRange =
        telling<&Suite::findSampleTimesRelevantToShutterRange>;
    suite.getRenderResolution = telling<&Suite::getRenderResolution>;
    suite.getCameraPath = telling<&Suite::getCameraPath>;
    suite.convertTexturesToArbitraryAttr = telling<&Suite::convertTexturesToArbitraryAttr>;
    suite.getArchString = telling<&Suite::getArchString>;
    suite.expandArchPath = telling<&Suite::expandArchPath>;
    suite.getFlattenedMaterialAttr = telling<&Suite::getFlattenedMaterialAttr>;
    suite.getShadingNodeParameter = telling<&Suite::getShadingNodeParameter>;
    suite.getLocationTypesWithDelegates = telling<&Suite::getLocationTypesWithDelegates>;
    suite.getRenderOutputTempLocation = telling<&Suite::getRenderOutputTempLocation>;
    suite.processTilePath = telling<&Suite::processTilePath>;
}

HandleLedger& CountedRenderOutput::handles() {
    static HandleLedger ledger;
    return ledger;
}

}  // namespace ovtest
