// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/GeometryProducer.h>
#include <SylvarPlatform/GlobalAttributes.h>

#include <cstdint>
#include <string>

namespace SYLVAR {

/// The chain of locations above a producer, walked one level at a time. Lives on the stack for one
/// call of `GeometryProducer::getGlobalAttribute`.
class OV_SYLVAR_PRODUCERS_API GeometryProducerGlobalAttributeProvider
    : public Sylvar3::internal::OvSylvarServices::BaseGlobalAttributeProviderLegacy {
public:
    explicit GeometryProducerGlobalAttributeProvider(GeometryProducerPtr head);
    ~GeometryProducerGlobalAttributeProvider() override;

    /// Steps up one level at most, however far `depth` lies from the depth asked for last: depths
    /// are to be asked for one at a time. The second argument is not used.
    std::int32_t getGlobalAttrAtDepth(const std::string& name,
                                      const std::string& locationPath,
                                      std::int32_t depth,
                                      Attribute* output) override;

private:
    GeometryProducerPtr head_;
    GeometryProducer* cursor_ = nullptr;
    std::int32_t cursorDepth_ = 2147483647;  ///< The first call begins at the head.
};

}  // namespace SYLVAR
