// SPDX-License-Identifier: Apache-2.0
#include "Utils/OvScenegraphIteratorHost/IteratorHandle.h"

#include <OvSylvarProducers/ScenegraphIteratorHost.h>

namespace SYLVAR {

OvSgIteratorStruct* OvGeometryProducerToHandle(GeometryProducerPtr producer) {
    return producer ? new OvSgIteratorStruct(std::move(producer)) : nullptr;
}

GeometryProducerPtr OvHandleToGeometryProducer(OvSgIteratorStruct* iterator) {
    return iterator ? iterator->producer : nullptr;
}

void retainIterator(OvSgIteratorStruct* iterator) noexcept {
    if (iterator) {
        iterator->refCount.fetch_add(1, std::memory_order_relaxed);
    }
}

/// Who holds the one reference that is left shares the count with nobody, and need not write it.
void releaseIterator(OvSgIteratorStruct* iterator) noexcept {
    if (iterator && (iterator->refCount.load(std::memory_order_acquire) == 1 ||
                     iterator->refCount.fetch_sub(1, std::memory_order_acq_rel) == 1)) {
        delete iterator;
    }
}

}  // namespace SYLVAR
