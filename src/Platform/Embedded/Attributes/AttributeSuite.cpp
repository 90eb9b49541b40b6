// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/AttributeFile.h>
#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/Export.h>
#include <SylvarPlatform/GroupBuilder.h>
#include <SylvarPlatform/suites/AttributeSuite.h>

#include "Platform/Embedded/Attributes/Forms/Xml/XmlReader.h"
#include "Platform/Embedded/Attributes/Forms/Xml/XmlWriter.h"
#include "Platform/Embedded/Attributes/Values/ContentHash.h"
#include "Platform/Embedded/Attributes/Values/DataValue.h"
#include "Platform/Embedded/Attributes/Values/GroupBuilderStruct.h"
#include "Platform/Embedded/Attributes/Values/Lifetime.h"
#include "Platform/Embedded/Attributes/Values/TextRecords.h"

#include <cstddef>
#include <cstring>
#include <limits>
#include <new>
#include <stdexcept>

namespace Sylvar3::internal::OvAttribute {

namespace Embedded {

namespace {

static_assert(sizeof(OvSampleTable) <= sizeof(OvSampleTableBuffer));

// Any attribute

const DataValue* asData(const Value* value) {
    return value && isDataKind(value->kind) ? static_cast<const DataValue*>(value) : nullptr;
}

std::int32_t getType(Value* value) {
    return value->kind;
}

void retainAny(Value* value) {
    retained(value);
}

void releaseOne(Value* value) {
    release(*value);
}

OvAttributeHash getHash(Value* value) {
    return contentHashOf(value);
}

// Data attributes

std::int64_t getTupleSize(Value* value) {
    const DataValue* const data = asData(value);
    return data ? data->tupleSize : 0;
}

std::int64_t getNumberOfValues(Value* value) {
    const DataValue* const data = asData(value);
    return data ? data->valueCount : 0;
}

std::int64_t getNumberOfTimeSamples(Value* value) {
    const DataValue* const data = asData(value);
    return data ? data->sampleCount : 0;
}

float getSampleTime(Value* value, std::int64_t index) {
    const DataValue* const data = asData(value);
    return data && index >= 0 && index < data->sampleCount ? data->times()[index] : 0.0F;
}

std::string_view viewOf(const char* text) {
    return text ? std::string_view(text) : std::string_view();
}

template <std::int32_t Kind, class T>
Value* createOne(T value) {
    DataValue* const data = newDataValue(nullptr, DataShape{Kind});
    *static_cast<T*>(data->values()) = value;
    return data;
}

template <std::int32_t Kind, class T>
Value* createFromSamples(const float* times,
                         std::int64_t timeCount,
                         const T* const* samples,
                         std::int64_t valuesPerSample,
                         std::int64_t tupleSize,
                         void* /*reserved0*/,
                         void* /*reserved1*/) {
    const DataShape shape{Kind, tupleSize, timeCount, valuesPerSample, times};
    if (!shape.isLegal()) {
        return nullptr;
    }
    DataValue* const data = newDataValue(nullptr, shape);
    T* to = static_cast<T*>(data->values());
    for (std::int64_t i = 0; i < timeCount && valuesPerSample != 0; ++i, to += valuesPerSample) {
        std::memcpy(to, samples[i], static_cast<std::size_t>(valuesPerSample) * sizeof(T));
    }
    return data;
}

/// The bytes of a string's record; throws `std::length_error` for a text of over 4 GiB.
std::size_t recordBytesOf(std::string_view text) {
    if (text.size() > std::numeric_limits<std::uint32_t>::max()) {
        throw std::length_error("A string attribute's value is longer than 4 GiB.");
    }
    return text.size() + TextRecord::kExtraBytes;
}

Value* createStringFromSamples(const float* times,
                               std::int64_t timeCount,
                               const char* const* const* samples,
                               std::int64_t valuesPerSample,
                               std::int64_t tupleSize,
                               void* /*reserved0*/,
                               void* /*reserved1*/) {
    DataShape shape{OV_ATTRIBUTE_STRING, tupleSize, timeCount, valuesPerSample, times};
    if (!shape.isLegal()) {
        return nullptr;
    }
    const std::int64_t samplesWithValues = valuesPerSample == 0 ? 0 : timeCount;
    for (std::int64_t i = 0; i < samplesWithValues; ++i) {
        for (std::int64_t j = 0; j < valuesPerSample; ++j) {
            shape.textBytes += recordBytesOf(viewOf(samples[i][j]));
        }
    }
    DataValue* const data = newDataValue(nullptr, shape);
    StringWriter writer(*data);
    for (std::int64_t i = 0; i < samplesWithValues; ++i) {
        for (std::int64_t j = 0; j < valuesPerSample; ++j) {
            writer.write(viewOf(samples[i][j]));
        }
    }
    return data;
}

Value* createStringArray(const char* const* values, std::int64_t count, std::int64_t tupleSize) {
    return createStringFromSamples(
        &DataAttribute::kZero, 1, &values, count, tupleSize, nullptr, nullptr);
}

Value* createString(const char* value) {
    const std::string_view text = viewOf(value);
    DataShape shape{OV_ATTRIBUTE_STRING};
    shape.textBytes = recordBytesOf(text);
    DataValue* const data = newDataValue(nullptr, shape);
    StringWriter(*data).write(text);
    return data;
}

template <std::int32_t Kind, class T>
std::uint8_t getNearest(Value* const* value, std::int64_t index, float time, T* result) {
    const Value* const held = *value;
    if (!held || held->kind != Kind) {
        return 0;
    }
    const auto& data = static_cast<const DataValue&>(*held);
    if (index < 0 || index >= data.valueCount) {
        return 0;
    }
    const std::int64_t first = data.nearestSample(time) * data.valueCount;
    *result = data.valuesAs<T>()[first + index];
    return 1;
}

OvSampleTable* acquireSamples(Value* value,
                              std::int32_t wantedType,
                              std::int32_t inlineWanted,
                              OvSampleTableBuffer* buffer) {
    const DataValue* const data = asData(value);
    if (!data || data->kind != wantedType) {
        return nullptr;
    }
    const bool isInline = inlineWanted != 0 && buffer;
    void* const memory =
        isInline ? static_cast<void*>(buffer) : ::operator new(sizeof(OvSampleTable));
    const int flags = OV_SAMPLES_CONTIGUOUS | (isInline ? 0 : OV_SAMPLES_DISPOSE);
    return new (memory) OvSampleTable{0,
                                      static_cast<std::uint8_t>(flags),
                                      data->sampleCount,
                                      data->valueCount,
                                      data->times(),
                                      data->values()};
}

void disposeSamples(OvSampleTable* table) {
    if (table && (table->flags & OV_SAMPLES_DISPOSE)) {
        ::operator delete(table);
    }
}

// Groups

std::string_view viewOf(const char* name, std::int32_t length) {
    return length < 1 ? std::string_view()
                      : std::string_view(name, static_cast<std::size_t>(length));
}

template <class NameAt>
Value* createGroupOf(NameAt nameAt,
                     Value* const* children,
                     std::int64_t count,
                     std::uint8_t groupInherit) {
    GroupAssembly assembly;
    assembly.inherits = groupInherit != 0;
    for (std::int64_t i = 0; i < count; ++i) {
        assembly.set(nameAt(i), retained(children[i]));
    }
    return assembly.take();
}

Value* createGroup(const char* const* names,
                   Value* const* children,
                   std::int64_t count,
                   std::uint8_t groupInherit) {
    return createGroupOf(
        [names](std::int64_t i) { return viewOf(names[i]); }, children, count, groupInherit);
}

Value* createGroupWithLengths(const char* const* names,
                              const std::int32_t* nameLengths,
                              Value* const* children,
                              std::int64_t count,
                              std::uint8_t groupInherit) {
    return createGroupOf(
        [names, nameLengths](std::int64_t i) { return viewOf(names[i], nameLengths[i]); },
        children,
        count,
        groupInherit);
}

std::int64_t getNumberOfChildren(Value* value) {
    const GroupValue* const group = asGroup(value);
    return group ? group->size() : 0;
}

const char* getChildName(Value* value, std::int64_t index, std::int32_t* length) {
    const GroupValue* const group = asGroup(value);
    if (!group || index < 0 || index >= group->size()) {
        *length = 0;
        return nullptr;
    }
    const std::string_view name = group->shape->name(index);
    *length = static_cast<std::int32_t>(name.size());
    return name.data();
}

Value* getChildByIndex(Value* value, std::int64_t index) {
    const GroupValue* const group = asGroup(value);
    return group && index >= 0 && index < group->size() ? retained((*group)[index]) : nullptr;
}

Value* borrowChildByName(Value* value, const char* name, std::int32_t nameLength) {
    const GroupValue* const group = asGroup(value);
    return group ? group->find(viewOf(name, nameLength)) : nullptr;
}

Value* getChildByName(Value* value, const char* name, std::int32_t nameLength) {
    return retained(borrowChildByName(value, name, nameLength));
}

std::uint8_t getGroupInherit(Value* value) {
    const GroupValue* const group = asGroup(value);
    return group && group->inherits() ? 1 : 0;
}

// Group builders

OvGroupBuilderStruct* createBuilderWithMode(std::int32_t mode) {
    return mode == 0 || mode == 1 ? new OvGroupBuilderStruct(mode == 0) : nullptr;
}

OvGroupBuilderStruct* createBuilder() {
    return createBuilderWithMode(0);
}

void releaseBuilder(OvGroupBuilderStruct* builder) {
    delete builder;
}

void setInBuilder(OvGroupBuilderStruct* builder,
                  const char* name,
                  std::int32_t nameLength,
                  Value* child,
                  std::int32_t share) {
    builder->set(viewOf(name, nameLength), share != 0 ? retained(child) : child);
}

void updateBuilder(OvGroupBuilderStruct* builder, Value* value) {
    if (const GroupValue* const group = asGroup(value)) {
        builder->update(*group);
    }
}

Value* buildBuilder(OvGroupBuilderStruct* builder, std::int32_t keep) {
    return keep == 0 ? builder->take() : builder->build();
}

void setBuilderGroupInherit(OvGroupBuilderStruct* builder, std::uint8_t groupInherit) {
    builder->setInherits(groupInherit != 0);
}

void removeFromBuilder(OvGroupBuilderStruct* builder, const char* name, std::int32_t nameLength) {
    builder->remove(viewOf(name, nameLength));
}

// Serialised forms

Value* readStream(void* stream, OvReadFunction read) {
    return readAttribute(stream, read).attribute.detach();
}

Value* parseXML(const char* xml, std::int64_t length) {
    return length < 0 ? nullptr : readXml({xml, static_cast<std::size_t>(length)});
}

std::uint8_t writeXML(Value* value, void* stream, OvWriteFunction write) {
    return writeXmlTo(value, stream, write) ? 1 : 0;
}

const OvAttributeSuite kSuite = {
    getType,
    retainAny,
    releaseOne,
    getHash,
    getTupleSize,
    getNumberOfValues,
    getNumberOfTimeSamples,
    getSampleTime,
    createOne<OV_ATTRIBUTE_INT, std::int32_t>,
    createOne<OV_ATTRIBUTE_FLOAT, float>,
    createString,
    createStringArray,
    createGroup,
    getNumberOfChildren,
    getChildName,
    getChildByIndex,
    getChildByName,
    createBuilder,
    createBuilderWithMode,
    releaseBuilder,
    setInBuilder,
    updateBuilder,
    buildBuilder,
    setBuilderGroupInherit,
    getNearest<OV_ATTRIBUTE_DOUBLE, double>,
    getNearest<OV_ATTRIBUTE_STRING, const char*>,
    acquireSamples,
    disposeSamples,
    createFromSamples<OV_ATTRIBUTE_FLOAT, float>,
    createFromSamples<OV_ATTRIBUTE_INT, std::int32_t>,
    createFromSamples<OV_ATTRIBUTE_DOUBLE, double>,
    createStringFromSamples,
    createOne<OV_ATTRIBUTE_DOUBLE, double>,
    getNearest<OV_ATTRIBUTE_INT, std::int32_t>,
    getNearest<OV_ATTRIBUTE_FLOAT, float>,
    getGroupInherit,
    createGroupWithLengths,
    removeFromBuilder,
    readStream,
    parseXML,
    writeXML,
    borrowChildByName,
};

static_assert(sizeof(OvAttributeSuite) == 42 * sizeof(void*), "A table place is given for good.");
static_assert(offsetof(OvAttributeSuite, createFloatFromSamples) == 28 * sizeof(void*));

}  // namespace

}  // namespace Embedded

const OvAttributeSuite* Attribute::_attrSuite = &Embedded::kSuite;
const OvAttributeSuite* GroupBuilder::_attrSuite = &Embedded::kSuite;

}  // namespace Sylvar3::internal::OvAttribute

SYLVAR_PLATFORM_API const OvAttributeSuite* OvGetAttributeSuite() {
    return &Sylvar3::internal::OvAttribute::Embedded::kSuite;
}
