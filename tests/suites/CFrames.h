/* SPDX-License-Identifier: Apache-2.0 */
#ifndef OV_TESTS_SUITES_C_FRAMES_H
#define OV_TESTS_SUITES_C_FRAMES_H

#include <OvSylvarProducers/suites/ScenegraphIteratorSuite.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Calls an entry of the table and adds 1 to the counter once it has returned. What the entry throws
   passes through the frame of plain C. */
void callThroughC(const OvScenegraphIteratorSuite* table,
                  OvSgIteratorStruct* iterator,
                  int entry,
                  const char* text,
                  int* returned);

/* The entries that walk or read a scene, by number; the text is a name or a path. */
enum { kFirstChild, kNextSibling, kChildByName, kByPath, kFinalize, kLoadOpTreeDescription };

#ifdef __cplusplus
}
#endif

#endif
