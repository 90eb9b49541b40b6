// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/SampleAccessor.h>

namespace ovscene {

/// Calls `use` with the samples of a data attribute: a `SampleAccessor` of its kind, looking at
/// the sample nearest time 0. A group and the null attribute are left alone.
template <class Use>
void withSamples(const Sylvar3::internal::OvAttribute::Attribute& attribute, Use use) {
    namespace OvAttribute = Sylvar3::internal::OvAttribute;
    switch (attribute.getType()) {
        case OV_ATTRIBUTE_INT:
            return use(OvAttribute::SampleAccessor<OvAttribute::IntAttribute>(attribute, 0.0F));
        case OV_ATTRIBUTE_FLOAT:
            return use(OvAttribute::SampleAccessor<OvAttribute::FloatAttribute>(attribute, 0.0F));
        case OV_ATTRIBUTE_DOUBLE:
            return use(OvAttribute::SampleAccessor<OvAttribute::DoubleAttribute>(attribute, 0.0F));
        case OV_ATTRIBUTE_STRING:
            return use(OvAttribute::SampleAccessor<OvAttribute::StringAttribute>(attribute, 0.0F));
        default:
            return;
    }
}

/// What no accessor tells; 0 for what is no data attribute.
inline std::int64_t tupleSize(const Sylvar3::internal::OvAttribute::Attribute& attribute) {
    return attribute ? attribute._attrSuite->getTupleSize(attribute.handle()) : 0;
}

}  // namespace ovscene
