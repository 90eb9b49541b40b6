// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <SylvarPlatform/DataAttribute.h>

#include <cmath>
#include <cstdint>
#include <utility>

namespace Sylvar3::internal::OvAttribute {

/// Scoped reader of all samples of a data attribute, as `SampleAccessor<StringAttribute>`. An
/// attribute of another kind reads as one without samples. Allocates nothing unless the table
/// behind it must. Lives on the stack of one call.
template <class DataAttributeType>
class SampleAccessor {
public:
    using value_type = typename DataAttributeType::value_type;

    explicit SampleAccessor(const Attribute& attribute)
        : table_(acquire(attribute)), attribute_(attribute) {}

    /// The same with the caller's own reference.
    explicit SampleAccessor(Attribute&& attribute)
        : table_(acquire(attribute)), attribute_(std::move(attribute)) {}

    /// Looks for the sample nearest `wantedTime` too, the first of equal distance.
    SampleAccessor(const Attribute& attribute, float wantedTime) : SampleAccessor(attribute) {
        findNearest(wantedTime);
    }
    SampleAccessor(Attribute&& attribute, float wantedTime) : SampleAccessor(std::move(attribute)) {
        findNearest(wantedTime);
    }

    /// Disposes of the table when it asks for it; then the attribute is released.
    ~SampleAccessor() {
        if (table_ && (table_->flags & OV_SAMPLES_DISPOSE)) {
            Attribute::_attrSuite->disposeSamples(table_);
        }
    }

    SampleAccessor(const SampleAccessor&) = delete;
    SampleAccessor& operator=(const SampleAccessor&) = delete;

    /// False when the attribute is null or of another kind.
    bool hasTable() const { return table_ != nullptr; }

    std::int64_t getNumberOfTimeSamples() const { return table_ ? table_->sampleCount : 0; }

    /// The number of values of one sample.
    std::int64_t getNumberOfValues() const { return table_ ? table_->valuesPerSample : 0; }

    float getSampleTime(std::int64_t index) const { return table_->times[index]; }

    /// The values of sample `index`, which must be there.
    const value_type* getSample(std::int64_t index) const {
        if (table_->flags & OV_SAMPLES_CONTIGUOUS) {
            return static_cast<const value_type*>(table_->values) + index * table_->valuesPerSample;
        }
        return static_cast<const value_type* const*>(table_->values)[index];
    }

    /// The values of the nearest sample; null when none was asked for or there are no samples.
    const value_type* getNearest() const { return nearest_; }

    /// The values of the nearest sample as a range; empty when there is none.
    const value_type* begin() const { return nearest_; }
    const value_type* end() const { return nearest_ ? nearest_ + getNumberOfValues() : nullptr; }

private:
    OvSampleTable* acquire(const Attribute& attribute) {
        return Attribute::_attrSuite->acquireSamples(
            attribute.handle(), DataAttributeType::kType, 1, &buffer_);
    }

    void findNearest(float wantedTime) {
        if (getNumberOfTimeSamples() > 0) {
            nearest_ = getSample(nearestIndex(wantedTime));
        }
    }

    std::int64_t nearestIndex(float wantedTime) const {
        std::int64_t kept = 0;
        for (std::int64_t i = 1; i < table_->sampleCount; ++i) {
            if (std::fabs(table_->times[i] - wantedTime) <
                std::fabs(table_->times[kept] - wantedTime)) {
                kept = i;
            }
        }
        return kept;
    }

    OvSampleTableBuffer buffer_{};
    OvSampleTable* table_;
    Attribute attribute_;
    const value_type* nearest_ = nullptr;
};

}  // namespace Sylvar3::internal::OvAttribute
