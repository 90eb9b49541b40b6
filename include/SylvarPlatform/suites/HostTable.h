/* SPDX-License-Identifier: Apache-2.0 */
#ifndef SYLVAR_PLATFORM_SUITES_HOST_TABLE_H
#define SYLVAR_PLATFORM_SUITES_HOST_TABLE_H

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/*
 * What a host offers to those whom it loads. They get everything through this table, and link
 * nothing of the host.
 *
 * - The table and all suites that it gives live as long as the process.
 * - A string that an entry is given is borrowed for the call.
 * - Every entry may be called from any thread at any time. None throws, unless memory runs out
 *   (std::bad_alloc travels).
 * - The table grows at its end alone, and a place that is given away keeps its meaning. Read what
 *   is behind the eleventh place only when `size` covers it. A reserved place is null.
 */

#define OV_HOST_TABLE_VERSION 1

/* The suite that every host has: `OvAttributeSuite`. */
#define OV_ATTRIBUTE_SUITE_NAME "Attribute"
#define OV_ATTRIBUTE_SUITE_VERSION 1

/* How grave a message is; any other number counts as the nearest of these. */
enum { OV_LOG_DEBUG = 0, OV_LOG_INFO = 1, OV_LOG_WARN = 2, OV_LOG_ERROR = 3 };

/* What registerHostSuite returns. */
enum {
    OV_HOST_SUITE_REGISTERED = 0,
    OV_HOST_SUITE_INVALID = 1, /* a null suite, or a name that is null or empty */
    OV_HOST_SUITE_TAKEN = 2    /* another table has this name and version; it stays */
};

typedef struct OvHostTable {
    uintptr_t size;    /* of this table, in bytes */
    uintptr_t version; /* OV_HOST_TABLE_VERSION */

    /* The function table of that name and version; null when there is none. Null name: null. */
    const void* (*findSuite)(const char* name, uint32_t version);

    /* 1 when a message of that level (above) to the logger of that name would go anywhere; cheap.
       Null logger: 0. */
    int32_t (*isLogEnabled)(const char* logger, int32_t level);

    /* Logs a message, with the place that it comes from; `file` may be null. Ask isLogEnabled
       before making the text. Null logger or message: does nothing. */
    void (*log)(const char* logger,
                int32_t level,
                const char* message,
                const char* file,
                int32_t line);

    /* Writes the value of a configuration key into `buffer`, cut to `bufferSize` with its NUL, and
       returns the length of the whole value without a NUL; -1, and the buffer as it was, when the
       key is not set. A null buffer, or one of size 0, takes nothing. Null key: -1. */
    int64_t (*getConfiguration)(const char* key, char* buffer, size_t bufferSize);

    void (*reserved6)(void);
    void (*reserved7)(void);
    void (*reserved8)(void);
    void (*reserved9)(void);

    /* The eleventh place. Publishes a function table for findSuite; `suite` must live as long as
       the process, `name` is copied. The same table again is a success. Returns one of the codes
       above, 0 for success. */
    int (*registerHostSuite)(const void* suite, const char* name, uint32_t version);
} OvHostTable;

/* The table of the platform of this process, for its whole life. */
const OvHostTable* OvGetHostTable(void);

#ifdef __cplusplus
}
#endif

#endif
