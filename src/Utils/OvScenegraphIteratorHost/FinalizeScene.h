// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/suites/ScenegraphIteratorSuite.h>

namespace SYLVAR {

/// The entry of the table that ends a render.
void finalizeScene(OvSgIteratorStruct* iterator);

}  // namespace SYLVAR
