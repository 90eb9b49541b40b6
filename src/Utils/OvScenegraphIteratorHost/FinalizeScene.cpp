// SPDX-License-Identifier: Apache-2.0
#include "Utils/OvScenegraphIteratorHost/FinalizeScene.h"

#include <OvSylvarProducers/ScenegraphIteratorHost.h>

#include "Platform/Support/Log.h"
#include "Utils/OvScenegraphIteratorHost/IteratorLogger.h"

namespace SYLVAR {
namespace {

bool isLive(const SylvarRuntime::Client& client) {
    const SylvarRuntime::LocationData root = client.cookLocation("/root");
    if (!root.doesLocationExist()) {
        return false;
    }
    const GroupAttribute attributes = root.getAttrs();
    return attributes.getChildByName("liveRenderSettings") ||
           attributes.getChildByName("liveRender");
}

}  // namespace

void finalizeScene(OvSgIteratorStruct* iterator) {
    const GeometryProducerPtr producer = OvHandleToGeometryProducer(iterator);
    const auto client = producer ? producer->getClient() : nullptr;
    if (!client) {
        return;
    }
    if (isLive(*client)) {
        OV_LOG(iteratorLogger(), info, "Runtime finalize deferred while live rendering.");
        return;
    }
    if (const std::shared_ptr<SylvarRuntime> runtime = client->getRuntime()) {
        runtime->finalize();
    }
}

}  // namespace SYLVAR
