// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/XFormUtil.h>

#include "Platform/Embedded/Services/SampleTimes.h"
#include "Platform/Embedded/Services/TransformChain.h"
#include "Platform/Embedded/Services/TransformProduct.h"

#include <utility>

namespace Sylvar3::internal::OvSylvarServices {

using OvAttribute::GroupAttribute;

namespace Embedded {

namespace {

/// The times of the samples of all transforms that are not forgotten.
class ExistingTimes final : public TransformVisitor {
public:
    void origin() override { times_.clear(); }
    void transform(const TransformOperation&, const DataValue& values) override {
        addSampleTimes(values, times_);
    }

    SampleTimes orZero() const { return times_.empty() ? SampleTimes(1, 0.0F) : times_; }

private:
    SampleTimes times_;
};

TransformMatrix matricesAt(SampleTimes times, const TransformChain& chain) {
    TransformProduct product(std::move(times));
    chain.visit(product);
    return product.result();
}

}  // namespace

}  // namespace Embedded

TransformMatrix OvXFormUtil::CalcTransformMatrixAtExistingTimes(const GroupAttribute& transforms) {
    const Embedded::TransformChain chain(transforms);
    Embedded::ExistingTimes times;
    chain.visit(times);
    return Embedded::matricesAt(times.orZero(), chain);
}

TransformMatrix OvXFormUtil::CalcTransformMatrixAtTime(const GroupAttribute& transforms,
                                                       float time) {
    return Embedded::matricesAt({time}, Embedded::TransformChain(transforms));
}

}  // namespace Sylvar3::internal::OvSylvarServices
