// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/suites/RenderOutputUtilsSuite.h>

namespace SYLVAR {

/// Sets the entries of the table that hand a location, an attribute or a text on to one function of
/// this library and give its result as an attribute or a number.
void setSceneEntries(OvRenderOutputUtilsSuite& suite);

}  // namespace SYLVAR
