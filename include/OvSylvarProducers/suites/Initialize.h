/* SPDX-License-Identifier: Apache-2.0 */
#ifndef OV_SYLVAR_PRODUCERS_SUITES_INITIALIZE_H
#define OV_SYLVAR_PRODUCERS_SUITES_INITIALIZE_H

#include <SylvarPlatform/suites/HostTable.h>
#include <SylvarPlatform/suites/TableLayout.h>

#ifdef __cplusplus
extern "C" {
#endif

/*
 * Publishes the library's function tables with the host, in this order:
 *
 * - "ScenegraphIteratorHost", version 3 (ScenegraphIteratorSuite.h)
 * - "ScenegraphIteratorHost", version 2
 * - "RenderOutputUtilsHost", version 3 (RenderOutputUtilsSuite.h)
 *
 * Of the host's table it uses registerHostSuite alone, and reads it anew for each of them. Returns
 * what the last registration returned: 0 for success; the others count for nothing. Nothing else is
 * set up, and nothing is tested: the host must not be null.
 *
 * The host calls it once, on one thread, before the tables are used.
 */
__attribute__((visibility("default"))) int OvSylvarProducersInitialize(const OvHostTable* host);

/* The same by name, for a host that loads the library itself. */
#define OV_SYLVAR_PRODUCERS_INITIALIZE_SYMBOL "OvSylvarProducersInitialize"
typedef int (*OvSylvarProducersInitializeFunction)(const OvHostTable* host);

OV_REQUIRE(OvHostTableRegistersSuitesAtTheEleventhPlace,
           OV_TABLE_PLACE(OvHostTable, registerHostSuite) == 11);

#ifdef __cplusplus
}
#endif

#endif
