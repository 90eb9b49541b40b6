// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/suites/ScenegraphIteratorSuite.h>

namespace SYLVAR {

/// The tables, versions 3 and 2: filled at the first call, for the life of the process. Any thread.
const OvScenegraphIteratorSuite* scenegraphIteratorSuite();
const OvScenegraphIteratorSuite2* scenegraphIteratorSuite2();

}  // namespace SYLVAR
