// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/Attribute.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace Sylvar3::internal::OvAttribute {

/// A sequence of time samples. Every sample holds the same number of values, read in tuples of the
/// tuple size. The null attribute has no samples and no values.
class SYLVAR_PLATFORM_API DataAttribute : public Attribute {
public:
    /// The time 0.0: its address is the array of times of a one-sample attribute.
    static const float kZero;

    DataAttribute() noexcept = default;

    std::int64_t getTupleSize() const { return isValid() ? _attrSuite->getTupleSize(handle()) : 0; }

    /// The number of values of one sample.
    std::int64_t getNumberOfValues() const {
        return isValid() ? _attrSuite->getNumberOfValues(handle()) : 0;
    }

    std::int64_t getNumberOfTimeSamples() const {
        return isValid() ? _attrSuite->getNumberOfTimeSamples(handle()) : 0;
    }

    /// The time of sample `index`; 0 where there is no such sample.
    float getSampleTime(std::int64_t index) const {
        return isValid() ? _attrSuite->getSampleTime(handle(), index) : 0.0F;
    }

protected:
    using Attribute::Attribute;
};

/// The samples of a data attribute that is to be made: a time, and the values at that time. All
/// samples must hold the same number of values.
template <class T>
using TimedSamples = std::vector<std::pair<float, std::vector<T>>>;

/// 32-bit integers.
class SYLVAR_PLATFORM_API IntAttribute : public DataAttribute {
public:
    using value_type = std::int32_t;
    static constexpr std::int32_t kType = OV_ATTRIBUTE_INT;

    IntAttribute() noexcept = default;
    explicit IntAttribute(value_type value);

    /// One sample at time 0. The values are copied. Null when the tuple size is below 1 or beyond
    /// 31 bits.
    explicit IntAttribute(const std::vector<value_type>& values, long tupleSize = 1);
    IntAttribute(const value_type* values, std::int64_t count, long tupleSize);

    /// Throws `std::invalid_argument` with "The samples of an attribute differ in their number of
    /// values." when they do.
    explicit IntAttribute(const TimedSamples<value_type>& samples, long tupleSize = 1);

    static IntAttribute adopt(OvAttributeStruct* owned) noexcept {
        return IntAttribute(Owned{}, owned);
    }

    /// The value at `index` of the sample nearest `time`, or `otherwise`.
    value_type getValue(value_type otherwise, std::int64_t index = 0, float time = 0.0F) const;

private:
    IntAttribute(Owned tag, OvAttributeStruct* owned) noexcept : DataAttribute(tag, owned) {}
};

/// 32-bit floats. Its members are as those of `IntAttribute`.
class SYLVAR_PLATFORM_API FloatAttribute : public DataAttribute {
public:
    using value_type = float;
    static constexpr std::int32_t kType = OV_ATTRIBUTE_FLOAT;

    FloatAttribute() noexcept = default;
    explicit FloatAttribute(value_type value);
    explicit FloatAttribute(const std::vector<value_type>& values, long tupleSize = 1);
    FloatAttribute(const value_type* values, std::int64_t count, long tupleSize);
    explicit FloatAttribute(const TimedSamples<value_type>& samples, long tupleSize = 1);

    static FloatAttribute adopt(OvAttributeStruct* owned) noexcept {
        return FloatAttribute(Owned{}, owned);
    }

    value_type getValue(value_type otherwise, std::int64_t index = 0, float time = 0.0F) const;

private:
    FloatAttribute(Owned tag, OvAttributeStruct* owned) noexcept : DataAttribute(tag, owned) {}
};

/// 64-bit floats. Its members are as those of `IntAttribute`.
class SYLVAR_PLATFORM_API DoubleAttribute : public DataAttribute {
public:
    using value_type = double;
    static constexpr std::int32_t kType = OV_ATTRIBUTE_DOUBLE;

    DoubleAttribute() noexcept = default;
    explicit DoubleAttribute(value_type value);
    explicit DoubleAttribute(const std::vector<value_type>& values, long tupleSize = 1);
    DoubleAttribute(const value_type* values, std::int64_t count, long tupleSize);
    explicit DoubleAttribute(const TimedSamples<value_type>& samples, long tupleSize = 1);

    static DoubleAttribute adopt(OvAttributeStruct* owned) noexcept {
        return DoubleAttribute(Owned{}, owned);
    }

    value_type getValue(value_type otherwise, std::int64_t index = 0, float time = 0.0F) const;

    /// Fills `count` doubles at `out` with the first values at `time`: linear between the two
    /// samples around it, clamped outside them. What has no value gets `otherwise`. The samples
    /// may stand in any order of time. The last argument is reserved: pass false.
    void fillInterpSample(double* out,
                          long count,
                          float time,
                          double otherwise,
                          bool reserved) const;

private:
    DoubleAttribute(Owned tag, OvAttributeStruct* owned) noexcept : DataAttribute(tag, owned) {}
};

/// Strings. A value ends at its first NUL.
class SYLVAR_PLATFORM_API StringAttribute : public DataAttribute {
public:
    using value_type = const char*;
    static constexpr std::int32_t kType = OV_ATTRIBUTE_STRING;

    StringAttribute() noexcept = default;
    explicit StringAttribute(const char* value);
    explicit StringAttribute(const std::string& value);
    explicit StringAttribute(const std::vector<std::string>& values, long tupleSize = 1);
    explicit StringAttribute(const TimedSamples<std::string>& samples, long tupleSize = 1);

    static StringAttribute adopt(OvAttributeStruct* owned) noexcept {
        return StringAttribute(Owned{}, owned);
    }

    std::string getValue(const std::string& otherwise,
                         std::int64_t index = 0,
                         float time = 0.0F) const;

private:
    StringAttribute(Owned tag, OvAttributeStruct* owned) noexcept : DataAttribute(tag, owned) {}
};

/// The value at index 0 of the sample nearest time 0. Without one: `otherwise`, or with
/// `throwWhenMissing` a `std::runtime_error`, "Error getting double value from DoubleAttribute.".
SYLVAR_PLATFORM_API double getDoubleValue(const DoubleAttribute& attribute,
                                          double otherwise,
                                          bool throwWhenMissing);

/// The same for strings, "Error getting string value from StringAttribute.". A value that is a
/// null pointer gives `otherwise`, and never throws.
SYLVAR_PLATFORM_API std::string getStringValue(const StringAttribute& attribute,
                                               const std::string& otherwise,
                                               bool throwWhenMissing);

}  // namespace Sylvar3::internal::OvAttribute
