// SPDX-License-Identifier: Apache-2.0
#include "Producers/ThreadAwareGeometryProducer.h"

#include "Producers/LocationChain.h"

#include <boost/smart_ptr/make_shared.hpp>

#include <algorithm>
#include <utility>
#include <vector>

namespace SYLVAR {
namespace {

using ThreadLocalClientPtr = ThreadAwareGeometryProducer::ThreadLocalClientPtr;

/// One for each level of a path, the one of the path itself in front: a source that is not valid is
/// told once for each.
std::vector<ThreadLocalClientPtr> clientsFor(const OpTreeSource& source, const std::string& path) {
    const auto levels = 1 + std::count(path.begin() + 1, path.end(), '/');
    std::vector<ThreadLocalClientPtr> clients(static_cast<std::size_t>(levels));
    for (ThreadLocalClientPtr& client : clients) {
        client = boost::make_shared<ThreadLocalClient>(source);
    }
    return clients;
}

GeometryProducerPtr createFrom(const OpTreeSource& source, const std::string& path) {
    if (!isLocationPath(path)) {
        return nullptr;
    }
    std::vector<ThreadLocalClientPtr> clients = clientsFor(source, path);
    const auto cooked = [&](std::string level, GeometryProducerPtr above) -> GeometryProducerPtr {
        const ThreadLocalClientPtr client = std::move(clients.back());
        clients.pop_back();
        auto location = ThreadAwareGeometryProducer::cookWith(*client, level, false);
        if (!location.doesLocationExist()) {
            return nullptr;
        }
        return new ThreadAwareGeometryProducer(std::move(level),
                                               std::move(location),
                                               BaseGeometryProducer::kUnknownIndex,
                                               std::move(above),
                                               client);
    };
    return makeChain(path, cooked);
}

}  // namespace

ThreadAwareGeometryProducer::ThreadAwareGeometryProducer(std::string path,
                                                         LocationData location,
                                                         std::int64_t index,
                                                         GeometryProducerPtr itsParent,
                                                         ThreadLocalClientPtr client)
    : BaseGeometryProducer(std::move(path), std::move(location), index, std::move(itsParent)),
      threadLocalClient_(std::move(client)) {}

SylvarRuntime::LocationData ThreadAwareGeometryProducer::cookWith(ThreadLocalClient& client,
                                                                  const std::string& path,
                                                                  bool evict) {
    const std::shared_ptr<SylvarRuntime::Client> ofThisThread = client.getClient();
    if (!ofThisThread) {
        return {};
    }
    if (evict) {
        ofThisThread->getRuntime()->evict(path);
    }
    return ofThisThread->cookLocation(path);
}

GeometryProducerPtr ThreadAwareGeometryProducer::make(std::string path,
                                                      LocationData location,
                                                      std::int64_t index,
                                                      GeometryProducerPtr itsParent) {
    return new ThreadAwareGeometryProducer(std::move(path),
                                           std::move(location),
                                           index,
                                           std::move(itsParent),
                                           threadLocalClient_->isOfThisThread()
                                               ? threadLocalClient_
                                               : threadLocalClient_->replicate());
}

GeometryProducerPtr CreateThreadAwareGeometryProducer(const std::string& opTreeFile,
                                                      const std::string& path) {
    return createFrom(OpTreeSource::createFromFile(opTreeFile), path);
}

GeometryProducerPtr CreateThreadAwareGeometryProducer(const GroupAttribute& opTree,
                                                      const std::string& path) {
    return createFrom(OpTreeSource::createFromGroupAttribute(opTree), path);
}

}  // namespace SYLVAR
