// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/GeometryProducer.h>

#include <string>

namespace SYLVAR {

/// The size of the render's picture in pixels: what the default resolution table has under the name
/// in the root's string attribute "renderSettings.resolution". "square_512", 512 by 512, for a null
/// root and for a missing attribute or one of another type; then the table is not asked.
///
/// Each of the three places may be null, and is written at the end alone. Throws
/// `std::runtime_error`: "GetRenderResolution: Error getting resolution table" when there is none,
/// "FileOut: Error querying resolution table for resolution: '<name>'." when it has no such name.
/// Any thread.
OV_SYLVAR_PRODUCERS_API void GetRenderResolution(std::string* resolutionName,
                                                 int* xres,
                                                 int* yres,
                                                 GeometryProducerPtr root);

}  // namespace SYLVAR
