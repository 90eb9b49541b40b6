// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/suites/Initialize.h>

#include "Utils/OvRenderOutputUtilsHost/RenderOutputUtilsSuite.h"
#include "Utils/OvScenegraphIteratorHost/ScenegraphIteratorSuite.h"

int OvSylvarProducersInitialize(const OvHostTable* host) {
    host->registerHostSuite(SYLVAR::scenegraphIteratorSuite(),
                            OV_SCENEGRAPH_ITERATOR_SUITE_NAME,
                            OV_SCENEGRAPH_ITERATOR_SUITE_VERSION);
    host->registerHostSuite(SYLVAR::scenegraphIteratorSuite2(),
                            OV_SCENEGRAPH_ITERATOR_SUITE_NAME,
                            OV_SCENEGRAPH_ITERATOR_SUITE_VERSION_2);
    return host->registerHostSuite(SYLVAR::renderOutputUtilsSuite(),
                                   OV_RENDER_OUTPUT_UTILS_SUITE_NAME,
                                   OV_RENDER_OUTPUT_UTILS_SUITE_VERSION);
}
