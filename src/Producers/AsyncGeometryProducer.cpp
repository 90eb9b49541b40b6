// SPDX-License-Identifier: Apache-2.0
#include "Producers/AsyncGeometryProducer.h"

#include "Producers/LocationChain.h"

#include <iterator>
#include <utility>

namespace SYLVAR {
namespace {

using Sylvar3::internal::OvAttribute::castAttribute;

/// What a location that was not cooked yet reads as.
SylvarRuntime::LocationData absentLocation() {
    const OvAttributeSuite& suite = *Attribute::_attrSuite;
    const Attribute exists = Attribute::adopt(suite.createInt(0));
    const Attribute children = Attribute::adopt(suite.createStringArray(nullptr, 0, 1));
    const char* const names[] = {"exists", "pc"};
    OvAttributeStruct* const values[] = {exists.handle(), children.handle()};
    return SylvarRuntime::LocationData(
        castAttribute<GroupAttribute>(suite.createGroup(names, values, std::size(names), 1)));
}

}  // namespace

AsyncGeometryProducer::AsyncGeometryProducer(std::string path,
                                             LocationData location,
                                             std::int64_t index,
                                             GeometryProducerPtr itsParent,
                                             ClientPtr client)
    : BaseGeometryProducer(std::move(path), std::move(location), index, std::move(itsParent)),
      client_(std::move(client)) {}

SylvarRuntime::LocationData AsyncGeometryProducer::cook(const std::string& path, bool /*evict*/) {
    std::pair<LocationData, bool> cached = client_->getCachedLocation(path);
    return cached.second ? std::move(cached.first) : absentLocation();
}

GeometryProducerPtr AsyncGeometryProducer::make(std::string path,
                                                LocationData location,
                                                std::int64_t index,
                                                GeometryProducerPtr itsParent) {
    return new AsyncGeometryProducer(
        std::move(path), std::move(location), index, std::move(itsParent), client_);
}

GeometryProducerPtr CreateAsyncGeometryProducer(
    const std::shared_ptr<SylvarRuntime::Client>& client,
    const std::string& path) {
    if (!client || !isLocationPath(path)) {
        return nullptr;
    }
    const auto cached = [&](std::string level, GeometryProducerPtr above) -> GeometryProducerPtr {
        auto [location, isCached] = client->getCachedLocation(level);
        if (!isCached || !location.doesLocationExist()) {
            return nullptr;
        }
        return new AsyncGeometryProducer(std::move(level),
                                         std::move(location),
                                         BaseGeometryProducer::kUnknownIndex,
                                         std::move(above),
                                         client);
    };
    return makeChain(path, cached);
}

}  // namespace SYLVAR
