// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/AsyncGeometryProducer.h>

#include "Producers/BaseGeometryProducer.h"

#include <memory>
#include <string>

namespace SYLVAR {

/// Never waits: what was not cooked before reads as absent. Nothing is evicted.
class AsyncGeometryProducer final : public BaseGeometryProducer {
public:
    using ClientPtr = std::shared_ptr<SylvarRuntime::Client>;

    /// The client must not be empty.
    AsyncGeometryProducer(std::string path,
                          LocationData location,
                          std::int64_t index,
                          GeometryProducerPtr itsParent,
                          ClientPtr client);

    ClientPtr getClient() override { return client_; }
    LocationData cookChildLocation(const char* path, bool evict) override {
        return cook(path, evict);
    }
    GeometryProducerPtr createProducer(const std::string& path,
                                       const LocationData& location,
                                       long index,
                                       GeometryProducerPtr itsParent) override {
        return make(path, location, index, std::move(itsParent));
    }

protected:
    LocationData cook(const std::string& path, bool evict) override;
    GeometryProducerPtr make(std::string path,
                             LocationData location,
                             std::int64_t index,
                             GeometryProducerPtr itsParent) override;

private:
    const ClientPtr client_;
};

}  // namespace SYLVAR
