// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/GeometryProducer.h>
#include <OvSylvarProducers/suites/ScenegraphIteratorSuite.h>

/// Between producers and the iterators of the plain table, for hosts that have both. Any thread.
namespace SYLVAR {

/// A new iterator that holds the producer, without a reference: one is taken with `sgRetain`, and
/// given back with `sgRelease`, which frees it. Null for a null producer.
OV_SYLVAR_PRODUCERS_API OvSgIteratorStruct* OvGeometryProducerToHandle(
    GeometryProducerPtr producer);

/// The iterator's producer; null for the null iterator. The iterator's count stays as it is.
OV_SYLVAR_PRODUCERS_API GeometryProducerPtr
OvHandleToGeometryProducer(OvSgIteratorStruct* iterator);

}  // namespace SYLVAR
