// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/ProceduralArguments.h>
#include <SylvarPlatform/DataAttribute.h>

#include <ostream>

/// One argument each, as " -name value ..."; nothing for an attribute without values. Of several
/// time samples the one nearest time 0 counts.
namespace SYLVAR {

using Sylvar3::internal::OvAttribute::DoubleAttribute;
using Sylvar3::internal::OvAttribute::FloatAttribute;
using Sylvar3::internal::OvAttribute::IntAttribute;

void WriteFloatArgument(std::ostream& stream, const std::string& name, const FloatAttribute& attr);
void WriteDoubleArgument(std::ostream& stream,
                         const std::string& name,
                         const DoubleAttribute& attr);
void WriteIntArgument(std::ostream& stream, const std::string& name, const IntAttribute& attr);

/// Resolves the values. When that fails the callback is told, and the argument ends where it is.
void WriteStringArgument(std::ostream& stream,
                         const std::string& name,
                         const StringAttribute& attr,
                         GeometryProducerPtr& producer,
                         int frame,
                         ProceduralErrorCallback errorCallback);

/// The first value alone, with a blank on each side: no name, no quotes. When it cannot be resolved
/// the callback is told, and it stands there as it is.
void WriteExtraArguments(std::ostream& stream,
                         const std::string& name,
                         const StringAttribute& attr,
                         GeometryProducerPtr& producer,
                         int frame,
                         ProceduralErrorCallback errorCallback);

}  // namespace SYLVAR
