// SPDX-License-Identifier: Apache-2.0
#include "Platform/Embedded/Attributes/Forms/Binary/AttributeFile_generated.h"
#include "Platform/Embedded/Attributes/Forms/Binary/BinaryForm.h"
#include "Platform/Embedded/Attributes/Forms/Binary/BinarySupply.h"
#include "Platform/Embedded/Attributes/Forms/FileForms.h"
#include "Platform/Embedded/Attributes/Values/BlockBuilder.h"
#include "Platform/Embedded/Attributes/Values/NameList.h"
#include "Platform/Embedded/Attributes/Values/TextRecords.h"

#include <flatbuffers/flatbuffers.h>

#include <algorithm>
#include <cstring>
#include <stdexcept>
#include <vector>

namespace Sylvar3::internal::OvAttribute::Embedded {

namespace {

std::uint64_t product(std::uint64_t a, std::uint64_t b) {
    std::uint64_t result = 0;
    if (__builtin_mul_overflow(a, b, &result)) {
        throw Malformed{"an entry is larger than any file"};
    }
    return result;
}

class BinaryDecoder {
public:
    explicit BinaryDecoder(const File::AttributeFile& file, std::size_t fileBytes)
        : file_(file),
          children_(file.children(), "children"),
          shapeSizes_(file.shape_sizes(), "shapes"),
          names_(file.name_lengths(), file.name_text(), "names"),
          times_(file.times(), "times"),
          ints_(file.ints(), "ints"),
          floats_(file.floats(), "floats"),
          doubles_(file.doubles(), "doubles"),
          strings_(file.string_lengths(), file.string_text(), "strings") {
        builder_.allowCopies(fileBytes * kCopiesPerByte);
    }

    Value* decode() {
        readShapes();
        readEntries();
        mustBeUsedUp();
        return builder_.finish(made_.back().value);
    }

private:
    static constexpr std::size_t kCopiesPerByte = 2;

    /// What stands in the file, and whether a group has referred to it.
    struct Made {
        Value* value;
        bool isReferred = false;
    };
    struct Names {
        const Shape* shape;
        bool isReferred = false;
    };

    void readShapes() {
        const std::uint32_t count = file_.shape_sizes() ? file_.shape_sizes()->size() : 0;
        // A shape is many times larger than its place in the file, but for the group that has it.
        if (count > file_.entries()->size()) {
            throw Malformed{"it holds names that nothing refers to"};
        }
        shapes_.reserve(count);
        NameList names;
        for (std::uint32_t i = 0; i < count; ++i) {
            const std::uint32_t size = *shapeSizes_.take(1);
            names.clear();
            for (std::uint32_t j = 0; j < size; ++j) {
                names.add(names_.take());
            }
            if (names.size() != size) {
                throw Malformed{"a group has one name twice"};
            }
            shapes_.push_back({&builder_.addShape(names)});
        }
    }

    void readEntries() {
        const std::uint32_t count = file_.entries()->size();
        const std::uint8_t* next = file_.entries()->Data();
        made_.reserve(count);
        for (std::uint32_t i = 0; i < count; ++i, next += sizeof(File::Entry)) {
            // A copy: what the verifier accepts may lie at an address that no entry can have.
            File::Entry entry;
            std::memcpy(static_cast<void*>(&entry), next, sizeof entry);
            made_.push_back(
                {entry.kind() == OV_ATTRIBUTE_GROUP ? readGroup(entry) : readData(entry)});
        }
        if (made_.empty()) {
            throw Malformed{"it holds no attribute"};
        }
    }

    Value* readGroup(const File::Entry& entry) {
        const bool isPlain = entry.tuple_size() == 0 && entry.samples() == 0 && entry.values() == 0;
        if (!isPlain || (entry.flags() & ~BinaryForm::kGroupInherit) != 0) {
            throw Malformed{"a group says what only data attributes have"};
        }
        const Shape& shape = shapeAt(entry.shape());
        const std::uint32_t* const indices =
            children_.take(static_cast<std::uint64_t>(shape.size()));
        groupChildren_.clear();
        for (std::int64_t i = 0; i < shape.size(); ++i) {
            groupChildren_.push_back(indices[i] == 0 ? nullptr : child(indices[i] - 1));
        }
        return builder_.addGroup(
            shape, groupChildren_.data(), (entry.flags() & BinaryForm::kGroupInherit) != 0);
    }

    const Shape& shapeAt(std::uint32_t index) {
        if (index >= shapes_.size()) {
            throw Malformed{"a group has names that are not there"};
        }
        shapes_[index].isReferred = true;
        return *shapes_[index].shape;
    }

    Value* child(std::uint32_t index) {
        if (index >= made_.size()) {
            throw Malformed{"a group refers to an attribute that does not stand in front of it"};
        }
        Made& made = made_[index];
        if (made.isReferred) {
            made.value = builder_.nearby(made.value);
        }
        made.isReferred = true;
        return made.value;
    }

    Value* readData(const File::Entry& entry) {
        DataShape shape{entry.kind(),
                        entry.tuple_size(),
                        entry.samples(),
                        static_cast<std::int64_t>(entry.values())};
        if (!isDataKind(shape.kind) || !shape.isLegal() ||
            (shape.sampleCount == 0 && shape.valueCount != 0)) {
            throw Malformed{"an entry is neither a group nor a possible data attribute"};
        }
        if (entry.shape() != 0 || (entry.flags() & ~BinaryForm::kTimed) != 0) {
            throw Malformed{"a data attribute says what only groups have"};
        }
        const bool isTimed = (entry.flags() & BinaryForm::kTimed) != 0;
        if (!isTimed && shape.sampleCount > 1) {
            throw Malformed{"an attribute of several samples has no times"};
        }
        shape.times = isTimed ? times_.take(entry.samples()) : nullptr;
        return readValues(shape, product(entry.samples(), entry.values()));
    }

    Value* readValues(DataShape& shape, std::uint64_t count) {
        switch (shape.kind) {
            case OV_ATTRIBUTE_INT:
                return readNumbers(shape, ints_.take(count), count);
            case OV_ATTRIBUTE_FLOAT:
                return readNumbers(shape, floats_.take(count), count);
            case OV_ATTRIBUTE_DOUBLE:
                return readNumbers(shape, doubles_.take(count), count);
            default:
                return readStrings(shape, count);
        }
    }

    template <class T>
    Value* readNumbers(const DataShape& shape, const T* values, std::uint64_t count) {
        DataValue* const data = builder_.addData(shape);
        if (count != 0) {
            std::memcpy(data->values(), values, count * sizeof(T));
        }
        return data;
    }

    Value* readStrings(DataShape& shape, std::uint64_t count) {
        const std::uint32_t* const lengths = strings_.lengthsOf(count);
        for (std::uint64_t i = 0; i < count; ++i) {
            shape.textBytes += lengths[i] + TextRecord::kExtraBytes;
        }
        strings_.textMustHold(shape.textBytes - count * TextRecord::kExtraBytes);
        DataValue* const data = builder_.addData(shape);
        StringWriter writer(*data);
        for (std::uint64_t i = 0; i < count; ++i) {
            writer.write(stringWithoutNul());
        }
        return data;
    }

    std::string_view stringWithoutNul() {
        const std::string_view text = strings_.take();
        if (text.find('\0') != std::string_view::npos) {
            throw Malformed{"a string holds a NUL"};
        }
        return text;
    }

    /// The last entry is the one that nothing refers to.
    void mustBeUsedUp() {
        made_.back().isReferred = true;
        const auto isReferred = [](const auto& item) { return item.isReferred; };
        if (!std::all_of(made_.begin(), made_.end(), isReferred)) {
            throw Malformed{"it holds an attribute that nothing refers to"};
        }
        if (!std::all_of(shapes_.begin(), shapes_.end(), isReferred)) {
            throw Malformed{"it holds names that nothing refers to"};
        }
        children_.mustBeUsedUp();
        names_.mustBeUsedUp();
        times_.mustBeUsedUp();
        ints_.mustBeUsedUp();
        floats_.mustBeUsedUp();
        doubles_.mustBeUsedUp();
        strings_.mustBeUsedUp();
    }

    const File::AttributeFile& file_;
    Supply<std::uint32_t> children_;
    Supply<std::uint32_t> shapeSizes_;
    TextSupply names_;
    Supply<float> times_;
    Supply<std::int32_t> ints_;
    Supply<float> floats_;
    Supply<double> doubles_;
    TextSupply strings_;
    BlockBuilder builder_;
    std::vector<Names> shapes_;
    std::vector<Made> made_;
    std::vector<Value*> groupChildren_;
};

ReadValue failed(const std::string& what) {
    ReadValue result;
    result.error = "The binary file is malformed: " + what + ".";
    return result;
}

}  // namespace

ReadValue readBinary(std::string_view bytes) {
    if (bytes.size() >= FLATBUFFERS_MAX_BUFFER_SIZE) {
        return failed("it is larger than 2 GiB");
    }
    const auto* const data = reinterpret_cast<const std::uint8_t*>(bytes.data());
    flatbuffers::Verifier verifier(data, bytes.size());
    if (!File::VerifyAttributeFileBuffer(verifier)) {
        return failed("it is cut short, or its sizes do not fit together");
    }
    const File::AttributeFile& file = *File::GetAttributeFile(data);
    if (file.version() != BinaryForm::kVersion) {
        return failed("it has the version " + std::to_string(file.version()) +
                      ", and this reader knows " + std::to_string(BinaryForm::kVersion));
    }
    if (file.content() > File::Content::MAX) {
        return failed("it does not say what it holds");
    }
    try {
        return {BinaryDecoder(file, bytes.size()).decode(),
                static_cast<AttributeContent>(file.content()),
                {}};
    } catch (const Malformed& malformed) {
        return failed(malformed.what);
    } catch (const std::length_error&) {
        return failed("the names of a group are longer than any group can have");
    }
}

}  // namespace Sylvar3::internal::OvAttribute::Embedded
