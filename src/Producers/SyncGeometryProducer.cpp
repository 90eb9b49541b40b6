// SPDX-License-Identifier: Apache-2.0
#include "Producers/SyncGeometryProducer.h"

#include "Producers/LocationChain.h"

#include <utility>

namespace SYLVAR {

SyncGeometryProducer::SyncGeometryProducer(std::string path,
                                           LocationData location,
                                           std::int64_t index,
                                           GeometryProducerPtr itsParent,
                                           ClientPtr client)
    : BaseGeometryProducer(std::move(path), std::move(location), index, std::move(itsParent)),
      client_(std::move(client)) {}

SylvarRuntime::LocationData SyncGeometryProducer::cook(const std::string& path, bool evict) {
    if (evict) {
        client_->getRuntime()->evict(path);
    }
    return client_->cookLocation(path);
}

GeometryProducerPtr SyncGeometryProducer::make(std::string path,
                                               LocationData location,
                                               std::int64_t index,
                                               GeometryProducerPtr itsParent) {
    return new SyncGeometryProducer(
        std::move(path), std::move(location), index, std::move(itsParent), client_);
}

GeometryProducerPtr CreateSyncGeometryProducer(const std::shared_ptr<SylvarRuntime::Client>& client,
                                               const std::string& path) {
    if (!client || !isLocationPath(path)) {
        return nullptr;
    }
    const auto cooked = [&](std::string level, GeometryProducerPtr above) -> GeometryProducerPtr {
        SylvarRuntime::LocationData location = client->cookLocation(level);
        if (!location.doesLocationExist()) {
            return nullptr;
        }
        return new SyncGeometryProducer(std::move(level),
                                        std::move(location),
                                        BaseGeometryProducer::kUnknownIndex,
                                        std::move(above),
                                        client);
    };
    return makeChain(path, cooked);
}

}  // namespace SYLVAR
