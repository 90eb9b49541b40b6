// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Attributes/Forms/DataCollector.h"

#include "Platform/Embedded/Attributes/Forms/NumberText.h"
#include "Platform/Embedded/Attributes/Forms/TextEscape.h"
#include "Platform/Embedded/Attributes/Values/BlockBuilder.h"
#include "Platform/Embedded/Attributes/Values/TextRecords.h"

#include <cstring>

namespace Sylvar3::internal::OvAttribute::Embedded {

namespace {

constexpr const char* kNoInt =
    " is no int of 32 bits. A double has a point or an exponent, or stands in {\"$double\": ...}.";

bool isWhole(std::string_view number) {
    return number.find_first_of(".eE") == std::string_view::npos;
}

std::string shown(std::string_view text) {
    constexpr std::size_t kMost = 40;
    return TextEscape::escaped(text.substr(0, kMost)) + (text.size() > kMost ? "..." : "");
}

std::string counted(std::int64_t count, const std::string& what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

void refuseNul(std::string_view text) {
    if (!text.empty() && std::memchr(text.data(), '\0', text.size())) {
        throw TextFault{"A string value can't hold a NUL byte."};
    }
}

[[noreturn]] void refuseMixture() {
    throw TextFault{"The values of an array are all numbers or all strings."};
}

template <class T>
DataValue* makeOne(BlockBuilder& builder, std::int32_t kind, T number) {
    DataValue* const value = builder.addData(DataShape{kind});
    std::memcpy(value->values(), &number, sizeof number);
    return value;
}

template <class T>
constexpr const char* kNameOf = sizeof(T) == sizeof(float) ? "float" : "double";

template <class T>
T realOf(std::string_view number) {
    T value{};
    if (!NumberText::read(number, value)) {
        throw TextFault{shown(number) + " is too large or too small for a " + kNameOf<T> + "."};
    }
    return value;
}

}  // namespace

Value* makeString(BlockBuilder& builder, std::string_view text) {
    refuseNul(text);
    DataShape shape{OV_ATTRIBUTE_STRING};
    shape.textBytes = text.size() + TextRecord::kExtraBytes;
    DataValue* const value = builder.addData(shape);
    StringWriter(*value).write(text);
    return value;
}

Value* makeNumber(BlockBuilder& builder, std::string_view number) {
    if (!isWhole(number)) {
        return makeOne(builder, OV_ATTRIBUTE_DOUBLE, realOf<double>(number));
    }
    std::int32_t value = 0;
    if (!NumberText::read(number, value)) {
        throw TextFault{shown(number) + kNoInt};
    }
    return makeOne(builder, OV_ATTRIBUTE_INT, value);
}

void DataCollector::beginTyped() {
    kind_ = 0;
    isBare_ = hasTimes_ = hasSamples_ = isInSample_ = false;
    areBareWhole_ = areBareInts_ = true;
    tupleSize_ = sampleCount_ = valueCount_ = placed_ = placedBefore_ = 0;
    times_.clear();
    values_.clear();
}

void DataCollector::beginBare() {
    beginTyped();
    isBare_ = true;
}

void DataCollector::setKind(std::int32_t kind) {
    if (kind_ != 0) {
        throw TextFault{"An attribute has values of one kind, and once."};
    }
    kind_ = kind;
}

void DataCollector::setTupleSize(std::string_view number) {
    std::int32_t size = 0;
    if (!NumberText::read(number, size) || size < 1) {
        throw TextFault{shown(number) + " is no tuple size; one is from 1 to 2147483647."};
    }
    if (tupleSize_ != 0) {
        throw TextFault{"An attribute has one \"$tuple\"."};
    }
    tupleSize_ = size;
}

void DataCollector::beginTimes() {
    if (hasTimes_) {
        throw TextFault{"An attribute has one \"$times\"."};
    }
    hasTimes_ = true;
}

void DataCollector::addTime(std::string_view number) {
    float time = 0;
    if (!NumberText::read(number, time)) {
        throw TextFault{shown(number) + " is no time; a time is a float."};
    }
    times_.push_back(time);
}

void DataCollector::beginSample() {
    if (placed_ != 0 && !hasSamples_) {
        throw TextFault{"Values and samples can't stand side by side."};
    }
    hasSamples_ = isInSample_ = true;
    placedBefore_ = placed_;
}

void DataCollector::endSample() {
    isInSample_ = false;
    const std::int64_t count = placed_ - placedBefore_;
    if (sampleCount_ != 0 && count != valueCount_) {
        throw TextFault{"This sample has " + counted(count, "value") + ", the first one has " +
                        std::to_string(valueCount_) + "."};
    }
    valueCount_ = count;
    ++sampleCount_;
}

/// Notes that another value comes.
void DataCollector::place() {
    if (hasSamples_ && !isInSample_) {
        throw TextFault{"Values and samples can't stand side by side."};
    }
    ++placed_;
}

void DataCollector::addNumber(std::string_view number) {
    place();
    if (isBare_) {
        addBareNumber(number);
    } else if (kind_ == OV_ATTRIBUTE_INT) {
        addInt(number);
    } else if (kind_ == OV_ATTRIBUTE_FLOAT) {
        append(realOf<float>(number));
    } else if (kind_ == OV_ATTRIBUTE_DOUBLE) {
        append(realOf<double>(number));
    } else {
        throw TextFault{"A number stands where a string is expected."};
    }
}

void DataCollector::addInt(std::string_view number) {
    std::int32_t value = 0;
    if (!NumberText::read(number, value)) {
        throw TextFault{shown(number) + " is no int of 32 bits."};
    }
    append(value);
}

void DataCollector::addBareNumber(std::string_view number) {
    if (kind_ == OV_ATTRIBUTE_STRING) {
        refuseMixture();
    }
    kind_ = OV_ATTRIBUTE_DOUBLE;
    std::int32_t whole = 0;
    areBareWhole_ = areBareWhole_ && isWhole(number);
    areBareInts_ = areBareInts_ && NumberText::read(number, whole);
    append(realOf<double>(number));
}

void DataCollector::addString(std::string_view text) {
    place();
    if (isBare_) {
        if (kind_ == OV_ATTRIBUTE_DOUBLE) {
            refuseMixture();
        }
        kind_ = OV_ATTRIBUTE_STRING;
    }
    if (kind_ == OV_ATTRIBUTE_STRING) {
        addRecord(text);
    } else if (kind_ == OV_ATTRIBUTE_FLOAT) {
        addSpecial<float>(text);
    } else if (kind_ == OV_ATTRIBUTE_DOUBLE) {
        addSpecial<double>(text);
    } else {
        throw TextFault{"A string stands where an int is expected."};
    }
}

template <class T>
void DataCollector::addSpecial(std::string_view text) {
    T value{};
    if (!NumberText::readSpecial(text, value)) {
        throw TextFault{"\"" + shown(text) + "\" stands where a " + kNameOf<T> +
                        " is expected: a number, \"nan\", \"inf\", \"-inf\" or \"\\\\x\" and its " +
                        std::to_string(sizeof(T) * 2) + " hexadecimal digits."};
    }
    append(value);
}

void DataCollector::addRecord(std::string_view text) {
    const std::size_t begin = values_.size();
    values_.resize(begin + text.size() + TextRecord::kExtraBytes);
    char* const at = values_.data() + begin + sizeof(std::uint32_t);
    std::memcpy(at, text.data(), text.size());
    const std::string_view bytes(at, TextEscape::unescape(at, text.size()));
    refuseNul(bytes);
    const auto length = static_cast<std::uint32_t>(bytes.size());
    std::memcpy(values_.data() + begin, &length, sizeof length);
    values_.resize(begin + bytes.size() + TextRecord::kExtraBytes);
}

template <class T>
void DataCollector::append(T value) {
    const char* const bytes = reinterpret_cast<const char*>(&value);
    values_.insert(values_.end(), bytes, bytes + sizeof value);
}

Value* DataCollector::make(BlockBuilder& builder) {
    settleKind();
    settleSamples();
    const DataShape shape{kind_,
                          tupleSize_ == 0 ? 1 : tupleSize_,
                          sampleCount_,
                          valueCount_,
                          hasTimes_ ? times_.data() : nullptr,
                          kind_ == OV_ATTRIBUTE_STRING ? values_.size() : 0};
    if (!shape.isLegal()) {
        throw TextFault{"An attribute has at most 2147483647 samples."};
    }
    DataValue* const value = builder.addData(shape);
    copyValues(*value);
    return value;
}

void DataCollector::settleKind() {
    if (kind_ == 0) {
        throw TextFault{isBare_ ? "An empty array does not tell its kind; write {\"$int\": []}, "
                                  "{\"$float\": []}, {\"$double\": []} or {\"$string\": []}."
                                : "This object has no values; \"$int\", \"$float\", \"$double\" or "
                                  "\"$string\" is expected."};
    }
    if (isBare_ && kind_ == OV_ATTRIBUTE_DOUBLE && areBareWhole_) {
        if (!areBareInts_) {
            throw TextFault{std::string("One of these numbers") + kNoInt};
        }
        kind_ = OV_ATTRIBUTE_INT;
    }
}

void DataCollector::settleSamples() {
    if (!hasTimes_) {
        if (hasSamples_) {
            throw TextFault{"Samples are here, but no \"$times\"."};
        }
        sampleCount_ = 1;
        valueCount_ = placed_;
        return;
    }
    if (placed_ != 0 && !hasSamples_) {
        throw TextFault{"With \"$times\", the values are an array of one array for each time."};
    }
    if (static_cast<std::int64_t>(times_.size()) != sampleCount_) {
        throw TextFault{counted(static_cast<std::int64_t>(times_.size()), "time") + " and " +
                        counted(sampleCount_, "sample") + " don't go together."};
    }
}

void DataCollector::copyValues(DataValue& value) const {
    const char* from = values_.data();
    if (kind_ == OV_ATTRIBUTE_STRING) {
        StringWriter writer(value);
        for (std::int64_t i = 0; i < placed_; ++i) {
            const std::string_view text = TextRecord::at(from + sizeof(std::uint32_t));
            writer.write(text);
            from += text.size() + TextRecord::kExtraBytes;
        }
    } else if (isBare_ && kind_ == OV_ATTRIBUTE_INT) {
        auto* to = static_cast<std::int32_t*>(value.values());
        for (std::int64_t i = 0; i < placed_; ++i, from += sizeof(double)) {
            double number = 0;
            std::memcpy(&number, from, sizeof number);
            *to++ = static_cast<std::int32_t>(number);
        }
    } else if (placed_ != 0) {
        std::memcpy(value.values(), from, value.valuesBytes());
    }
}

}  // namespace Sylvar3::internal::OvAttribute::Embedded
