// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/ScenegraphIteratorHost.h>

#include "support/StaticScene.h"

#include <string>

/// What the scene table has no entry for.
namespace ovtest {

/// An iterator, without a reference, of a scene that no runtime cooks.
inline OvSgIteratorStruct* staticIterator() {
    return SYLVAR::OvGeometryProducerToHandle(StaticScene().at("/root").open("/root"));
}

/// Whether the runtime keeps what it cooked of that location.
inline bool isCooked(OvSgIteratorStruct* iterator, const std::string& path) {
    return SYLVAR::OvHandleToGeometryProducer(iterator)
        ->getClient()
        ->getCachedLocation(path)
        .second;
}

inline void evict(OvSgIteratorStruct* iterator, const std::string& path) {
    SYLVAR::OvHandleToGeometryProducer(iterator)->getClient()->getRuntime()->evict(path);
}

}  // namespace ovtest
