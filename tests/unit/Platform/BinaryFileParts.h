// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Embedded/Attributes/Forms/Binary/AttributeFile_generated.h"

#include <flatbuffers/flatbuffers.h>

#include <cstdint>
#include <string>
#include <vector>

namespace ovtest {

namespace File = Sylvar3::internal::OvAttribute::File;

/// A binary file, vector by vector: to be put together as no writer would.
struct BinaryFileParts {
    std::uint32_t version = 1;
    std::uint8_t content = 0;
    std::vector<File::Entry> entries;
    std::vector<std::uint32_t> children;
    std::vector<std::uint32_t> shapeSizes;
    std::vector<std::uint32_t> nameLengths;
    std::string nameText;
    std::vector<float> times;
    std::vector<std::int32_t> ints;
    std::vector<float> floats;
    std::vector<double> doubles;
    std::vector<std::uint32_t> stringLengths;
    std::string stringText;

    /// The index by which a group has these names.
    std::uint32_t addShape(const std::vector<std::string>& names) {
        shapeSizes.push_back(static_cast<std::uint32_t>(names.size()));
        for (const std::string& name : names) {
            nameLengths.push_back(static_cast<std::uint32_t>(name.size()));
            nameText += name;
        }
        return static_cast<std::uint32_t>(shapeSizes.size() - 1);
    }

    void addGroup(std::uint32_t shape, const std::vector<std::uint32_t>& itsChildren) {
        entries.emplace_back(std::uint8_t{5}, std::uint8_t{0}, 0U, 0U, shape, std::uint64_t{0});
        children.insert(children.end(), itsChildren.begin(), itsChildren.end());
    }

    void addData(std::uint8_t kind,
                 std::uint64_t values,
                 std::uint32_t samples = 1,
                 std::uint8_t flags = 0) {
        entries.emplace_back(kind, flags, 1U, samples, 0U, values);
    }

    void addInt(std::int32_t value) {
        addData(1, 1);
        ints.push_back(value);
    }

    void addString(const std::string& value) {
        addData(4, 1);
        stringLengths.push_back(static_cast<std::uint32_t>(value.size()));
        stringText += value;
    }

    std::string bytes() const {
        flatbuffers::FlatBufferBuilder buffer;
        const auto text = [&](const std::string& of) {
            return buffer.CreateVector(reinterpret_cast<const std::uint8_t*>(of.data()), of.size());
        };
        const auto file = File::CreateAttributeFile(buffer,
                                                    version,
                                                    static_cast<File::Content>(content),
                                                    buffer.CreateVectorOfStructs(entries),
                                                    buffer.CreateVector(children),
                                                    buffer.CreateVector(shapeSizes),
                                                    buffer.CreateVector(nameLengths),
                                                    text(nameText),
                                                    buffer.CreateVector(times),
                                                    buffer.CreateVector(ints),
                                                    buffer.CreateVector(floats),
                                                    buffer.CreateVector(doubles),
                                                    buffer.CreateVector(stringLengths),
                                                    text(stringText));
        File::FinishAttributeFileBuffer(buffer, file);
        return {reinterpret_cast<const char*>(buffer.GetBufferPointer()), buffer.GetSize()};
    }
};

}  // namespace ovtest
