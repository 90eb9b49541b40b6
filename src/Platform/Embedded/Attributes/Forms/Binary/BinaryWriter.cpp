// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Attributes/Forms/Binary/AttributeFile_generated.h"
#include "Platform/Embedded/Attributes/Forms/Binary/BinaryForm.h"
#include "Platform/Embedded/Attributes/Forms/FileForms.h"
#include "Platform/Embedded/Attributes/Values/ContentHash.h"
#include "Platform/Embedded/Attributes/Values/DataValue.h"
#include "Platform/Embedded/Attributes/Values/GroupValue.h"
#include "Platform/Embedded/Attributes/Values/TextRecords.h"

#include <flatbuffers/flatbuffers.h>

#include <limits>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace Sylvar3::internal::OvAttribute::Embedded {

namespace {

struct DigestHash {
    std::size_t operator()(const OvAttributeHash& hash) const { return hash.words[0]; }
};
struct DigestEqual {
    bool operator()(const OvAttributeHash& a, const OvAttributeHash& b) const {
        return a.words[0] == b.words[0] && a.words[1] == b.words[1];
    }
};
using IndexByHash = std::unordered_map<OvAttributeHash, std::uint32_t, DigestHash, DigestEqual>;

/// Texts as their lengths and their bytes.
struct TextPool {
    std::vector<std::uint32_t> lengths;
    std::vector<std::uint8_t> text;

    void add(std::string_view added) {
        lengths.push_back(static_cast<std::uint32_t>(added.size()));
        text.insert(text.end(), added.begin(), added.end());
    }
};

template <class T>
void append(std::vector<T>& pool, const DataValue& value) {
    const T* const values = value.valuesAs<T>();
    pool.insert(pool.end(), values, values + value.totalValues());
}

/// The vectors of a file in the making.
class BinaryEncoder {
public:
    void addTree(const Value& root) {
        if (const GroupValue* const group = asGroup(const_cast<Value*>(&root))) {
            addGroups(*group);
        } else {
            addData(static_cast<const DataValue&>(root));
        }
    }

    /// What the finished buffer needs at most.
    std::size_t bytes() const {
        return entries_.size() * sizeof(File::Entry) + names_.text.size() + strings_.text.size() +
               doubles_.size() * sizeof(double) +
               4 * (children_.size() + shapeSizes_.size() + names_.lengths.size() + times_.size() +
                    ints_.size() + floats_.size() + strings_.lengths.size()) +
               1024;
    }

    void finish(flatbuffers::FlatBufferBuilder& buffer, AttributeContent content) const {
        const auto file = File::CreateAttributeFile(buffer,
                                                    BinaryForm::kVersion,
                                                    static_cast<File::Content>(content),
                                                    buffer.CreateVectorOfStructs(entries_),
                                                    buffer.CreateVector(children_),
                                                    buffer.CreateVector(shapeSizes_),
                                                    buffer.CreateVector(names_.lengths),
                                                    buffer.CreateVector(names_.text),
                                                    buffer.CreateVector(times_),
                                                    buffer.CreateVector(ints_),
                                                    buffer.CreateVector(floats_),
                                                    buffer.CreateVector(doubles_),
                                                    buffer.CreateVector(strings_.lengths),
                                                    buffer.CreateVector(strings_.text));
        File::FinishAttributeFileBuffer(buffer, file);
    }

private:
    /// A group on the way down, and its next child.
    struct Step {
        const GroupValue* group;
        std::int64_t next;
    };

    /// Children in front of their groups.
    void addGroups(const GroupValue& root) {
        std::vector<Step> way{{&root, 0}};
        while (!way.empty()) {
            Step& step = way.back();
            if (step.next == step.group->size()) {
                addGroup(*step.group);
                way.pop_back();
                continue;
            }
            Value* const child = (*step.group)[step.next++];
            if (!child || indices_.count(contentHashOf(child)) != 0) {
                continue;
            }
            if (const GroupValue* const group = asGroup(child)) {
                way.push_back({group, 0});
            } else {
                addData(static_cast<const DataValue&>(*child));
            }
        }
    }

    void addGroup(const GroupValue& group) {
        for (const Value* const child : group) {
            children_.push_back(child ? indices_.at(contentHashOf(child)) + 1 : 0);
        }
        const std::uint8_t flags = group.inherits() ? BinaryForm::kGroupInherit : std::uint8_t{0};
        addEntry(group, File::Entry(group.kind, flags, 0, 0, indexOf(*group.shape), 0));
    }

    std::uint32_t indexOf(const Shape& shape) {
        const auto [place, isNew] =
            shapes_.try_emplace(shape.digest(), static_cast<std::uint32_t>(shapeSizes_.size()));
        if (isNew) {
            shapeSizes_.push_back(static_cast<std::uint32_t>(shape.size()));
            for (std::int64_t i = 0; i < shape.size(); ++i) {
                names_.add(shape.name(i));
            }
        }
        return place->second;
    }

    void addData(const DataValue& value) {
        const bool isTimed = (value.flags & kTimed) != 0;
        if (isTimed) {
            times_.insert(times_.end(), value.times(), value.times() + value.sampleCount);
        }
        addValues(value);
        addEntry(value,
                 File::Entry(value.kind,
                             isTimed ? BinaryForm::kTimed : std::uint8_t{0},
                             value.tupleSize,
                             value.sampleCount,
                             0,
                             static_cast<std::uint64_t>(value.valueCount)));
    }

    void addValues(const DataValue& value) {
        switch (value.kind) {
            case OV_ATTRIBUTE_INT:
                return append(ints_, value);
            case OV_ATTRIBUTE_FLOAT:
                return append(floats_, value);
            case OV_ATTRIBUTE_DOUBLE:
                return append(doubles_, value);
            default:
                for (std::int64_t i = 0; i < value.totalValues(); ++i) {
                    strings_.add(TextRecord::at(value.valuesAs<const char*>()[i]));
                }
        }
    }

    void addEntry(const Value& value, const File::Entry& entry) {
        indices_.emplace(contentHashOf(&value), static_cast<std::uint32_t>(entries_.size()));
        entries_.push_back(entry);
    }

    IndexByHash indices_;
    IndexByHash shapes_;
    std::vector<File::Entry> entries_;
    std::vector<std::uint32_t> children_;
    std::vector<std::uint32_t> shapeSizes_;
    TextPool names_;
    std::vector<float> times_;
    std::vector<std::int32_t> ints_;
    std::vector<float> floats_;
    std::vector<double> doubles_;
    TextPool strings_;
};

}  // namespace

std::string writeBinary(const Value& value,
                        AttributeContent content,
                        void* stream,
                        OvWriteFunction write) {
    contentHashOf(&value);
    BinaryEncoder encoder;
    encoder.addTree(value);
    if (encoder.bytes() >= FLATBUFFERS_MAX_BUFFER_SIZE) {
        return "The attribute needs more than the 2 GiB that a binary file can hold.";
    }
    flatbuffers::FlatBufferBuilder buffer(encoder.bytes());
    encoder.finish(buffer, content);
    const bool isWritten =
        write(stream, buffer.GetBufferPointer(), static_cast<long>(buffer.GetSize())) != 0;
    return isWritten ? std::string() : kWritingStopped;
}

}  // namespace Sylvar3::internal::OvAttribute::Embedded
