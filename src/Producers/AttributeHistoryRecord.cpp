// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/AttributeHistoryRecord.h>

namespace SYLVAR {

AttributeHistoryRecord::AttributeHistoryRecord() = default;

AttributeHistoryRecord::AttributeHistoryRecord(const std::string& itsLocation,
                                               const Attribute& itsAttribute)
    : location(itsLocation), attribute(itsAttribute) {}

}  // namespace SYLVAR
