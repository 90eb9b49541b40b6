// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Attributes/Values/Value.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace Sylvar3::internal::OvAttribute::Embedded {

class Block;

constexpr bool isDataKind(std::int32_t kind) {
    return kind >= OV_ATTRIBUTE_INT && kind <= OV_ATTRIBUTE_STRING;
}

/// Bytes of one value in memory; a string's value is its pointer.
constexpr std::size_t valueBytesOf(std::int32_t kind) {
    return kind == OV_ATTRIBUTE_INT || kind == OV_ATTRIBUTE_FLOAT ? 4 : 8;
}

/// A data attribute, in one piece: this header, the values of all samples one after the other, the
/// sample times when `kTimed`, and for strings their `TextRecord`s.
struct DataValue : Value {
    std::uint32_t tupleSize;
    std::uint32_t sampleCount;
    std::int64_t valueCount;  ///< Of one sample.

    const void* values() const { return this + 1; }
    void* values() { return this + 1; }

    template <class T>
    const T* valuesAs() const {
        return static_cast<const T*>(values());
    }

    std::int64_t totalValues() const { return valueCount * sampleCount; }
    std::size_t valuesBytes() const {
        return static_cast<std::size_t>(totalValues()) * valueBytesOf(kind);
    }

    /// One for each sample.
    const float* times() const;

    /// Where the records of a string attribute begin.
    const char* records() const;

    /// The index of the sample nearest `time`, the first of equal ones. There must be one.
    std::int64_t nearestSample(float time) const;
};

/// What a new data value is to hold. A count of samples of 0 makes the number of values 0.
struct DataShape {
    std::int32_t kind;
    std::int64_t tupleSize = 1;
    std::int64_t sampleCount = 1;
    std::int64_t valueCount = 1;
    const float* times = nullptr;  ///< Null: all times are 0.
    std::size_t textBytes = 0;     ///< Of a string attribute's records.

    /// Whether an attribute may have these sizes.
    bool isLegal() const;
};

/// A new data value with its times filled and its values still to be written, before anybody else
/// sees it. In `block`, or standalone and with one reference when `block` is null. Throws
/// `std::bad_alloc`.
DataValue* newDataValue(Block* block, const DataShape& shape);

/// Writes the strings of a new string value one after the other.
class StringWriter {
public:
    explicit StringWriter(DataValue& value);
    void write(std::string_view text);

private:
    const char** pointer_;
    char* record_;
};

/// Whether a single time needs no storing: it is 0, and not -0.
bool isPlainTime(float time);

}  // namespace Sylvar3::internal::OvAttribute::Embedded
