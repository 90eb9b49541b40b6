// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Attributes/Values/DataValue.h"

#include <SylvarPlatform/DataAttribute.h>

#include "Platform/Embedded/Attributes/Values/Block.h"
#include "Platform/Embedded/Attributes/Values/Lifetime.h"
#include "Platform/Embedded/Attributes/Values/TextRecords.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <new>

namespace Sylvar3::internal::OvAttribute::Embedded {

namespace {

/// Up to here a hash is as quickly computed anew as it is found.
constexpr std::size_t kLongestUnkeptBytes = 128;

std::size_t plus(std::size_t a, std::size_t b) {
    std::size_t sum = 0;
    if (__builtin_add_overflow(a, b, &sum)) {
        throw std::bad_alloc();
    }
    return sum;
}

std::size_t times(std::size_t a, std::size_t b) {
    std::size_t product = 0;
    if (__builtin_mul_overflow(a, b, &product) || product > PTRDIFF_MAX) {
        throw std::bad_alloc();
    }
    return product;
}

bool needsTimes(const DataShape& shape) {
    const bool isPlain = shape.sampleCount == 1 && (!shape.times || isPlainTime(shape.times[0]));
    return shape.sampleCount != 0 && !isPlain;
}

void writeTimes(DataValue& value, const float* from) {
    auto* const to =
        reinterpret_cast<float*>(static_cast<char*>(value.values()) + value.valuesBytes());
    if (from) {
        std::copy_n(from, value.sampleCount, to);
    } else {
        std::fill_n(to, value.sampleCount, 0.0F);
    }
}

}  // namespace

bool isPlainTime(float time) {
    std::uint32_t bits = 0;
    std::memcpy(&bits, &time, sizeof bits);
    return bits == 0;
}

bool DataShape::isLegal() const {
    return tupleSize >= 1 && tupleSize <= std::numeric_limits<std::int32_t>::max() &&
           sampleCount >= 0 && sampleCount <= std::numeric_limits<std::int32_t>::max() &&
           valueCount >= 0;
}

const float* DataValue::times() const {
    return flags & kTimed
               ? reinterpret_cast<const float*>(static_cast<const char*>(values()) + valuesBytes())
               : &DataAttribute::kZero;
}

const char* DataValue::records() const {
    return static_cast<const char*>(values()) + valuesBytes() +
           (flags & kTimed ? sampleCount * sizeof(float) : 0);
}

std::int64_t DataValue::nearestSample(float time) const {
    if (sampleCount == 1) {
        return 0;
    }
    const float* const all = times();
    std::int64_t nearest = 0;
    for (std::int64_t i = 1; i < sampleCount; ++i) {
        if (std::fabs(all[i] - time) < std::fabs(all[nearest] - time)) {
            nearest = i;
        }
    }
    return nearest;
}

DataValue* newDataValue(Block* block, const DataShape& shape) {
    const auto samples = static_cast<std::size_t>(shape.sampleCount);
    const std::int64_t valueCount = samples == 0 ? 0 : shape.valueCount;
    const bool isTimed = needsTimes(shape);
    const std::size_t valuesBytes =
        times(times(static_cast<std::size_t>(valueCount), samples), valueBytesOf(shape.kind));
    const std::size_t timesBytes = isTimed ? times(samples, sizeof(float)) : 0;
    const std::size_t payload = plus(plus(valuesBytes, timesBytes), shape.textBytes);
    const bool keepsHash = payload > kLongestUnkeptBytes;

    const std::size_t before = keepsHash ? sizeof(HashSlot) : 0;
    const std::size_t bytes = plus(sizeof(DataValue), payload);
    std::uint32_t toOwner = 0;
    void* const memory = block ? block->allocate(before, bytes, toOwner)
                               : allocateStandalone(before, bytes, toOwner);
    if (keepsHash) {
        new (static_cast<char*>(memory) - before) HashSlot{};
    }
    auto* const value = new (memory) DataValue;
    value->kind = static_cast<std::uint8_t>(shape.kind);
    value->flags = static_cast<std::uint8_t>((isTimed ? kTimed : 0) | (keepsHash ? kKeepsHash : 0));
    value->reserved = 0;
    value->toOwner = toOwner;
    value->tupleSize = static_cast<std::uint32_t>(shape.tupleSize);
    value->sampleCount = static_cast<std::uint32_t>(samples);
    value->valueCount = valueCount;
    if (isTimed) {
        writeTimes(*value, shape.times);
    }
    return value;
}

StringWriter::StringWriter(DataValue& value)
    : pointer_(static_cast<const char**>(value.values())),
      record_(const_cast<char*>(value.records())) {}

void StringWriter::write(std::string_view text) {
    *pointer_++ = record_ + sizeof(std::uint32_t);
    record_ = TextRecord::write(record_, text);
}

}  // namespace Sylvar3::internal::OvAttribute::Embedded
