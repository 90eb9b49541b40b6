// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/ThreadAwareGeometryProducer.h>
#include <OvSylvarProducers/ThreadLocalClient.h>

#include "Producers/BaseGeometryProducer.h"

#include <memory>
#include <string>

namespace SYLVAR {

/// Waits, and cooks on the client of the thread that makes the step. Without a client every
/// location is absent.
///
/// The producers of a walk share one `ThreadLocalClient`. A thread that makes a step from a
/// producer of another thread goes on with a replica, which those below share.
class ThreadAwareGeometryProducer final : public BaseGeometryProducer {
public:
    using ThreadLocalClientPtr = boost::shared_ptr<ThreadLocalClient>;

    ThreadAwareGeometryProducer(std::string path,
                                LocationData location,
                                std::int64_t index,
                                GeometryProducerPtr itsParent,
                                ThreadLocalClientPtr client);

    /// The location as the calling thread's client cooks it.
    static LocationData cookWith(ThreadLocalClient& client, const std::string& path, bool evict);

    std::shared_ptr<SylvarRuntime::Client> getClient() override {
        return threadLocalClient_->getClient();
    }
    LocationData cookChildLocation(const char* path, bool evict) override {
        return cook(path, evict);
    }
    GeometryProducerPtr createProducer(const std::string& path,
                                       const LocationData& location,
                                       long index,
                                       GeometryProducerPtr itsParent) override {
        return make(path, location, index, std::move(itsParent));
    }

    /// Shared by the producers that one thread makes below this one.
    const ThreadLocalClientPtr& threadLocalClient() const { return threadLocalClient_; }

protected:
    LocationData cook(const std::string& path, bool evict) override {
        return cookWith(*threadLocalClient_, path, evict);
    }
    GeometryProducerPtr make(std::string path,
                             LocationData location,
                             std::int64_t index,
                             GeometryProducerPtr itsParent) override;

private:
    const ThreadLocalClientPtr threadLocalClient_;
};

}  // namespace SYLVAR
