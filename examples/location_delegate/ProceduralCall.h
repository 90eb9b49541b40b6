/* SPDX-License-Identifier: Apache-2.0 */
#pragma once

#include <stdint.h>

/*
 * What the sample delegate and the renderers that use it agree on. A renderer asks for the type
 * below, of any renderer, hands over a ProceduralFrame, and gets a ProceduralCall:
 *
 *     ProceduralFrame frame = {12, -0.25f, 0.25f, {0, 1, 0, 1}, 1920, 1080};
 *     void* result;
 *     if (output->processLocationDelegate(
 *             location, "", SAMPLE_PROCEDURAL_TYPE, &frame, &result) && result) {
 *         ProceduralCall* call = (ProceduralCall*)result;
 *         ... load call->library and tell it call->arguments ...
 *         call->dispose(call);
 *     }
 */

#define SAMPLE_PROCEDURAL_TYPE "renderer procedural"

typedef struct ProceduralFrame {
    int32_t frame;
    float shutterOpen;
    float shutterClose;
    float cropWindow[4];
    int32_t width;
    int32_t height;
} ProceduralFrame;

/* Null when the location names no library, and when there is no memory for it. */
typedef struct ProceduralCall {
    const char* library;   /* what to load: the location's string "procedural.library" */
    const char* arguments; /* what to tell it: the line of command of the group "procedural" */

    /* Gives the call and its texts back. Called once, by the renderer, on any thread. */
    void (*dispose)(struct ProceduralCall* call);
} ProceduralCall;
