/* SPDX-License-Identifier: Apache-2.0 */
#include "suites/CFrames.h"

void callThroughC(const OvScenegraphIteratorSuite* table,
                  OvSgIteratorStruct* iterator,
                  int entry,
                  const char* text,
                  int* returned) {
    switch (entry) {
        case kFirstChild:
            table->sgGetFirstChild(iterator, 1);
            break;
        case kNextSibling:
            table->sgGetNextSibling(iterator, 1);
            break;
        case kChildByName:
            table->sgGetChildByName(iterator, text, 1);
            break;
        case kByPath:
            table->sgGetByPath(iterator, text, 1);
            break;
        case kFinalize:
            table->sgFinalize(iterator);
            break;
        case kLoadOpTreeDescription:
            table->sgLoadOpTreeDescription(text);
            break;
        default:
            break;
    }
    ++*returned;
}
