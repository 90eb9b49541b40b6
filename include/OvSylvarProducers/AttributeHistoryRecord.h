// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/Export.h>
#include <SylvarPlatform/Attribute.h>

#include <string>

namespace SYLVAR {

/// Where an attribute came from: a location and a value. A plain value.
struct OV_SYLVAR_PRODUCERS_API AttributeHistoryRecord {
    using Attribute = Sylvar3::internal::OvAttribute::Attribute;

    std::string location;
    Attribute attribute;

    /// An empty location and the null attribute.
    AttributeHistoryRecord();

    /// Copies the string and retains the attribute.
    AttributeHistoryRecord(const std::string& location, const Attribute& attribute);
};

}  // namespace SYLVAR
