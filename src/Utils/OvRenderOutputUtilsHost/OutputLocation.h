// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/suites/RenderOutputUtilsSuite.h>

/// The entries of the table that tell where a render writes to.
namespace SYLVAR {

OvAttributeStruct* getRenderOutputTempLocation(OvSgIteratorStruct* iterator,
                                               const char* outputName,
                                               const char* prefix,
                                               const char* suffix,
                                               float frame);
OvAttributeStruct* processTilePath(OvSgIteratorStruct* iterator, const char* path);

}  // namespace SYLVAR
