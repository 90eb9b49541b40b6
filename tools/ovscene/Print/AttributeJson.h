// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/Attribute.h>

#include "Print/JsonOutput.h"
#include "Scene/VisitLimit.h"

namespace ovscene {

/// One attribute in full, as a JSON object:
///
///     {"kind":"group","inherit":false,"children":[{"name":"type","kind":"string",...},...]}
///     {"kind":"float","tupleSize":3,"samples":[{"time":0,"values":[0,1,2]}]}
///     {"kind":"null"}
///
/// A child has its name in front. Any depth is written.
void writeAttributeJson(JsonWriter& json,
                        const Sylvar3::internal::OvAttribute::Attribute& attribute,
                        VisitLimit& limit);

}  // namespace ovscene
