// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/suites/ScenegraphIteratorSuite.h>

/// The two entries of the table that make a root.
namespace SYLVAR {

OvSgIteratorStruct* createRootFromFile(const char* filename);
OvSgIteratorStruct* createRootFromAttr(OvAttributeStruct* opTree);

}  // namespace SYLVAR
