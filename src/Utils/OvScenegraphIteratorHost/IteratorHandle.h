// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <OvSylvarProducers/GeometryProducer.h>
#include <OvSylvarProducers/suites/ScenegraphIteratorSuite.h>

#include <atomic>
#include <cstdint>
#include <utility>

/// What an iterator of the plain table points to.
struct OvSgIteratorStruct {
    explicit OvSgIteratorStruct(SYLVAR::GeometryProducerPtr itsProducer) noexcept
        : producer(std::move(itsProducer)) {}

    std::atomic<std::int32_t> refCount{0};
    SYLVAR::GeometryProducerPtr producer;
};

namespace SYLVAR {

/// The two entries of the table; null does nothing.
void retainIterator(OvSgIteratorStruct* iterator) noexcept;
void releaseIterator(OvSgIteratorStruct* iterator) noexcept;

}  // namespace SYLVAR
