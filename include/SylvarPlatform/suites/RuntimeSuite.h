/* SPDX-License-Identifier: Apache-2.0 */
#ifndef SYLVAR_PLATFORM_SUITES_RUNTIME_SUITE_H
#define SYLVAR_PLATFORM_SUITES_RUNTIME_SUITE_H

#include <SylvarPlatform/suites/AttributeSuite.h>

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/*
 * A scene runtime as plain C: what a plug-in of the API below returns from its getSuite.
 *
 * A runtime cooks an op tree into locations, on demand. An op is a type, arguments and inputs. A
 * client looks at the scene through one op. Ops and clients are made in a transaction, and become
 * active when the runtime commits it. Unless an entry says otherwise:
 *
 * - a handle that an entry returns is owned by the caller, who gives it back with the release entry
 *   of its kind; an attribute with the release of the attribute suite;
 * - a handle that an entry is given is borrowed for the call, and must not be null;
 * - texts are given with their length, borrowed for the call, and may hold any bytes;
 * - handles may be given back in any order: each keeps alive what it needs, and a client its
 *   runtime;
 * - what an entry throws travels to the caller.
 *
 * The table grows at its end alone; a place that is given away keeps its meaning.
 */

#define OV_RUNTIME_API_NAME "SylvarRuntime"
#define OV_RUNTIME_API_VERSION 1

typedef struct OvRuntimeStruct OvRuntimeStruct;
typedef struct OvRuntimeTransactionStruct OvRuntimeTransactionStruct;
typedef struct OvRuntimeOpStruct OvRuntimeOpStruct;
typedef struct OvRuntimeClientStruct OvRuntimeClientStruct;

/* Takes the answer of a query: status 0 and `length` bytes, or another status and whatever came.
   The data is borrowed for the call. */
typedef void (*OvRuntimeCompletion)(int32_t status,
                                    const char* data,
                                    uint64_t length,
                                    void* context);

typedef struct OvRuntimeSuite {
    /* A new runtime, independent of all others; null when it cannot be made. [any thread] */
    OvRuntimeStruct* (*createRuntime)(void);
    void (*releaseRuntime)(OvRuntimeStruct* runtime); /* [any thread] */

    /* A new, empty transaction. A transaction and its ops belong to one thread at a time. */
    OvRuntimeTransactionStruct* (*createTransaction)(OvRuntimeStruct* runtime);
    void (*releaseTransaction)(OvRuntimeTransactionStruct* transaction);

    /* Makes the transaction's clients see their ops. Once for each transaction. */
    void (*commit)(OvRuntimeStruct* runtime, OvRuntimeTransactionStruct* transaction);

    /* Drops what was cooked of that location, and of those below it. The caller's next cook is
       fresh. [any thread] */
    void (*evict)(OvRuntimeStruct* runtime, const char* path, int64_t length);

    /* Waits for the cooks under way and drops what was cooked. The runtime stays usable.
       [any thread] */
    void (*finalize)(OvRuntimeStruct* runtime);

    /* Answers `completion` exactly once, on any thread, maybe before it returns. A name that is not
       known gets a status other than 0. [any thread] */
    void (*queryRuntimeInfo)(OvRuntimeStruct* runtime,
                             const char* name,
                             uint64_t nameLength,
                             void* context,
                             OvRuntimeCompletion completion);

    /* A new op without type, arguments or inputs. */
    OvRuntimeOpStruct* (*createOp)(OvRuntimeTransactionStruct* transaction);
    void (*releaseOp)(OvRuntimeOpStruct* op);

    /* Negative when the op could not be built from its input. */
    int32_t (*getOpId)(OvRuntimeOpStruct* op);

    /* Sets type and arguments. `args` may be null, and the type empty. */
    void (*setOpArgs)(OvRuntimeTransactionStruct* transaction,
                      OvRuntimeOpStruct* op,
                      const char* opType,
                      int64_t length,
                      OvAttributeStruct* args);

    /* Sets the inputs in order; they are ops of this transaction, and may be null. An input's own
       inputs may be set later. */
    void (*setOpInputs)(OvRuntimeTransactionStruct* transaction,
                        OvRuntimeOpStruct* op,
                        OvRuntimeOpStruct* const* inputs,
                        int64_t count);

    /* Reads a serialised op tree through `read`, until a short count, and returns its last op. A
       bad stream gives an op with a negative id. */
    OvRuntimeOpStruct* (*deserializeOps)(OvRuntimeTransactionStruct* transaction,
                                         void* stream,
                                         OvReadFunction read);

    /* A new client with no op set. */
    OvRuntimeClientStruct* (*createClient)(OvRuntimeTransactionStruct* transaction);
    void (*releaseClient)(OvRuntimeClientStruct* client); /* [any thread] */

    /* `op` is an op of this transaction, or null for none. */
    void (*setClientOp)(OvRuntimeTransactionStruct* transaction,
                        OvRuntimeClientStruct* client,
                        OvRuntimeOpStruct* op);

    /* The location's group, cooked if need be: "exists" (an int), "pc" (the names of the potential
       children) and "attrs" (a group). Null, or "exists" 0: it is not there. [any thread] */
    OvAttributeStruct* (*cookLocation)(OvRuntimeClientStruct* client,
                                       const char* path,
                                       int64_t length);

    /* 1 and the location's group when it was cooked before, its absence included; otherwise 0, and
       nothing is written. Neither cooks nor waits. [any thread] */
    uint8_t (*getCachedLocation)(OvRuntimeClientStruct* client,
                                 const char* path,
                                 int64_t length,
                                 OvAttributeStruct** location);

    /* Tells which op gave an attribute of a location, and which ones handed it on. A dot in the
       name steps into a group, and an empty name is the group of all attributes. Answers
       `completion` exactly once, on any thread, maybe before it returns: with JSON, or with another
       status than 0 and the reason. What is not cooked yet is cooked; for that it may wait. May be
       null: such a runtime cannot tell. [any thread]

           {"hasLocation": true, "hasAttribute": true, "isDropped": false, "steps": [
             {"gives": true, "name": "lamps", "type": "setAttributes",
              "number": 3, "count": 7, "file": "room.optree.json", "path": "/root/lamp1"}, ...]}

       The first step is the op that gave the value, and those behind it handed it on, up to the op
       that the client looks at. Each has its name in its op tree, its type, its number there from 1
       on, how many ops are there, the file that the op tree was loaded from ("" for a
       transaction's), and its location that has the value. Without the attribute the first step is
       an op that had it and did not hand it on, and "isDropped" is true; or, when no op had it, the
       one that gave the location. Names and paths are the bytes that they are, valid UTF-8 or not.
     */
    void (*traceAttribute)(OvRuntimeClientStruct* client,
                           const char* path,
                           int64_t length,
                           const char* name,
                           int64_t nameLength,
                           void* context,
                           OvRuntimeCompletion completion);
} OvRuntimeSuite;

#ifdef __cplusplus
}
#endif

#endif
