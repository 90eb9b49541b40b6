// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/SampleAccessor.h>

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace Sylvar3::internal::OvAttribute {

namespace {

/// The times of some samples and, for each, where its values are.
template <class T>
struct SamplePointers {
    std::vector<float> times;
    std::vector<const T*> samples;
    std::int64_t valuesPerSample = 0;

    explicit SamplePointers(const TimedSamples<T>& from) {
        valuesPerSample = from.empty() ? 0 : static_cast<std::int64_t>(from[0].second.size());
        for (const auto& [time, values] : from) {
            if (static_cast<std::int64_t>(values.size()) != valuesPerSample) {
                throw std::invalid_argument(
                    "The samples of an attribute differ in their number of values.");
            }
            times.push_back(time);
            samples.push_back(values.data());
        }
    }

    std::int64_t count() const { return static_cast<std::int64_t>(times.size()); }
};

template <class T, class Create>
OvAttributeStruct* create(Create create, const TimedSamples<T>& from, long tupleSize) {
    const SamplePointers<T> pointers(from);
    return create(pointers.times.data(),
                  pointers.count(),
                  pointers.samples.data(),
                  pointers.valuesPerSample,
                  tupleSize,
                  nullptr,
                  nullptr);
}

template <class T, class Create>
OvAttributeStruct* create(Create create, const T* values, std::int64_t count, long tupleSize) {
    return create(&DataAttribute::kZero, 1, &values, count, tupleSize, nullptr, nullptr);
}

template <class T>
std::int64_t countOf(const std::vector<T>& values) {
    return static_cast<std::int64_t>(values.size());
}

std::vector<const char*> pointersTo(const std::vector<std::string>& values) {
    std::vector<const char*> pointers;
    pointers.reserve(values.size());
    for (const std::string& value : values) {
        pointers.push_back(value.c_str());
    }
    return pointers;
}

}  // namespace

const float DataAttribute::kZero = 0.0F;

IntAttribute::IntAttribute(value_type value)
    : IntAttribute(Owned{}, _attrSuite->createInt(value)) {}
IntAttribute::IntAttribute(const std::vector<value_type>& values, long tupleSize)
    : IntAttribute(values.data(), countOf(values), tupleSize) {}
IntAttribute::IntAttribute(const value_type* values, std::int64_t count, long tupleSize)
    : IntAttribute(Owned{}, create(_attrSuite->createIntFromSamples, values, count, tupleSize)) {}
IntAttribute::IntAttribute(const TimedSamples<value_type>& samples, long tupleSize)
    : IntAttribute(Owned{}, create(_attrSuite->createIntFromSamples, samples, tupleSize)) {}

IntAttribute::value_type IntAttribute::getValue(value_type otherwise,
                                                std::int64_t index,
                                                float time) const {
    OvAttributeStruct* const borrowed = handle();
    _attrSuite->getNearestInt(&borrowed, index, time, &otherwise);
    return otherwise;
}

FloatAttribute::FloatAttribute(value_type value)
    : FloatAttribute(Owned{}, _attrSuite->createFloat(value)) {}
FloatAttribute::FloatAttribute(const std::vector<value_type>& values, long tupleSize)
    : FloatAttribute(values.data(), countOf(values), tupleSize) {}
FloatAttribute::FloatAttribute(const value_type* values, std::int64_t count, long tupleSize)
    : FloatAttribute(Owned{},
                     create(_attrSuite->createFloatFromSamples, values, count, tupleSize)) {}
FloatAttribute::FloatAttribute(const TimedSamples<value_type>& samples, long tupleSize)
    : FloatAttribute(Owned{}, create(_attrSuite->createFloatFromSamples, samples, tupleSize)) {}

FloatAttribute::value_type FloatAttribute::getValue(value_type otherwise,
                                                    std::int64_t index,
                                                    float time) const {
    OvAttributeStruct* const borrowed = handle();
    _attrSuite->getNearestFloat(&borrowed, index, time, &otherwise);
    return otherwise;
}

DoubleAttribute::DoubleAttribute(value_type value)
    : DoubleAttribute(Owned{}, _attrSuite->createDouble(value)) {}
DoubleAttribute::DoubleAttribute(const std::vector<value_type>& values, long tupleSize)
    : DoubleAttribute(values.data(), countOf(values), tupleSize) {}
DoubleAttribute::DoubleAttribute(const value_type* values, std::int64_t count, long tupleSize)
    : DoubleAttribute(Owned{},
                      create(_attrSuite->createDoubleFromSamples, values, count, tupleSize)) {}
DoubleAttribute::DoubleAttribute(const TimedSamples<value_type>& samples, long tupleSize)
    : DoubleAttribute(Owned{}, create(_attrSuite->createDoubleFromSamples, samples, tupleSize)) {}

DoubleAttribute::value_type DoubleAttribute::getValue(value_type otherwise,
                                                      std::int64_t index,
                                                      float time) const {
    OvAttributeStruct* const borrowed = handle();
    _attrSuite->getNearestDouble(&borrowed, index, time, &otherwise);
    return otherwise;
}

StringAttribute::StringAttribute(const char* value)
    : StringAttribute(Owned{}, _attrSuite->createString(value)) {}
StringAttribute::StringAttribute(const std::string& value) : StringAttribute(value.c_str()) {}
StringAttribute::StringAttribute(const std::vector<std::string>& values, long tupleSize)
    : StringAttribute(
          Owned{},
          _attrSuite->createStringArray(values.empty() ? nullptr : pointersTo(values).data(),
                                        countOf(values),
                                        tupleSize)) {}
StringAttribute::StringAttribute(const TimedSamples<std::string>& samples, long tupleSize) {
    TimedSamples<const char*> pointers;
    pointers.reserve(samples.size());
    for (const auto& [time, values] : samples) {
        pointers.emplace_back(time, pointersTo(values));
    }
    *this = adopt(create(_attrSuite->createStringFromSamples, pointers, tupleSize));
}

std::string StringAttribute::getValue(const std::string& otherwise,
                                      std::int64_t index,
                                      float time) const {
    OvAttributeStruct* const borrowed = handle();
    const char* value = nullptr;
    const bool isThere = _attrSuite->getNearestString(&borrowed, index, time, &value) != 0;
    return isThere && value ? value : otherwise;
}

double getDoubleValue(const DoubleAttribute& attribute, double otherwise, bool throwWhenMissing) {
    OvAttributeStruct* const handle = attribute.handle();
    double value = 0.0;
    if (Attribute::_attrSuite->getNearestDouble(&handle, 0, 0.0F, &value)) {
        return value;
    }
    if (throwWhenMissing) {
        throw std::runtime_error("Error getting double value from DoubleAttribute.");
    }
    return otherwise;
}

std::string getStringValue(const StringAttribute& attribute,
                           const std::string& otherwise,
                           bool throwWhenMissing) {
    OvAttributeStruct* const handle = attribute.handle();
    const char* value = nullptr;
    if (Attribute::_attrSuite->getNearestString(&handle, 0, 0.0F, &value)) {
        return value ? value : otherwise;
    }
    if (throwWhenMissing) {
        throw std::runtime_error("Error getting string value from StringAttribute.");
    }
    return otherwise;
}

}  // namespace Sylvar3::internal::OvAttribute
