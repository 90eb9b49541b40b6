// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Attributes/Values/DataValue.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Sylvar3::internal::OvAttribute::Embedded {

class BlockBuilder;

/// What is wrong with a text, for people, without the place.
struct TextFault {
    std::string text;
};

/// Collects the values, times and tuple size of one data attribute of a text, in any order, and
/// makes it. Used over and over; keeps its memory. All of it may throw `TextFault` and
/// `std::bad_alloc`. Belongs to one thread.
class DataCollector {
public:
    /// Begins an attribute whose kind is told by `setKind`.
    void beginTyped();

    /// Begins an attribute whose kind its values tell: strings, or numbers, which are ints unless
    /// one of them has a point or an exponent.
    void beginBare();

    /// Each at most once.
    void setKind(std::int32_t kind);
    void setTupleSize(std::string_view number);
    void beginTimes();

    void addTime(std::string_view number);

    /// Around the values of each sample, where there are times. Without: one sample at time 0.
    void beginSample();
    void endSample();

    void addNumber(std::string_view number);

    /// The text with its escapes, which stand for bytes of a string and for the bits of a number.
    void addString(std::string_view text);

    /// The attribute, in the builder's block.
    Value* make(BlockBuilder& builder);

private:
    void place();
    void addInt(std::string_view number);
    void addBareNumber(std::string_view number);
    template <class T>
    void addReal(std::string_view number);
    template <class T>
    void addSpecial(std::string_view text);
    void addRecord(std::string_view text);
    template <class T>
    void append(T value);

    void settleKind();
    void settleSamples();
    void copyValues(DataValue& value) const;

    std::int32_t kind_ = 0;     ///< 0 until it is known.
    bool isBare_ = false;       ///< Numbers are kept as doubles until the kind is settled ...
    bool areBareWhole_ = true;  ///< ... no point and no exponent was seen ...
    bool areBareInts_ = true;   ///< ... and 32 bits hold all of them.
    bool hasTimes_ = false;
    bool hasSamples_ = false;
    bool isInSample_ = false;
    std::int64_t tupleSize_ = 0;  ///< 0 until it is known.
    std::int64_t sampleCount_ = 0;
    std::int64_t valueCount_ = 0;    ///< Of one sample.
    std::int64_t placed_ = 0;        ///< The values of all samples so far ...
    std::int64_t placedBefore_ = 0;  ///< ... and of those in front of the one that is open.
    std::vector<float> times_;
    std::vector<char> values_;  ///< Numbers, or strings as `TextRecord`s.
};

/// A string attribute of one value, and an int or double of one value.
Value* makeString(BlockBuilder& builder, std::string_view text);
Value* makeNumber(BlockBuilder& builder, std::string_view number);

}  // namespace Sylvar3::internal::OvAttribute::Embedded
