// SPDX-License-Identifier: Apache-2.0
// What any bytes that claim to be a binary file come to: an error, or an attribute that can be
// walked, written and read again.
#include <SylvarPlatform/AttributeFile.h>
#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/GroupAttribute.h>
#include <SylvarPlatform/SampleAccessor.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace Sylvar3::internal::OvAttribute;

void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

/// Keeps what was read from being left out.
void use(std::size_t value) {
    static volatile std::size_t sum = 0;
    sum = sum + value;
}

void touch(const char* text) {
    use(std::strlen(text));
}

template <class Number>
void touch(Number number) {
    unsigned char bytes[sizeof number];
    std::memcpy(bytes, &number, sizeof number);
    use(bytes[0]);
}

template <class DataAttributeType>
void readSamples(const Attribute& attribute) {
    const SampleAccessor<DataAttributeType> samples(attribute, 0.0F);
    require(samples.hasTable());
    require((samples.getNearest() != nullptr) == (samples.getNumberOfTimeSamples() > 0));
    for (std::int64_t i = 0; i < samples.getNumberOfTimeSamples(); ++i) {
        touch(samples.getSampleTime(i));
        for (std::int64_t j = 0; j < samples.getNumberOfValues(); ++j) {
            touch(samples.getSample(i)[j]);
        }
    }
}

void readData(const Attribute& attribute) {
    switch (attribute.getType()) {
        case OV_ATTRIBUTE_INT:
            return readSamples<IntAttribute>(attribute);
        case OV_ATTRIBUTE_FLOAT:
            return readSamples<FloatAttribute>(attribute);
        case OV_ATTRIBUTE_DOUBLE:
            return readSamples<DoubleAttribute>(attribute);
        default:
            return readSamples<StringAttribute>(attribute);
    }
}

/// The names are all different, and each is found where it stands unless a dot is in it.
void readNames(const GroupAttribute& group) {
    std::set<std::string> names;
    for (std::int64_t i = 0; i < group.getNumberOfChildren(); ++i) {
        const std::string name = group.getChildName(i);
        require(names.insert(name).second);
        if (name.find('.') == std::string::npos) {
            require(group.getChildByName(name).handle() == group.getChildByIndex(i).handle());
        }
    }
}

/// Each shared value once: few bytes can stand for endless paths.
void walk(const Attribute& root) {
    std::set<OvAttributeStruct*> seen;
    std::vector<Attribute> left = {root};
    while (!left.empty()) {
        const Attribute attribute = std::move(left.back());
        left.pop_back();
        if (!attribute || !seen.insert(attribute.handle()).second) {
            continue;
        }
        const auto group = castAttribute<GroupAttribute>(attribute);
        if (!group) {
            readData(attribute);
            continue;
        }
        readNames(group);
        for (std::int64_t i = 0; i < group.getNumberOfChildren(); ++i) {
            left.push_back(group.getChildByIndex(i));
        }
    }
}

std::string binaryOf(const Attribute& attribute, AttributeContent content) {
    std::string bytes;
    const std::string error =
        writeAttribute(attribute,
                       content,
                       AttributeForm::Binary,
                       &bytes,
                       [](void* stream, const void* piece, long size) {
                           static_cast<std::string*>(stream)->append(
                               static_cast<const char*>(piece), static_cast<std::size_t>(size));
                           return 1;
                       });
    require(error.empty());
    return bytes;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const AttributeReadResult read = readAttributeBytes(data, size);
    require(read.error.empty() == read.attribute.isValid());
    if (read.attribute && read.form == AttributeForm::Binary) {
        walk(read.attribute);
        const AttributeReadResult again = [&] {
            const std::string bytes = binaryOf(read.attribute, read.content);
            return readAttributeBytes(bytes.data(), bytes.size());
        }();
        require(again.error.empty());
        require(again.content == read.content);
        require(again.attribute.getHash() == read.attribute.getHash());
    }
    return 0;
}
