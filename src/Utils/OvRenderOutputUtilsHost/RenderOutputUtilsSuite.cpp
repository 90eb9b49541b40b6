// SPDX-License-Identifier: Apache-2.0
#include "Utils/OvRenderOutputUtilsHost/RenderOutputUtilsSuite.h"

#include "Platform/Support/OnceBuilt.h"
#include "Utils/OvRenderOutputUtilsHost/CameraHandle.h"
#include "Utils/OvRenderOutputUtilsHost/DelegateEntries.h"
#include "Utils/OvRenderOutputUtilsHost/OutputLocation.h"
#include "Utils/OvRenderOutputUtilsHost/PluginCaches.h"
#include "Utils/OvRenderOutputUtilsHost/SceneEntries.h"
#include "Utils/OvRenderOutputUtilsHost/ShadingNodeHandles.h"

namespace SYLVAR {
namespace {

OvRenderOutputUtilsSuite allEntries() {
    OvRenderOutputUtilsSuite suite{};
    setSceneEntries(suite);
    setShadingNodeEntries(suite);
    setCameraEntries(suite);
    suite.flushPluginCaches = flushPluginCaches;
    suite.processLocationDelegate = processLocationDelegate;
    suite.getLocationTypesWithDelegates = getLocationTypesWithDelegates;
    suite.getRenderOutputTempLocation = getRenderOutputTempLocation;
    suite.processTilePath = processTilePath;
    return suite;
}

}  // namespace

const OvRenderOutputUtilsSuite* renderOutputUtilsSuite() {
    static Sylvar3::internal::Support::OnceBuilt<OvRenderOutputUtilsSuite> built;
    return &built.get(allEntries);
}

}  // namespace SYLVAR
