// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/suites/RenderOutputUtilsSuite.h>

/// The entries of the table that lead to location delegates.
namespace SYLVAR {

bool processLocationDelegate(OvSgIteratorStruct* iterator,
                             const char* rendererName,
                             const char* locationType,
                             void* input,
                             void** result);
OvAttributeStruct* getLocationTypesWithDelegates(const char* rendererName);

}  // namespace SYLVAR
